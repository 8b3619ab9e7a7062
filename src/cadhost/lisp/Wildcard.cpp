#include "cadhost/lisp/Wildcard.h"

#include <vector>

#include "cadhost/lisp/Text.h"
#include "base/CaseFold.h"

namespace cadhost::lisp {

namespace {

using Chars = std::vector<char32_t>;

bool isLetter(char32_t c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7);
}
bool isDigitChar(char32_t c) { return c >= '0' && c <= '9'; }

struct Matcher {
    const Chars& text;
    const Chars& pat;  // one alternative, without its commas
    bool ignoreCase;

    bool same(char32_t a, char32_t b) const {
        return ignoreCase ? ardo::upperChar(a) == ardo::upperChar(b) : a == b;
    }

    // Matches a bracket class at pat[p] (just after '['); sets end to the index after ']'.
    bool matchClass(std::size_t p, char32_t c, std::size_t& end) const {
        bool negate = p < pat.size() && pat[p] == '~';
        if (negate) ++p;
        bool found = false;
        bool firstInClass = true;
        while (p < pat.size() && (pat[p] != ']' || firstInClass)) {
            firstInClass = false;
            char32_t lo = pat[p];
            if (lo == '`' && p + 1 < pat.size()) lo = pat[++p];
            if (p + 2 < pat.size() && pat[p + 1] == '-' && pat[p + 2] != ']') {
                char32_t hi = pat[p + 2];
                const char32_t cu = ignoreCase ? ardo::upperChar(c) : c;
                const char32_t lu = ignoreCase ? ardo::upperChar(lo) : lo;
                const char32_t hu = ignoreCase ? ardo::upperChar(hi) : hi;
                if ((c >= lo && c <= hi) || (cu >= lu && cu <= hu)) found = true;
                p += 3;
            } else {
                if (same(c, lo)) found = true;
                ++p;
            }
        }
        end = p < pat.size() ? p + 1 : p;  // an unclosed class runs to the end
        return found != negate;
    }

    bool match(std::size_t t, std::size_t p) const {
        while (p < pat.size()) {
            const char32_t pc = pat[p];
            if (pc == '*') {
                while (p < pat.size() && pat[p] == '*') ++p;
                if (p == pat.size()) return true;
                for (std::size_t k = t; k <= text.size(); ++k)
                    if (match(k, p)) return true;
                return false;
            }
            if (t >= text.size()) return false;
            const char32_t c = text[t];
            switch (pc) {
            case '?': break;
            case '#': if (!isDigitChar(c)) return false; break;
            case '@': if (!isLetter(c)) return false; break;
            case '.': if (isLetter(c) || isDigitChar(c)) return false; break;
            case '[': {
                std::size_t end = 0;
                if (!matchClass(p + 1, c, end)) return false;
                p = end;
                ++t;
                continue;
            }
            case '`':
                if (p + 1 < pat.size()) ++p;
                if (!same(c, pat[p])) return false;
                break;
            default:
                if (!same(c, pc)) return false;
            }
            ++p;
            ++t;
        }
        return t == text.size();
    }
};

bool matchAlternative(const Chars& text, Chars alt, bool ignoreCase) {
    bool negate = !alt.empty() && alt.front() == '~';
    if (negate) alt.erase(alt.begin());
    Matcher m{text, alt, ignoreCase};
    return m.match(0, 0) != negate;
}

}  // namespace

bool wildcardMatch(std::string_view text, std::string_view pattern, bool ignoreCase) {
    const Chars t = decodeUtf8(text);
    const Chars p = decodeUtf8(pattern);
    Chars alt;
    bool inClass = false;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const char32_t c = p[i];
        if (c == '`' && i + 1 < p.size()) {
            alt.push_back(c);
            alt.push_back(p[++i]);
            continue;
        }
        if (c == '[') inClass = true;
        else if (c == ']') inClass = false;
        if (c == ',' && !inClass) {
            if (matchAlternative(t, alt, ignoreCase)) return true;
            alt.clear();
            continue;
        }
        alt.push_back(c);
    }
    return matchAlternative(t, alt, ignoreCase);
}

}  // namespace cadhost::lisp
