// Building the layer dialog's data (load file image, load entries, mark object references,
// merge drawing layers, sort) for a large central file and drawing, against the literal
// version of the same steps: a linear search per object line and per drawing layer, and a
// bubble sort of neighbours until a pass swaps nothing. Prints both times, their ratio, and
// checks that both give the same order.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/CaseFold.h"
#include "layers/CentralLayerFile.h"
#include "layers/ColourCode.h"
#include "layers/ObjectLayerFile.h"

namespace {

using namespace ardo;
using Clock = std::chrono::steady_clock;

// A layer table in memory: only what merging reads. (The benchmarks link the module and the
// CAD host, not the test support.)
class BenchDrawing : public HostDrawing {
public:
    std::vector<LayerRecord> layers;

    DbStatus forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const override {
        for (const auto& l : layers)
            if (!visit(l)) break;
        return DbStatus::Ok;
    }
    bool isContinuousLinetype(const std::string& name) const override { return equalsNoCase(name, "Continuous"); }
    bool usesNamedPlotStyles() const override { return false; }

    std::optional<LayerRecord> findLayer(const std::string&) const override { return std::nullopt; }
    DbStatus addLayer(const LayerRecord&) override { return DbStatus::InvalidInput; }
    DbStatus updateLayer(const LayerRecord&) override { return DbStatus::InvalidInput; }
    DbStatus mergeLayer(const std::string&, const std::string&) override { return DbStatus::InvalidInput; }
    DbStatus setLayerPlotStyleName(const std::string&, const std::string&) override { return DbStatus::InvalidInput; }
    bool hasLinetype(const std::string&) const override { return false; }
    DbStatus loadLinetype(const std::string&, const std::string&) override { return DbStatus::InvalidInput; }
    bool hasDictionary(const std::string&) const override { return false; }
    DbStatus addDictionary(const std::string&) override { return DbStatus::InvalidInput; }
    DbStatus addPlaceHolder(const std::string&, const std::string&) override { return DbStatus::InvalidInput; }
    bool hasDictionaryEntry(const std::string&, const std::string&) const override { return false; }
};

struct Inputs {
    std::string centralPath;
    std::string objectPath;
    BenchDrawing drawing;
};

// A scattered order of names; every eleventh repeats the one before in other case, so that
// equal upper-case names meet in the sort and its stability shows.
std::string layerName(size_t i, size_t n) {
    const bool repeat = i % 11 == 10;
    const size_t scattered = ((repeat ? i - 1 : i) * 7919) % (n * 2 + 1);
    return (repeat ? "LAYER_" : "Layer_") + std::to_string(scattered);
}

Inputs makeInputs(const std::filesystem::path& dir, size_t entries, size_t drawingLayers) {
    Inputs in;
    in.centralPath = (dir / ("Ardo_" + std::to_string(entries) + ".ini")).string();
    in.objectPath = (dir / ("Mauer_" + std::to_string(entries) + ".ini")).string();
    std::ofstream central(in.centralPath);
    central << "[GENERAL]\nVersion=3\n\n[LAYER]\n";
    for (size_t i = 0; i < entries; ++i)
        central << "K" << i << "=" << layerName(i, entries) << "," << (i % 255 + 1) << ",Continuous,,0,,,-3,Normal,,1\n";
    std::ofstream object(in.objectPath);
    object << "[Layer]\n";
    for (size_t i = 0; i < entries; i += 4) object << (i % 8 == 0 ? "Mauer" : "Wand") << "=K" << i << "\n";
    // Half the drawing's layers are file layers (other case), half are new.
    for (size_t i = 0; i < drawingLayers; ++i) {
        LayerRecord r;
        r.name = i % 2 == 0 ? ardo::upperCase(layerName(i, entries)) : "Dwg_" + std::to_string(i);
        r.color = HostColor::fromIndex(static_cast<int>(i % 255 + 1));
        r.isFrozen = i % 3 == 0;
        in.drawing.layers.push_back(r);
    }
    return in;
}

// Seconds per step of the last fast run.
struct StepTimes {
    double load = 0, entries = 0, mark = 0, merge = 0, sort = 0;
} lastSteps;

double since(Clock::time_point& mark) {
    const auto now = Clock::now();
    const double s = std::chrono::duration<double>(now - mark).count();
    mark = now;
    return s;
}

// The steps as the dialog runs them.
std::vector<const LayerEntry*> buildFast(const Inputs& in, CentralLayerFile& list) {
    auto mark = Clock::now();
    list.loadFileImage(in.centralPath);
    lastSteps.load = since(mark);
    list.loadEntries();
    lastSteps.entries = since(mark);
    ObjectLayerFile object;
    object.read(in.objectPath);
    object.markReferences(list, "Mauer");
    lastSteps.mark = since(mark);
    list.mergeDrawingLayers(in.drawing);
    lastSteps.merge = since(mark);
    list.sortByName();
    lastSteps.sort = since(mark);
    std::vector<const LayerEntry*> order;
    for (const auto& e : list.entries()) order.push_back(e.get());
    return order;
}

// The same steps with a linear search per lookup and a bubble sort.
std::vector<const LayerEntry*> buildLiteral(const Inputs& in, CentralLayerFile& list) {
    list.loadFileImage(in.centralPath);
    list.loadEntries();
    ObjectLayerFile object;
    object.read(in.objectPath);
    for (const auto& line : object.lines()) {
        if (line.deleted) continue;
        if (FoundEntry f = list.findByKey(line.key)) {
            f.entry->flags |= entryflag::kInObjectFile;
            if (equalsNoCase(line.objectName, "Mauer")) f.entry->flags |= entryflag::kCurrentObject;
        }
    }
    const bool named = in.drawing.usesNamedPlotStyles();
    in.drawing.forEachLayer([&](const LayerRecord& r) {
        FoundEntry f = list.findByName(r.name);
        LayerEntry* e = f.entry;
        if (!e) {
            LayerEntry fresh;
            fresh.name = r.name;
            e = &list.append(std::move(fresh));
        }
        e->flags |= entryflag::kInDrawing;
        ColourCode c = encodeColour(r.color);
        e->dwgColor = c.code;
        e->dwgColorBookName = c.bookName;
        e->dwgColorName = c.colourName;
        e->dwgStates = (r.isOff ? 1u : 0u) | (r.isFrozen ? 2u : 0u) | (r.isLocked ? 4u : 0u) |
                       (r.frozenInNewViewports ? 16u : 0u);
        e->dwgLineweight = r.lineweight;
        e->dwgPlottable = r.isPlottable;
        e->dwgPlotStyle = named ? r.plotStyleName : std::string();
        e->dwgLinetype = in.drawing.isContinuousLinetype(r.linetype) ? "CONTINUOUS" : r.linetype;
        return true;
    });
    std::vector<LayerEntry*> order;
    for (const auto& e : list.entries()) {
        e->sortName = upperCase(e->name);
        order.push_back(e.get());
    }
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (size_t i = 0; i + 1 < order.size(); ++i) {
            if (order[i]->sortName.compare(order[i + 1]->sortName) > 0) {
                std::swap(order[i], order[i + 1]);
                swapped = true;
            }
        }
    }
    return {order.begin(), order.end()};
}

