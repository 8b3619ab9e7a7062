#pragma once
// The help buttons and menu items of the dialogs open a help topic by its name.
#include <string>

class QDialog;
class QDialogButtonBox;

namespace ardo {

// Shows the topic of the module's dialogs by its key in the topic map.
void showHelpTopic(const std::string& topic);

// The OK, Cancel and Help buttons a dialog ends with: OK accepts, Cancel rejects, Help
// opens the topic.
QDialogButtonBox* okCancelHelpButtons(QDialog* dialog, const std::string& helpTopic);

}  // namespace ardo
