#include "cadhost/app/ConsoleInterface.h"

namespace cadhost {

ConsoleInterface::ConsoleInterface(Print print)
    : output_(std::move(print)), boxes_([this](std::string_view text) { this->print(text); }) {}

void ConsoleInterface::setReader(MessageBoxes::ReadLine read) {
    read_ = read;
    boxes_.setReader(std::move(read));
}

void ConsoleInterface::print(std::string_view text) {
    if (text.empty()) return;
    output_(text);
    atLineStart_ = text.back() == '\n';
}

void ConsoleInterface::startLine() {
    if (!atLineStart_) print("\n");
}

std::optional<std::string> ConsoleInterface::prompt(const std::string& question) {
    if (!read_) return std::nullopt;
    startLine();
    // The answer's line end is the terminal's echo.
    std::optional<std::string> answer = read_(question);
    atLineStart_ = true;
    return answer;
}

}  // namespace cadhost
