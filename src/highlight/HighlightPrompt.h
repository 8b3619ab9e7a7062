#pragma once
// The prompt that keeps entities highlighted: its keywords, and what each answer does.
#include <string>
#include <vector>

namespace ardo {

// What the user asked for at the prompt.
enum class HighlightCode : char {
    Options = 'O',
    PermanentFrame = 'P',
    SelectionSet = 'A',
    Delete = 'L',
    Help = 'H',
    Return = 'r',
};

// The keywords in prompt order; the selection-set keyword only when the control text
// contains S.
std::vector<std::string> highlightKeywords(const std::string& control);
// The keywords for initget, separated by blanks.
std::string highlightKeywordList(const std::vector<std::string>& keywords);
// "\nReturn oder [Optionen/.../Hilfe]: " for these keywords.
std::string highlightPrompt(const std::vector<std::string>& keywords);
// The code of an answer. `normal` is false for Enter, a cancel or an error. The code goes
// by which keyword was answered, so leaving the selection set out moves no other code;
// anything not offered reads as Return.
HighlightCode highlightCode(bool normal, const std::string& answer, const std::vector<std::string>& keywords);

}  // namespace ardo
