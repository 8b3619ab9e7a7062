#include "cadhost/app/Document.h"

#include "cadhost/app/Application.h"
#include "cadhost/app/DocumentLisp.h"
#include "cadhost/app/ModuleLisp.h"
#include "cadhost/lisp/SelectionSet.h"

namespace cadhost {

Document::Document(Application& app, Drawing drawing, bool titled)
    : app_(app),
      drawing_(std::move(drawing)),
      titled_(titled),
      lispHost_(app, *this),
      lisp_(lispHost_),
      commands_(CommandProcessor::Environment{
          &drawing_, [&app](const std::string& text) { app.ui().print(text); },
          [this](std::int64_t set) {
              const auto selection = lisp_.selectionSet(set);
              return selection ? selection->entities : std::vector<std::int64_t>{};
          },
          [&app] { app.ui().redraw(); }, &app.colors(), &undo_, [this] { return view_; }}),
      undo_(drawing_) {
    defineModuleFunctions(lisp_);
    defineDocumentFunctions(lisp_);
    defineInputFunctions(lisp_);
}

std::string Document::name() const {
    const auto name = drawing_.getVar("DWGNAME");
    return name ? name->text : std::string();
}

std::string Document::path() const {
    const auto prefix = drawing_.getVar("DWGPREFIX");
    return (prefix ? prefix->text : std::string()) + name();
}

bool Document::lock() {
    if (lockCount_ > 0) return false;
    ++lockCount_;
    return true;
}

void Document::unlock() {
    if (lockCount_ > 0) --lockCount_;
}

}  // namespace cadhost
