#include "dialog/DialogHelp.h"

#include "base/Printf.h"
#include "messages/MessageCatalog.h"
#include "messages/MessageFile.h"
#include "module/HostBinding.h"

namespace ardo {

void showHelpTopic(const std::string& topic) {
    const std::string text = format(MessageFile::instance().text("LCINIT", "HelpKeyXNotFound"), topic);
    host().messageBox(text, catalogText(MsgKey::TiMsgBoxInfo), MbButtons::Ok, MbIcon::Information);
}

}  // namespace ardo
