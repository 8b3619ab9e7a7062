#pragma once
// The user interface of the console: output to a stream-like function, message boxes as
// text (see MessageBoxes), no views to repaint and no main window. It remembers whether
// the output stands at the start of a line, so that a prompt never runs into text printed
// before it.
#include <functional>

#include "cadhost/app/MessageBoxes.h"
#include "cadhost/app/UserInterface.h"

namespace cadhost {

class ConsoleInterface final : public UserInterface {
public:
    using Print = std::function<void(std::string_view)>;

    explicit ConsoleInterface(Print print);

    // A terminal to ask: message boxes and prompts read from it. Without one (script
    // mode) message boxes take the scripted answers and prompts get nothing.
    void setReader(MessageBoxes::ReadLine read);
    MessageBoxes& boxes() { return boxes_; }
    // Ends a line left open by earlier output, before a prompt is shown.
    void startLine();
    // A line of input was read and echoed with its line end.
    void inputEchoed() { atLineStart_ = true; }

    void print(std::string_view text) override;
    std::optional<std::string> prompt(const std::string& question) override;
    std::optional<PromptAnswer> ask(const std::string& question, const commands::InputRequest&) override {
        auto typed = prompt(question);
        if (!typed) return std::nullopt;
        return PromptAnswer{std::move(typed), std::nullopt, {}};
    }
    ardo::MbAnswer messageBox(const std::string& text, const std::string& caption, ardo::MbButtons buttons,
                              ardo::MbIcon icon) override {
        return boxes_.show(text, caption, buttons, icon);
    }
    void alert(const std::string& text) override { boxes_.alert(text); }
    // The console draws nothing.
    void redraw() override {}
    MainWindow* mainWindow() override { return nullptr; }
    void redrawEntity(std::int64_t, int) override {}
    void updateDisplay() override {}
    // No dialogs and no view: colours are asked on the command line, and there is nothing
    // to pick entities in.
    std::optional<int> chooseColor(ardo::HostColor&, bool) override { return std::nullopt; }
    std::optional<int> pickEntity(const std::string&, std::int64_t&, ardo::Point3&) override {
        return std::nullopt;
    }

private:
    Print output_;
    MessageBoxes::ReadLine read_;
    MessageBoxes boxes_;
    bool atLineStart_ = true;
};

}  // namespace cadhost
