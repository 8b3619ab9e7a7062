#pragma once
// A large drawing for the benchmarks: the given number of layers and of entities (lines,
// circles, texts and polylines in turn) in model space, as DXF text.
#include <cstdio>
#include <string>

#include "cadhost/drawing/Drawing.h"

namespace bench {

inline std::string handle(unsigned long h) {
    char buf[20];
    std::snprintf(buf, sizeof buf, "%lX", h);
    return buf;
}

// One entity of four kinds in turn, owned by model space, on one of the layers.
inline void appendEntity(std::string& out, unsigned long h, int i) {
    const std::string layer = "Layer_" + std::to_string(i % 2000);
    const double x = (i % 1000) * 1.5, y = (i / 1000) * 2.25;
    char buf[512];
    const std::string head = "  0\n%s\n  5\n" + handle(h) + "\n330\n17\n100\nAcDbEntity\n  8\n" + layer + "\n";
    switch (i % 4) {
        case 0:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbLine\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 11\n%.6f\n 21\n%.6f\n 31\n0.0\n",
                          std::string("  0\nLINE" + head.substr(6)).c_str(), x, y, x + 10.0, y + 5.0);
            break;
        case 1:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbCircle\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n%.6f\n",
                          std::string("  0\nCIRCLE" + head.substr(6)).c_str(), x, y, 1.0 + i % 7);
            break;
        case 2:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbText\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n2.5\n  1\nText %d\n100\nAcDbText\n",
                          std::string("  0\nTEXT" + head.substr(6)).c_str(), x, y, i);
            break;
        default:
            std::snprintf(buf, sizeof buf, "%s100\nAcDbPolyline\n 90\n3\n 70\n0\n 10\n%.6f\n 20\n%.6f\n 10\n%.6f\n 20\n%.6f\n 10\n%.6f\n 20\n%.6f\n",
                          std::string("  0\nLWPOLYLINE" + head.substr(6)).c_str(), x, y, x + 3, y, x + 3, y + 3);
    }
    out += buf;
}

inline std::string makeDrawing(int layers, int entities) {
    cadhost::Drawing d;
    for (int i = 0; i < layers; ++i) {
        ardo::LayerRecord r;
        r.name = "Layer_" + std::to_string(i);
        r.color = ardo::HostColor::fromIndex(1 + i % 255);
        d.addLayer(r);
    }
    unsigned long next = std::stoul(d.getVar("HANDSEED")->text, nullptr, 16);
    std::string body;
    body.reserve(static_cast<std::size_t>(entities) * 170);
    for (int i = 0; i < entities; ++i) appendEntity(body, next++, i);
    d.setVar("HANDSEED", ardo::ResBuf::str(handle(next)));
    std::string dxf = d.toDxf();
    const auto at = dxf.find("  0\nENDSEC", dxf.find("ENTITIES"));
    dxf.insert(at, body);
    return dxf;
}

}  // namespace bench
