#include "help/Help.h"

#include <filesystem>

#include "base/Printf.h"
#include "messages/MessageFile.h"
#include "module/HostBinding.h"
#include "module/PathInfo.h"
#include "settings/ProfileString.h"

namespace ardo {

namespace {

// The buffer the topic is read into, in characters.
constexpr size_t kTopicBuffer = 510;

HelpViewer& viewer() {
    static HelpViewer v;
    return v;
}

void alertMessage(const char* key, const std::string& argument) {
    host().alert(format(MessageFile::instance().text("LcInit", key), argument));
}

}  // namespace

std::string helpFilePath() { return pathInfo(kHelpFileName); }

std::string topicMapPath() {
    return (std::filesystem::path(helpFilePath()).parent_path() / "ArdoArx.top").string();
}

std::string helpTopic(const std::string& section, const std::string& key) {
    return GetPrivateProfileStringW(section, key, "", kTopicBuffer, topicMapPath()).text;
}

void setHelpViewer(HelpViewer v) { viewer() = std::move(v); }

void showHelp(const std::string& section, const std::string& key) {
    const std::string file = helpFilePath();
    const std::string topic = helpTopic(section, key);
    if (topic.empty()) return alertMessage("HelpKeyXNotFound", key);
    if (!viewer() || !viewer()(file + topic)) alertMessage("HelpFileXNotFound", file);
}

}  // namespace ardo
