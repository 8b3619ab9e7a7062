#pragma once
// Turns an entity into the pieces the view draws: its geometry as the host measures it
// (curves as point chains, solids as fills) with the layer and colour it shows in, texts
// as runs, block references through their blocks, nested ones included. Work is done once per entity and cached by the scene.
#include <functional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/gui/SceneTypes.h"

namespace cadhost::gui {

class EntityShapes {
public:
    // `layerIndex` gives the scene's index of a layer name (adding it when new).
    EntityShapes(const Drawing& drawing, std::function<int(const std::string&)> layerIndex)
        : drawing_(drawing), layerIndex_(std::move(layerIndex)) {}

    // The pieces of one entity of model or paper space.
    std::vector<Piece> shapes(Handle entity);

private:
    // What a block reference hands down to its contents: placement, the layer that
    // replaces layer "0" and the colour that ByBlock means.
    struct Context {
        Affine place;
        int blockLayer = -1;
        PieceColor blockColor;
        int depth = 0;
    };
    void add(Handle entity, const Context& context, std::vector<Piece>& out);
    void addInsert(const std::vector<EntityTag>& tags, Handle entity, const Context& inner,
                   const Context& outer, std::vector<Piece>& out);

    const Drawing& drawing_;
    std::function<int(const std::string&)> layerIndex_;
};

// The plain text of an MTEXT value: paragraph breaks as line ends, formatting codes dropped.
std::string plainMText(const std::string& value);

}  // namespace cadhost::gui
