#pragma once
// The one boundary between the module and its CAD application. The module asks every
// service of its host through this interface and never calls a host any other way.
#include <cstdint>
#include <string>
#include <vector>

#include "boundary/HostColor.h"
#include "boundary/HostDrawing.h"
#include "boundary/ResBuf.h"

// The host's windows are Qt widgets; the boundary names the type without needing Qt.
class QWidget;

namespace ardo {

// Message box buttons, icons and answers with the values Windows gives them.
enum class MbButtons { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4 };
enum class MbIcon { None = 0, Error = 0x10, Question = 0x20, Exclamation = 0x30, Information = 0x40 };
enum class MbAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

using LispHandler = int (*)();

class Host {
public:
    virtual ~Host() = default;

    // LISP registration and dispatch.
    virtual int defun(const std::string& name, int code) = 0;
    virtual int undef(const std::string& name, int code) = 0;
    virtual int regFunc(LispHandler handler, int code) = 0;
    virtual int getFunCode() const = 0;
    // Queues a LISP expression for the interpreter once the document is ready.
    virtual int queueExpr(const std::string& expression) = 0;

    // Arguments of the current call and its result.
    virtual const ResBufChain& getArgs() const = 0;
    virtual int retNil() = 0;
    virtual int retT() = 0;
    virtual int retVoid() = 0;
    virtual int retStr(const std::string& value) = 0;
    virtual int retInt(int value) = 0;
    virtual int retReal(double value) = 0;
    virtual int retList(const ResBufChain& list) = 0;

    // Command line, alert box and message boxes.
    virtual void print(const std::string& text) = 0;
    virtual void alert(const std::string& text) = 0;
    virtual MbAnswer messageBox(const std::string& text, const std::string& caption,
                                MbButtons buttons, MbIcon icon) = 0;

    // System variables: RTNORM with the value, or RTERROR for an unknown name.
    virtual int getVar(const std::string& name, ResBuf& value) const = 0;
    virtual int setVar(const std::string& name, const ResBuf& value) = 0;

    // Runs a host command: tokens as the command line would get them; an empty string
    // answers a prompt with Enter.
    virtual int command(const ResBufChain& tokens) = 0;

    // The working drawing, or none.
    virtual HostDrawing* workingDrawing() = 0;
    // Document locking around database writes outside a command.
    virtual bool lockDocument() = 0;
    virtual void unlockDocument() = 0;
    // Identifies the current document in messages.
    virtual const void* currentDocument() const = 0;

    // Colour lookups of the host: index colour names and numbers (English and German
    // forms), RGB names ("255,128,0") and colour-book colours. True when found.
    virtual bool colorFromAciName(const std::string& text, HostColor& color) const = 0;
    virtual bool colorFromRgbName(const std::string& text, HostColor& color) const = 0;
    virtual bool colorFromColorBookName(const std::string& book, const std::string& name,
                                        HostColor& color) const = 0;
    // The palette's RGB of an index colour, for nearest-index and RGB results.
    virtual std::uint32_t rgbOfIndexColor(int index) const = 0;

    // ObjectARX applications: load one from its file; ask whether one is loaded by its
    // name (the file name without folder and extension, any case).
    virtual bool arxLoad(const std::string& path) = 0;
    virtual bool arxLoaded(const std::string& application) const = 0;
    // A file along the host's support folders, as findfile finds it; false when none.
    virtual bool findFile(const std::string& name, std::string& result) const = 0;
    // Greys or enables an entry of a loaded menu group; false when the host has no such
    // group or entry.
    virtual bool greyMenuItem(const std::string& menuGroup, const std::string& item, bool grey) = 0;

    // The host's main window, the parent of the module's dialogs and panes; null when the
    // host runs without one (the console).
    virtual QWidget* mainWindow() = 0;
    // Redraws one entity (an RTENAME id): 1 show, 2 hide, 3 highlight, 4 unhighlight.
    // RTERROR for a mode outside 1 to 4 or an entity the drawing does not have.
    virtual int redraw(std::int64_t entity, int mode) = 0;
    // Brings the screen up to date after redraws.
    virtual void updateDisplay() = 0;
    // The host's colour dialog, starting at `color`; `allowMetaColors` offers BYLAYER and
    // BYBLOCK. RTNORM with the chosen colour, RTCAN when the user cancelled.
    virtual int colorDialog(HostColor& color, bool allowMetaColors) = 0;
    // Lets the user pick one entity after the prompt: RTNORM with its id and the pick
    // point, RTCAN when cancelled, RTERROR when nothing was picked or there is nothing to
    // pick in.
    virtual int entSel(const std::string& prompt, std::int64_t& entity, Point3& point) = 0;

    // Prompts that take keywords, as acedInitGet and acedGetKword: initGet sets the control
    // bits (1 no Enter, 128 any text) and the keywords ("Yes No") for the next input call.
    // getKword: RTNORM with the keyword, or with the typed text under bit 128; RTNONE for
    // Enter; RTCAN when cancelled or nobody can answer.
    virtual int initGet(int bits, const std::string& keywords) = 0;
    virtual int getKword(const std::string& prompt, std::string& result) = 0;
    // A distance typed or given by two points (picked in a view or typed): RTNORM with it,
    // RTNONE for Enter, RTCAN as above.
    virtual int getDist(const std::string& prompt, double& result) = 0;

    // Selection sets (RTPICKS ids), as acedSSLength, acedSSName, acedSSAdd and acedSSFree.
    // ssAdd with entity 0 makes a new empty set, with set 0 a new set of that entity, else
    // it adds the entity to the set; the result names the set. A set made here lives until
    // ssFree. RTERROR for an unknown set, an index past the end or an unknown entity.
    virtual int ssLength(std::int64_t set, long& length) = 0;
    virtual int ssName(std::int64_t set, long index, std::int64_t& entity) = 0;
    virtual int ssAdd(std::int64_t entity, std::int64_t set, std::int64_t& result) = 0;
    virtual int ssFree(std::int64_t set) = 0;

    // Entities of the working drawing: the DXF type name ("HATCH", "LINE"), the geometric
    // extents, erasing one, and appending a lightweight polyline (bulges 0, the given
    // constant width) to the current space on a layer. RTERROR for an unknown entity or
    // one without extents, or a layer the drawing lacks.
    virtual int entityType(std::int64_t entity, std::string& type) = 0;
    virtual int entityExtents(std::int64_t entity, Point3& min, Point3& max) = 0;
    virtual int entDel(std::int64_t entity) = 0;
    virtual int addPolyline(const std::vector<Point3>& vertices, double width, const std::string& layer,
                            std::int64_t& entity) = 0;
};

}  // namespace ardo
