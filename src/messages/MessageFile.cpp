#include "messages/MessageFile.h"

#include "module/HostBinding.h"
#include "base/Printf.h"
#include "boundary/ResBuf.h"

namespace ardo {

MessageFile& MessageFile::instance() {
    static MessageFile file;
    return file;
}

void MessageFile::attach(std::unique_ptr<SettingsStore> store) {
    store_ = std::move(store);
    hasCurrent_ = false;
    if (store_) {
        current_ = store_->findSection("LCINIT");
        hasCurrent_ = current_ != store_->end();
    }
}

void MessageFile::release() {
    store_.reset();
    hasCurrent_ = false;
}

SettingsStore::Position MessageFile::findSection(const std::string& section) {
    if (!store_) return {};
    auto from = (hasCurrent_ && current_->section == section) ? current_ : store_->records().begin();
    current_ = store_->findSection(section, from);
    hasCurrent_ = current_ != store_->end();
    return current_;
}

std::string expandLineFeeds(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'n') {
            out += '\n';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

bool MessageFile::lookup(const std::string& section, const std::string& key, std::string& value) {
    value.clear();
    if (!store_) return false;
    auto header = findSection(section);
    if (header == store_->end()) return false;
    auto record = store_->findKey(header, key);
    if (record != store_->end()) value = record->value;
    return true;
}

int MessageFile::text(const std::string& section, const std::string& key, std::string& result) {
    if (!lookup(section, key, result)) return RTERROR;
    if (!result.empty()) {
        result = expandLineFeeds(result);
        return RTNORM;
    }
    if (key != "MsgNotFound") {
        std::string notFound;
        text("LCINIT", "MsgNotFound", notFound);
        host().print(format(notFound, key, section));
    } else {
        host().print("\nno messages found");
    }
    return RTERROR;
}

std::string MessageFile::text(const std::string& section, const std::string& key) {
    std::string result;
    text(section, key, result);
    return result;
}

}  // namespace ardo
