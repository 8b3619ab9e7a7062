#pragma once
// The key whose layer name is most like a given layer name, as a hint for layers no key
// names: similarity of letter pairs without regard to case, so "Bemaßung-alt" finds
// "A-Bemaßung" although the words stand in another order.
#include <string>

#include "layers/CentralLayerFile.h"

namespace ardo {

// Similarity of two names from 0 (no letter pair in common) to 1 (equal but for case).
double nameSimilarity(const std::string& a, const std::string& b);

// The file entry (flag 4) with the most similar name, or none when no name reaches the
// threshold. The first of equally similar entries wins.
const LayerEntry* nearestKeyEntry(const CentralLayerFile& list, const std::string& layerName,
                                  double threshold = 0.4);

}  // namespace ardo