struct Run {
    double seconds;
    std::vector<std::string> keysAndNames;
};

template <class Build>
Run timed(const Inputs& in, Build build, int repetitions) {
    Run best{1e30, {}};
    for (int r = 0; r < repetitions; ++r) {
        CentralLayerFile list;
        const auto start = Clock::now();
        auto order = build(in, list);
        benchmark::DoNotOptimize(order.data());
        const double s = std::chrono::duration<double>(Clock::now() - start).count();
        if (s < best.seconds) {
            best.seconds = s;
            best.keysAndNames.clear();
            for (const LayerEntry* e : order)
                best.keysAndNames.push_back(e->key + "=" + e->name + "/" + std::to_string(e->flags));
        }
    }
    return best;
}

}  // namespace

int main() {
    const auto dir = std::filesystem::temp_directory_path() / "ardo_bench_layer_data";
    std::filesystem::create_directories(dir);
    int failures = 0;
    std::printf("%10s %10s %10s %14s %14s %10s %s\n", "entries", "dwg layers", "rows", "indexed+stable",
                "literal", "ratio", "same order");
    for (size_t entries : {1000u, 10000u, 100000u}) {
        const Inputs in = makeInputs(dir, entries, entries / 2);
        const Run fast = timed(in, buildFast, 5);
        const StepTimes steps = lastSteps;
        if (entries > 10000) {
            std::printf("%10zu %10zu %10zu %12.2f ms %14s %10s %s\n", entries, entries / 2, fast.keysAndNames.size(),
                        fast.seconds * 1e3, "skipped", "-", "(literal version is quadratic)");
        } else {
            const Run literal = timed(in, buildLiteral, entries <= 1000 ? 3 : 1);
            const bool same = fast.keysAndNames == literal.keysAndNames;
            failures += same ? 0 : 1;
            std::printf("%10zu %10zu %10zu %12.2f ms %11.2f ms %9.1fx %s\n", entries, entries / 2,
                        fast.keysAndNames.size(), fast.seconds * 1e3, literal.seconds * 1e3,
                        literal.seconds / fast.seconds, same ? "yes" : "NO");
        }
        std::printf("%10s steps (last run, ms): load image %.2f, entries %.2f, object file and marks %.2f, "
                    "merge %.2f, sort %.2f\n",
                    "", steps.load * 1e3, steps.entries * 1e3, steps.mark * 1e3, steps.merge * 1e3, steps.sort * 1e3);
    }
    std::filesystem::remove_all(dir);
    return failures == 0 ? 0 : 1;
}
