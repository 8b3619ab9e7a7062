#pragma once
// Alert and message boxes on a console: the box is printed (caption, text, buttons) and
// the answer is read from the terminal when there is one. Without a terminal (script
// mode) the answers given on the command line are used in order, and when none is left
// the default button (the first one: OK or Yes). Boxes with a single button need no
// answer and take none. The answer taken is printed either way.
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "boundary/Host.h"

namespace cadhost {

class MessageBoxes {
public:
    using Print = std::function<void(std::string_view)>;
    // Reads one line from the user after showing the prompt; nothing at end of input.
    using ReadLine = std::function<std::optional<std::string>(const std::string& prompt)>;

    explicit MessageBoxes(Print print) : print_(std::move(print)) {}

    // Interactive mode: answers come from this reader. An empty reader means script mode.
    void setReader(ReadLine read) { read_ = std::move(read); }
    void addScriptAnswer(ardo::MbAnswer answer) { answers_.push_back(answer); }

    ardo::MbAnswer show(const std::string& text, const std::string& caption, ardo::MbButtons buttons,
                        ardo::MbIcon icon);
    void alert(const std::string& text);

private:
    ardo::MbAnswer askTerminal(ardo::MbButtons buttons);
    ardo::MbAnswer takeScripted(ardo::MbButtons buttons);

    Print print_;
    ReadLine read_;
    std::deque<ardo::MbAnswer> answers_;
};

// "yes", "no", "ok" or "cancel" in any case; nothing for other words.
std::optional<ardo::MbAnswer> parseAnswer(std::string_view word);
// The answer's name as the box shows it: "OK", "Cancel", "Yes", "No".
std::string_view answerName(ardo::MbAnswer answer);

}  // namespace cadhost
