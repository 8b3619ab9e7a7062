#pragma once
// The module's own LISP functions: the loaded and first-call queries, folders of the suite's
// modules and files, ObjectARX applications, programs, menus and product information.
//
// On this host:
// - (kemb_modulverz module [x]) the program folder followed directly by the module's entry
//   in section MODULE of the configuration file (an empty entry gives the program folder).
// - (kemb_pathInfo name) the program folder, a separator and the name's PFADINFO entry.
// - (kemb_dateiverz file) the folder of the file, as found by kemb_findfile, with a trailing
//   separator; nil when the file is not found and the name has no folder.
// - (kemb_findfile name) the full path of a file found as given, in the program folder, in
//   the user's settings folder, or along the host's support folders; else nil.
// - (kemb_delfile file) T when the file was deleted, else nil.
// - (kemb_xloaded app) 0 when the ObjectARX application is loaded, 1 when its file is found
//   and it is not loaded yet, -1 when there is no such file. Always a number, so the command
//   stubs' numeric comparison holds for a missing program too; they define a loading
//   command only for an application that answers 1.
// - (kemb_xload app) loads the application (".arx" added when the name has none), looked
//   up as kemb_findfile does; T when it is loaded, nil otherwise.
// - (kemb_xloadProg program) loads the application named like the program from the
//   program's folder of section MODULE.
// - (kemb_ExecuteProgram program [arguments]) starts the program without waiting; the
//   arguments are one string split at blanks, quotes keeping words together. T when started.
// - (Kemb_LaunchFile file) opens the file with its associated program (xdg-open). T when
//   started.
// - (kemb_menucmdgrey group item flag) and (kemb_greyMenu group item [flag]) grey (flag
//   non-zero, the default) or enable a menu entry; T when the host has the entry.
// - c:kemb_lmnu / c:kemb_xmnu load and unload the module's menu group "ARDO" from the file
//   named by PFADINFO "Menu" (else "ardo.mnu" in the program folder) with FILEDIA and CMDECHO
//   off.
// - Kemb_getProductName, Kemb_getCompanyName: section PRODUCTINFO keys ProductName and
//   CompanyName; (Kemb_getProductText key) any PRODUCTINFO key; Kemb_getProductIcon the
//   path of the ProductIcon file in the program folder. nil when the text is not configured.
// - C:Kemb_VersionInfo opens the version window, Kemb_showAboutDialogue the about window;
//   without a display both print the product information on the command line.

namespace ardo::handlers {

int kemb_queryInit();
int ardo_loaded();
int kemb_modulverz();
int kemb_pathInfo();
int kemb_dateiverz();
int kemb_findfile();
int kemb_delfile();
int kemb_xloaded();
int kemb_xload();
int kemb_xloadProg();
int kemb_ExecuteProgram();
int Kemb_LaunchFile();
int kemb_menucmdgrey();
int kemb_greyMenu();
int c_kemb_lmnu();
int c_kemb_xmnu();
int Kemb_getProductText();
int Kemb_getProductName();
int Kemb_getCompanyName();
int Kemb_getProductIcon();
int C_Kemb_VersionInfo();
int Kemb_showAboutDialogue();

}  // namespace ardo::handlers
