#include "highlight/HighlightFrames.h"

#include "boundary/Host.h"
#include "highlight/cOptHighlight.h"
#include "layers/DrawingLayers.h"
#include "layers/LayerFunctionsEntry.h"
#include "module/HostBinding.h"

namespace ardo {

namespace {

// Frames have no width; they mark, they are not drawn work.
constexpr double kFrameWidth = 0.0;

// The layer frames go on: the chosen frame layer, made when the drawing lacks it and the
// options allow, else the current layer.
std::string frameLayerFor(const cOptHighlight& options) {
    if (options.frameLayer.empty()) {
        ResBuf current;
        host().getVar("CLAYER", current);
        return current.text;
    }
    HostDrawing* drawing = host().workingDrawing();
    const bool mayCreate = options.frameLayerFlags[0] == 0 && options.frameLayerFlags[1] == 1;
    if (drawing && !drawing->findLayer(options.frameLayer) && mayCreate) {
        const LayerValue* entry = options.frameLayerKey.empty() ? nullptr : layerEntryOfKey(options.frameLayerKey);
        createLayer(options.frameLayer, entry ? *entry : LayerValue{});
    }
    return options.frameLayer;
}

}  // namespace

std::vector<Point3> crossedBox(const Point3& min, const Point3& max, double distance) {
    const double z = min[2];
    const Point3 p1{min[0] - distance, min[1] - distance, z};
    const Point3 p2{max[0] + distance, min[1] - distance, z};
    const Point3 p3{max[0] + distance, max[1] + distance, z};
    const Point3 p4{min[0] - distance, max[1] + distance, z};
    // Each vertex goes in at the front, so the polyline runs backwards through this list.
    std::vector<Point3> vertices;
    for (const Point3& p : {p1, p2, p3, p4, p2, p3, p1, p4}) vertices.insert(vertices.begin(), p);
    return vertices;
}

void drawPermanentFrames(std::int64_t entities, const cOptHighlight& options, std::int64_t frames) {
    long length = 0;
    if (host().ssLength(entities, length) != RTNORM) return;
    std::string layer;
    bool layerReady = false;
    for (long i = 0; i < length; ++i) {
        std::int64_t entity = 0;
        Point3 min{}, max{};
        if (host().ssName(entities, i, entity) != RTNORM || host().entityExtents(entity, min, max) != RTNORM)
            continue;
        if (!layerReady) {
            layer = frameLayerFor(options);
            layerReady = true;
        }
        std::int64_t frame = 0;
        if (host().addPolyline(crossedBox(min, max, options.distance), kFrameWidth, layer, frame) != RTNORM) continue;
        host().ssAdd(frame, frames, frames);
    }
}

}  // namespace ardo
