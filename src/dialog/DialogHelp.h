#pragma once
// The help buttons and menu items of the dialogs open a help topic by its name.
#include <string>

class QDialog;
class QDialogButtonBox;

namespace ardo {

// Help topics are not shipped yet, so every topic is told as not found, in the message
// file's words.
void showHelpTopic(const std::string& topic);

// The OK, Cancel and Help buttons a dialog ends with: OK accepts, Cancel rejects, Help
// opens the topic.
QDialogButtonBox* okCancelHelpButtons(QDialog* dialog, const std::string& helpTopic);

}  // namespace ardo
