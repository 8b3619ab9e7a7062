#include "cadhost/app/MessageBoxes.h"

#include <vector>

#include "base/CaseFold.h"

namespace cadhost {

using ardo::MbAnswer;
using ardo::MbButtons;
using ardo::MbIcon;

namespace {

std::vector<MbAnswer> buttonsOf(MbButtons buttons) {
    switch (buttons) {
    case MbButtons::OkCancel: return {MbAnswer::Ok, MbAnswer::Cancel};
    case MbButtons::YesNoCancel: return {MbAnswer::Yes, MbAnswer::No, MbAnswer::Cancel};
    case MbButtons::YesNo: return {MbAnswer::Yes, MbAnswer::No};
    case MbButtons::Ok: break;
    }
    return {MbAnswer::Ok};
}

bool offers(MbButtons buttons, MbAnswer answer) {
    for (MbAnswer b : buttonsOf(buttons))
        if (b == answer) return true;
    return false;
}

std::string_view iconWord(MbIcon icon) {
    switch (icon) {
    case MbIcon::Error: return "Error";
    case MbIcon::Question: return "Question";
    case MbIcon::Exclamation: return "Warning";
    case MbIcon::Information: return "Information";
    case MbIcon::None: break;
    }
    return {};
}

// "[Yes] No Cancel": the default button in brackets.
std::string buttonRow(MbButtons buttons) {
    std::string row;
    bool first = true;
    for (MbAnswer b : buttonsOf(buttons)) {
        if (!row.empty()) row += ' ';
        row += first ? "[" + std::string(answerName(b)) + "]" : std::string(answerName(b));
        first = false;
    }
    return row;
}

}  // namespace

std::optional<MbAnswer> parseAnswer(std::string_view word) {
    const std::string w = ardo::upperCase(ardo::trimWhite(word));
    if (w == "YES") return MbAnswer::Yes;
    if (w == "NO") return MbAnswer::No;
    if (w == "OK") return MbAnswer::Ok;
    if (w == "CANCEL") return MbAnswer::Cancel;
    return std::nullopt;
}

std::string_view answerName(MbAnswer answer) {
    switch (answer) {
    case MbAnswer::Cancel: return "Cancel";
    case MbAnswer::Yes: return "Yes";
    case MbAnswer::No: return "No";
    case MbAnswer::Ok: break;
    }
    return "OK";
}

MbAnswer MessageBoxes::show(const std::string& text, const std::string& caption, MbButtons buttons,
                            MbIcon icon) {
    std::string box = "\n+-- " + caption;
    if (const std::string_view word = iconWord(icon); !word.empty()) box += " (" + std::string(word) + ")";
    box += " --\n";
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        box += "| " + text.substr(start, end - start) + "\n";
        start = end + 1;
    }
    box += "+-- " + buttonRow(buttons) + "\n";
    print_(box);
    const MbAnswer answer = buttonsOf(buttons).size() == 1 ? MbAnswer::Ok
                            : read_                        ? askTerminal(buttons)
                                                           : takeScripted(buttons);
    print_("Answer: " + std::string(answerName(answer)) + "\n");
    return answer;
}

void MessageBoxes::alert(const std::string& text) { show(text, "ardo-cad", MbButtons::Ok, MbIcon::Exclamation); }

MbAnswer MessageBoxes::askTerminal(MbButtons buttons) {
    const std::vector<MbAnswer> choices = buttonsOf(buttons);
    std::string prompt = "Answer [";
    for (std::size_t i = 0; i < choices.size(); ++i) prompt += (i ? "/" : "") + std::string(answerName(choices[i]));
    prompt += "] <" + std::string(answerName(choices.front())) + ">: ";
    while (true) {
        const std::optional<std::string> line = read_(prompt);
        if (!line || ardo::trimWhite(*line).empty()) return choices.front();
        // The first letters are enough, as at the host's own keyword prompts.
        const std::string typed = ardo::upperCase(ardo::trimWhite(*line));
        for (MbAnswer choice : choices)
            if (ardo::upperCase(answerName(choice)).starts_with(typed)) return choice;
        print_("Please answer with one of the buttons shown.\n");
    }
}

MbAnswer MessageBoxes::takeScripted(MbButtons buttons) {
    const MbAnswer fallback = buttonsOf(buttons).front();
    if (answers_.empty()) return fallback;
    const MbAnswer next = answers_.front();
    answers_.pop_front();
    if (offers(buttons, next)) return next;
    print_("; the given answer " + std::string(answerName(next)) + " is not a button of this box, " +
           std::string(answerName(fallback)) + " taken instead\n");
    return fallback;
}

}  // namespace cadhost
