// The APPID table: the applications whose extended data the drawing's objects carry.
#include "cadhost/drawing/Drawing.h"

namespace cadhost {

void Drawing::registerApplication(std::string_view name) {
    if (name.empty() || findTableRecord("APPID", name)) return;
    std::vector<OwnedTag> tags{{0, "APPID"}};
    if (const Handle h = takeHandle()) tags.push_back({5, handleText(h)});
    if (!isR12())
        tags.insert(tags.end(), {{330, tableHandle("APPID")}, {100, "AcDbSymbolTableRecord"}, {100, "AcDbRegAppTableRecord"}});
    tags.insert(tags.end(), {{2, fileText(name)}, {70, "0"}});
    addTableRecord("APPID", std::move(tags));
}

}  // namespace cadhost
