#pragma once
// LISP functions that give the suite's LISP code the texts of the message file.

namespace ardo::handlers {

// (kemb_text command section key): the key's text with backslash-n as line feeds, or nil
// after an alert with the "MsgNotFound" text when the section or the key is missing.
int kemb_text();

// (kemb_textliste command section): the section's entries in file order as a list of
// (key text) lists, or nil; a missing section alerts "MsgListNotFound" naming the command.
int kemb_textliste();

}  // namespace ardo::handlers
