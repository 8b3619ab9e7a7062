#pragma once
// LISP functions of the settings files.
namespace ardo::handlers {

// (kemb_iniSchreiben section key value): sets the value in the central layer control file
// and writes the file back; the result is nil. Without a loaded central file nothing is
// written.
int kemb_iniSchreiben();

}  // namespace ardo::handlers
