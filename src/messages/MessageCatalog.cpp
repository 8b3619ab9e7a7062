#include "messages/MessageCatalog.h"

#include "module/HostBinding.h"
#include "base/Printf.h"
#include "messages/CatalogDefaults.h"
#include "settings/ProfileString.h"

namespace ardo {

namespace {

// Each text is read into a buffer of this many characters.
constexpr size_t kTextBuffer = 8192;

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (size_t pos = text.find(from); pos != std::string::npos; pos = text.find(from, pos + to.size()))
        text.replace(pos, from.size(), to);
}

// The dialog file's escapes as the dialogs show them: backslash-n becomes line feed and
// carriage return (in that order, as the texts have always been stored), backslash-t a tab,
// and "~" is dropped.
std::string dialogText(std::string text) {
    replaceAll(text, "\\n", "\n\r");
    replaceAll(text, "\\t", "\t");
    replaceAll(text, "~", "");
    return text;
}

void showLoadProblem(const std::string& problem, const std::string& caption) {
    host().messageBox(problem, caption, MbButtons::Ok, MbIcon::Exclamation);
}

}  // namespace

MessageCatalog& MessageCatalog::instance() {
    static MessageCatalog catalog;
    return catalog;
}

MessageCatalog::MessageCatalog() {
    for (int i = 0; i < kMessageKeyCount; ++i) texts_[size_t(i)] = kCatalogRows[i].defaultText;
}

bool MessageCatalog::load(const std::string& path) {
    filePath_ = path;
    missingCount_ = 0;
    // Every key is read as the profile-string function reads it, from one reading of the file.
    const ProfileFile file = ProfileFile::read(path);
    for (int i = 0; i < kMessageKeyCount; ++i) {
        const char* key = kCatalogRows[i].key;
        std::string value = readProfileString("Ardo", std::string(key), "", kTextBuffer, file).text;
        if (!value.empty()) {
            texts_[size_t(i)] = dialogText(std::move(value));
            continue;
        }
        if (missingCount_ == 0) showLoadProblem(format("message text not found: key '%s'", key), text(MsgKey::TiMsgBoxWarn));
        ++missingCount_;
    }
    if (missingCount_ < 2) return true;
    showLoadProblem(format("%d message texts not found\n", missingCount_), text(MsgKey::TiMsgBoxWarn));
    return false;
}

const char* MessageCatalog::keyName(MsgKey key) { return kCatalogRows[static_cast<int>(key)].key; }

const char* MessageCatalog::defaultText(MsgKey key) { return kCatalogRows[static_cast<int>(key)].defaultText; }

}  // namespace ardo
