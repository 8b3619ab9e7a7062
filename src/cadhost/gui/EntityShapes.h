#pragma once
// Turns an entity into the pieces the view draws: its geometry as the host measures it
// (curves as point chains, solids as fills) with the layer and colour it shows in, texts
// as runs, block references through their blocks, nested ones included. Work is done once per entity and cached by the scene.
#include <functional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/Paths.h"
#include "cadhost/gui/SceneTypes.h"

namespace cadhost::gui {

class EntityShapes {
public:
    // `layerIndex` gives the scene's index of a layer name (adding it when new), `pattern`
    // a linetype's dash pattern (empty for solid and for a linetype the drawing lacks).
    using Pattern = std::function<const std::vector<double>&(const std::string&)>;
    EntityShapes(const Drawing& drawing, std::function<int(const std::string&)> layerIndex, Pattern pattern)
        : drawing_(drawing), layerIndex_(std::move(layerIndex)), pattern_(std::move(pattern)) {}

    // The pieces of one entity of model or paper space.
    std::vector<Piece> shapes(Handle entity);

private:
    // What a block reference hands down to its contents: placement, the layer that
    // replaces layer "0" and the colour, linetype and lineweight that ByBlock means.
    struct Context {
        Affine place;
        int blockLayer = -1;
        PieceColor blockColor;
        PieceLine blockLine;
        int depth = 0;
    };
    void add(Handle entity, const Context& context, std::vector<Piece>& out);
    // The linetype and lineweight of an entity, ByBlock taken from the context.
    PieceLine lineOf(const geometry::Groups& tags, const Context& context) const;
    // The same with ByLayer looked up, for what a block's contents inherit.
    PieceLine inheritedLine(PieceLine line, const std::string& layer) const;
    // The file name of an IMAGE inside its frame.
    template <class Text>
    void imageName(const geometry::Groups& tags, Text&& text) const;
    void addInsert(const std::vector<EntityTag>& tags, Handle entity, const Context& inner,
                   const Context& outer, std::vector<Piece>& out);

    const Drawing& drawing_;
    std::function<int(const std::string&)> layerIndex_;
    Pattern pattern_;
};

// The plain text of an MTEXT value: paragraph breaks as line ends, formatting codes dropped.
std::string plainMText(const std::string& value);
// The lines of a plain text broken at spaces so that none is longer than `columns`
// characters where a space allows it, as an MTEXT wraps at its reference width.
std::string wrapLines(const std::string& text, std::size_t columns);

}  // namespace cadhost::gui
