#include "messages/MessageFunctions.h"

#include "module/HostBinding.h"
#include "base/Printf.h"
#include "module/lisp/CallFrame.h"
#include "messages/MessageFile.h"

namespace ardo::handlers {

namespace {

constexpr ArgDecl kString{ArgKind::String};

void alertFromLcinit(const char* key, const std::string& first, const std::string& second = {}) {
    const std::string templ = MessageFile::instance().text("LCINIT", key);
    host().alert(format(templ, first, second));
}

}  // namespace

int kemb_text() {
    CallFrame frame;
    if (!frame.check({kString, kString, kString})) return RSRSLT;
    const std::string& section = frame.text(1);
    const std::string& key = frame.text(2);
    std::string text;
    MessageFile::instance().lookup(section, key, text);
    if (text.empty()) {
        alertFromLcinit("MsgNotFound", key, section);
        return RSRSLT;
    }
    host().retStr(expandLineFeeds(text));
    return RSRSLT;
}

int kemb_textliste() {
    CallFrame frame;
    if (!frame.check({kString, kString})) return RSRSLT;
    MessageFile& file = MessageFile::instance();
    auto header = file.loaded() ? file.findSection(frame.text(1)) : SettingsStore::Position{};
    if (!file.loaded() || header == file.store()->end()) {
        alertFromLcinit("MsgListNotFound", frame.text(0));
        return RSRSLT;
    }
    // The whole result is one list, so a single entry still reads as a list of lists.
    ResBufChain list{ResBuf::marker(RTLB)};
    // The section ends at the next header or at the first entry without a key.
    const auto end = file.store()->sectionEnd(header);
    for (auto entry = std::next(header); entry != end && !entry->key.empty(); ++entry) {
        list.push_back(ResBuf::marker(RTLB));
        list.push_back(ResBuf::str(entry->key));
        list.push_back(ResBuf::str(expandLineFeeds(entry->value)));
        list.push_back(ResBuf::marker(RTLE));
    }
    if (list.size() == 1) return RSRSLT;
    list.push_back(ResBuf::marker(RTLE));
    host().retList(list);
    return RSRSLT;
}

}  // namespace ardo::handlers
