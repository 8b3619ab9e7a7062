#pragma once
// What the view draws of one space of a drawing: each entity's pieces, cached, with a grid
// index over their boxes, the layer table the pieces refer to, and each entity's look
// (hidden or highlighted by the host's redraw service, or selected). It follows the
// drawing's change notifications, so a repaint never reads DXF tags.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/drawing/HandleIndex.h"
#include "cadhost/gui/GridIndex.h"
#include "cadhost/gui/SceneTypes.h"

namespace cadhost::gui {

struct SceneLayer {
    std::string name;
    std::uint32_t rgb = 0xFFFFFF;
    bool off = false, frozen = false, locked = false;
    bool plottable = true;
    std::vector<double> dashes{};   // its linetype's pattern; empty is solid
    int lineweight = -3;
    bool shown() const { return !off && !frozen; }
};

struct SceneItem {
    Handle handle = 0;
    Box2 box;                 // empty for an erased entity or one without geometry
    std::vector<Piece> pieces;
};

enum class Look : std::uint8_t { Normal, Hidden, Highlighted };

class Scene final : public DrawingListener {
public:
    // The entities of model or paper space, or of a block (a layout other than the file's
    // active one keeps its entities in its block).
    Scene(Drawing& drawing, Space space, std::string block = {});
    ~Scene() override;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    Drawing& drawing() { return drawing_; }
    // The drawing is gone (its document was closed elsewhere): nothing of it is touched again.
    void forgetDrawing() { attached_ = false; }
    // Reads every entity of the space again (REGEN).
    void rebuild();
    // Called after each change the drawing announced, for the view to repaint.
    void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

    const std::vector<SceneLayer>& layers() const { return layers_; }
    // $LTSCALE, which scales every pattern.
    double linetypeScale() const { return linetypeScale_; }
    // Lineweights are shown (LWDISPLAY), and what the default lineweight is (LWDEFAULT).
    bool lineweightsShown() const { return lineweightsShown_; }
    int defaultLineweight() const { return defaultLineweight_; }
    // The box around everything on layers that are shown; empty for an empty drawing.
    Box2 extents() const;
    std::size_t size() const { return items_.size(); }

    // Items meeting the area that have a piece on a shown layer, with their looks.
    void visit(const Box2& area, const std::function<void(const SceneItem&, Look)>& draw) const;
    // The highlighted items meeting the area, without looking at the others.
    void visitHighlighted(const Box2& area, const std::function<void(const SceneItem&)>& draw) const;
    const SceneItem* item(Handle entity) const;
    // False when no entity is highlighted; true may still mean none.
    bool anyHighlighted() const { return !highlighted_.empty(); }
    // Counts up whenever what the drawing shows changes (geometry, layers, hidden entities),
    // and, apart from it, whenever the highlighted set changes: a view keeps its picture of
    // the drawing until the first moves and lays highlights over it.
    std::uint64_t revision() const { return revision_; }
    std::uint64_t highlightRevision() const { return highlightRevision_; }
    // The entity nearest to `at` within `tolerance` (world units), on a shown layer.
    std::optional<Handle> pick(Vec2 at, double tolerance) const;
    // Entities inside the area (window) or meeting it (crossing), on shown layers.
    std::vector<Handle> select(const Box2& area, bool crossing) const;

    // Sets one entity's look; false for an entity this scene does not show.
    bool setLook(Handle entity, Look look);
    Look look(Handle entity) const;
    // A highlighted entity back to normal; a hidden one stays hidden.
    void unhighlight(Handle entity);
    // Every entity back to normal (the next full redraw).
    void clearLooks();

    // --- DrawingListener --------------------------------------------------------------
    void layerChanged(Change, const std::string&) override;
    void entityChanged(Change change, std::uint64_t handle) override;
    void linetypeChanged(Change, const std::string&) override;
    void variableChanged(const std::string& name) override;

private:
    int layerIndex(const std::string& name);
    void readLayers();
    void readVariables();
    const std::vector<double>& pattern(const std::string& linetype);
    SceneItem itemOf(Handle handle);
    void place(std::uint32_t index);
    void setLookAt(std::uint32_t index, Look look);
    bool itemShown(const SceneItem& item) const;
    // Distance from `at` to the item's nearest piece; nothing beyond `limit`.
    std::optional<double> distance(const SceneItem& item, Vec2 at, double limit) const;
    bool crosses(const SceneItem& item, const Box2& area) const;
    // Whether the entity belongs to what this scene shows.
    bool shows(const EntityInfo& info) const;

    Drawing& drawing_;
    Space space_;
    std::string block_;   // folded; for Space::Block
    std::vector<SceneLayer> layers_;
    std::unordered_map<std::string, int> layerByName_;   // folded name
    std::unordered_map<std::string, std::vector<double>> patterns_;   // folded linetype name
    double linetypeScale_ = 1;
    bool lineweightsShown_ = false;
    int defaultLineweight_ = 25;
    std::vector<SceneItem> items_;
    std::vector<Look> looks_;
    // One array, no node per entity: a blink phase looks up every entity it shows.
    HandleIndex<std::uint32_t> itemByHandle_;
    // Items that were highlighted since the list was last tidied; `listed_` keeps each once.
    mutable std::vector<std::uint32_t> highlighted_;
    mutable std::vector<bool> listed_;
    std::size_t hidden_ = 0;
    std::uint64_t revision_ = 0, highlightRevision_ = 0;
    GridIndex grid_;
    std::function<void()> changed_;
    bool attached_ = true;
};

}  // namespace cadhost::gui
