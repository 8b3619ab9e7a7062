#pragma once
// One open drawing of the application with what belongs to it alone: the drawing, its
// LISP namespace (a defun in one drawing is not seen in another), its command processor
// and its undo history. Documents are created and closed by the Application.
#include <string>

#include "cadhost/app/CadLispHost.h"
#include "cadhost/app/InputLisp.h"
#include "cadhost/drawing/UndoHistory.h"
#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/lisp/Interpreter.h"

namespace cadhost {

class Application;

class Document {
public:
    // `titled`: the drawing was read from a file (DWGTITLED).
    Document(Application& app, Drawing drawing, bool titled);
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Application& application() { return app_; }
    Drawing& drawing() { return drawing_; }
    const Drawing& drawing() const { return drawing_; }
    lisp::Interpreter& lisp() { return lisp_; }
    CommandProcessor& commands() { return commands_; }
    UndoHistory& undoHistory() { return undo_; }
    // The view that ZOOM and PAN work on (the window's view of this drawing); none in the
    // console.
    void setView(commands::ViewControl* view) { view_ = view; }
    // What initget set for the next LISP input function of this drawing.
    InputRules& inputRules() { return inputRules_; }

    bool titled() const { return titled_; }
    // DWGNAME: the file name without folder ("Drawing1.dxf" for a new drawing).
    std::string name() const;
    // DWGPREFIX and DWGNAME together: the full path of the drawing's file.
    std::string path() const;

    // One lock at a time: a second lock fails as it does while another command holds the
    // document.
    bool lock();
    void unlock();

private:
    Application& app_;
    Drawing drawing_;
    bool titled_;
    CadLispHost lispHost_;
    lisp::Interpreter lisp_;
    CommandProcessor commands_;
    UndoHistory undo_;
    commands::ViewControl* view_ = nullptr;
    InputRules inputRules_;
    int lockCount_ = 0;
};

}  // namespace cadhost
