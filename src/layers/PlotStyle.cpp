#include "layers/PlotStyle.h"

#include <cstdint>

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "base/Printf.h"

namespace ardo {

namespace {

constexpr const char* kPlotStyleDictionary = "ACAD_PLOTSTYLENAME";

// Releases the document lock on every way out.
class DocumentLock {
public:
    DocumentLock() : locked_(host().lockDocument()) {}
    ~DocumentLock() {
        if (locked_) host().unlockDocument();
    }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;
    bool locked() const { return locked_; }

private:
    bool locked_;
};

}  // namespace

void preparePlotStyle(const std::string& name) {
    if (equalsNoCase(name, "Normal")) return;
    DocumentLock lock;
    if (!lock.locked()) {
        const auto address = reinterpret_cast<std::uintptr_t>(host().currentDocument());
        host().print("cannot lock the document" + format("pDoc:%08lx\n", address));
        return;
    }
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) return;
    if (!drawing->hasDictionary(kPlotStyleDictionary) &&
        drawing->addDictionary(kPlotStyleDictionary) != DbStatus::Ok)
        return;
    if (drawing->hasDictionaryEntry(kPlotStyleDictionary, name)) return;
    drawing->addPlaceHolder(kPlotStyleDictionary, name);
}

}  // namespace ardo
