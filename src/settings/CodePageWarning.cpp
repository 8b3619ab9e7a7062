#include "settings/CodePageWarning.h"

#include <string_view>

#include "base/CodePage.h"
#include "base/Printf.h"
#include "module/HostBinding.h"

namespace ardo {

void warnCharactersNotInCodePage(const std::string& path, const std::string& text) {
    if (charactersNotInFileCodePage(text).empty()) return;
    std::string_view rest = text;
    while (!rest.empty()) {
        const size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        const std::string lost = charactersNotInFileCodePage(line);
        if (lost.empty()) continue;
        const std::string_view key = line.substr(0, line.find('='));
        host().print(format("\nWarnung: '%s' in %s: die Zeichen '%s' gibt es in der Codepage %s nicht, "
                            "sie werden als '?' gespeichert. Codepage=UTF-8 im Abschnitt [DATEIEN] von "
                            "ardo.cfg bewahrt sie.",
                            std::string(key), path, lost, fileCodePage()));
    }
}

}  // namespace ardo
