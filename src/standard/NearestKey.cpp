#include "standard/NearestKey.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/CaseFold.h"
#include "base/Utf8.h"

namespace ardo {

namespace {

using Pair = std::pair<char32_t, char32_t>;

// The sorted letter pairs of the upper-case name; a one-letter name is its own pair.
std::vector<Pair> letterPairs(const std::string& name) {
    std::vector<char32_t> letters;
    forEachCodePoint(upperCase(name), [&](char32_t c) { letters.push_back(c); });
    std::vector<Pair> pairs;
    if (letters.size() == 1) pairs.emplace_back(letters[0], U'\0');
    for (size_t i = 0; i + 1 < letters.size(); ++i) pairs.emplace_back(letters[i], letters[i + 1]);
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

double pairSimilarity(const std::vector<Pair>& pa, const std::vector<Pair>& pb) {
    if (pa.empty() || pb.empty()) return 0.0;
    // Pairs in common, each pair counted as often as both names hold it.
    size_t common = 0;
    for (size_t i = 0, j = 0; i < pa.size() && j < pb.size();) {
        if (pa[i] == pb[j]) {
            ++common, ++i, ++j;
        } else if (pa[i] < pb[j]) {
            ++i;
        } else {
            ++j;
        }
    }
    return 2.0 * static_cast<double>(common) / static_cast<double>(pa.size() + pb.size());
}

}  // namespace

double nameSimilarity(const std::string& a, const std::string& b) {
    return pairSimilarity(letterPairs(a), letterPairs(b));
}

const LayerEntry* nearestKeyEntry(const CentralLayerFile& list, const std::string& layerName, double threshold) {
    const LayerEntry* best = nullptr;
    double bestScore = threshold;
    const std::vector<Pair> wanted = letterPairs(layerName);
    for (const auto& e : list.entries()) {
        if (!e->has(entryflag::kFromFile) || e->key.empty()) continue;
        const double score = pairSimilarity(wanted, letterPairs(e->name));
        if (score > bestScore || (!best && score >= bestScore)) {
            best = e.get();
            bestScore = score;
        }
    }
    return best;
}

}  // namespace ardo
