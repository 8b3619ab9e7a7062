#pragma once
// Help by section and key: the topic map beside the help file names the topic, and the
// help window shows it. Dialogs and prompts never know the topic files.
#include <functional>
#include <string>

namespace ardo {

inline constexpr const char* kHelpFileName = "ArdoArx.chm";
// The topic map's section for the module's own dialogs and prompts.
inline constexpr const char* kHelpSection = "ArdoArx";

// The help file: the configuration's PFADINFO entry for it, below the program folder.
std::string helpFilePath();
// "ArdoArx.top" in the help file's folder.
std::string topicMapPath();
// The topic the map names for the key ("::/page.htm"); empty when it names none.
std::string helpTopic(const std::string& section, const std::string& key);

// Shows a help address ("file.chm::/page.htm"); false when it cannot be shown. The module's
// windows install one; without a window nothing can be shown.
using HelpViewer = std::function<bool(const std::string& address)>;
void setHelpViewer(HelpViewer viewer);

// Shows the topic of the key, or tells the user in an alert box why it cannot.
void showHelp(const std::string& section, const std::string& key);

}  // namespace ardo
