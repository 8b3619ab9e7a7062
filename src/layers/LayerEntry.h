#pragma once
// One layer key of the central layer control file joined with the drawing layer of the same
// name: the file half and the drawing half of the properties side by side.
#include <cstdint>
#include <string>

namespace ardo {

namespace entryflag {
constexpr std::uint32_t kCurrentObject = 1;   // the key belongs to the current object
constexpr std::uint32_t kInDrawing = 2;       // a layer of this name exists in the drawing
constexpr std::uint32_t kFromFile = 4;        // the entry comes from the file
constexpr std::uint32_t kInObjectFile = 8;    // some line of the object-type file names the key
}  // namespace entryflag

// Edit state: zero is unchanged; 4 is deleted and never written.
constexpr std::int32_t kStateDeleted = 4;

struct LayerEntry {
    std::uint32_t flags = 0;
    std::int32_t state = 0;
    std::string key;
    std::string name;
    std::string sortName;
    std::int32_t fileColor = 0;
    std::string fileColorBookName;
    std::string fileColorName;
    std::int32_t dwgColor = 0;
    std::string dwgColorBookName;
    std::string dwgColorName;
    std::string fileLinetype;
    std::string dwgLinetype;
    std::string fileLinetypeFile;
    std::int32_t fileStates = 0;
    std::uint32_t dwgStates = 0;
    std::int32_t fileLineweight = -3;
    std::int32_t dwgLineweight = -3;
    bool filePlottable = true;
    bool dwgPlottable = true;
    std::string filePlotStyle;
    std::string dwgPlotStyle;
    std::string fileTextField10;

    bool has(std::uint32_t flag) const { return (flags & flag) != 0; }
    bool isDeleted() const { return state == kStateDeleted; }
};

}  // namespace ardo
