#pragma once
// The help buttons and menu items of the dialogs open a help topic by its name.
#include <string>

namespace ardo {

// Help topics are not shipped yet, so every topic is told as not found, in the message
// file's words.
void showHelpTopic(const std::string& topic);

}  // namespace ardo
