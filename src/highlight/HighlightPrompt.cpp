#include "highlight/HighlightPrompt.h"

#include <algorithm>
#include <array>

#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

struct Keyword {
    MsgKey text;
    HighlightCode code;
};

constexpr std::array<Keyword, 5> kKeywords{{
    {MsgKey::TxHlOptions, HighlightCode::Options},
    {MsgKey::TxHlPermFrame, HighlightCode::PermanentFrame},
    {MsgKey::TxHlSelection, HighlightCode::SelectionSet},
    {MsgKey::TxHlDelete, HighlightCode::Delete},
    {MsgKey::TxHlHelp, HighlightCode::Help},
}};

std::string joined(const std::vector<std::string>& words, const std::string& separator) {
    std::string out;
    for (const std::string& w : words) out += (out.empty() ? "" : separator) + w;
    return out;
}

}  // namespace

std::vector<std::string> highlightKeywords(const std::string& control) {
    const bool offersSelection = control.find('S') != std::string::npos;
    std::vector<std::string> words;
    for (const Keyword& k : kKeywords)
        if (k.code != HighlightCode::SelectionSet || offersSelection) words.push_back(catalogText(k.text));
    return words;
}

std::string highlightPrompt(const std::vector<std::string>& keywords) {
    return "\n" + catalogText(MsgKey::TxHlReturn) + " [" + joined(keywords, "/") + "]: ";
}

std::string highlightKeywordList(const std::vector<std::string>& keywords) { return joined(keywords, " "); }

HighlightCode highlightCode(bool normal, const std::string& answer, const std::vector<std::string>& keywords) {
    if (!normal || std::find(keywords.begin(), keywords.end(), answer) == keywords.end()) return HighlightCode::Return;
    for (const Keyword& k : kKeywords)
        if (catalogText(k.text) == answer) return k.code;
    return HighlightCode::Return;
}

}  // namespace ardo
