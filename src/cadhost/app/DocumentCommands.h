#pragma once
// The command line's commands for the open drawings:
//   DRAWINGS          lists them, numbered, the current one marked with "*"
//   SWITCH [which]    makes the drawing of that number or name current
//   OPEN [file.dxf]   opens a drawing and makes it current
//   CLOSE [which]     closes that drawing, the current one without an argument; unsaved
//                     changes are saved (Yes), given up (No) or the drawing stays (Cancel)
// A command given without the argument it needs asks for it on the next line.
#include <string>
#include <string_view>

namespace cadhost {

class Application;
class Document;

class DocumentCommands {
public:
    explicit DocumentCommands(Application& app) : app_(app) {}

    static bool knows(std::string_view name);
    // `name` is upper case; `argument` the rest of the line.
    void run(const std::string& name, std::string_view argument);
    // True while a command waits for its argument.
    bool waiting() const { return !waiting_.empty(); }
    std::string prompt() const;
    void answer(std::string_view line);

private:
    void list();
    void switchTo(std::string_view which);
    void open(std::string_view file);
    void close(std::string_view which);
    // Asks whether to save the document's unsaved changes; false when it is to stay open.
    bool settleChanges(Document& document);

    Application& app_;
    std::string waiting_;
};

}  // namespace cadhost
