#include "cadhost/console/ManPage.h"

#include "cadhost/console/ConsoleOptions.h"

namespace cadhost::console {

namespace {

// Text that troff must print as it stands: minus signs and backslashes escaped, and a
// leading full stop or apostrophe kept from being read as a request.
std::string roff(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '-') out += "\\-";
        else if (c == '\\') out += "\\e";
        else out += c;
    }
    if (!out.empty() && (out.front() == '.' || out.front() == '\'')) out.insert(0, "\\&");
    return out;
}

// "-h, --help" in bold, each spelling apart, so the comma stays roman.
std::string boldNames(const std::string& names) {
    std::string out;
    std::size_t start = 0;
    while (start <= names.size()) {
        const auto comma = names.find(", ", start);
        const std::string one = names.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
        out += "\\fB" + roff(one) + "\\fR";
        if (comma == std::string::npos) break;
        out += ", ";
        start = comma + 2;
    }
    return out;
}

const char* const kDescription =
    ".SH DESCRIPTION\n"
    ".B ardo\\-cad\n"
    "is a small CAD host for DXF drawings with an AutoLISP prompt and a command line. At start it\n"
    "loads the module\n"
    ".I ardo.arx\n"
    "from its own folder, the central layer control of the CAD suite, whose LISP functions\n"
    "(kemb_newlayer, kemb_setlayer, Kemb_MakeLayer and others) create and change layers by layer key.\n"
    ".PP\n"
    "It opens the drawings given in order, the last one current (or a new one), runs the\n"
    "expressions and scripts of the\n"
    "\\fB\\-e\\fR and \\fB\\-s\\fR options in the order given, then reads further lines from the\n"
    "terminal (with line editing and history) or, when standard input is no terminal, from\n"
    "standard input. A LISP expression is evaluated and its value printed; a word naming a\n"
    "command runs it, and the following words and lines answer its prompts. At the end of\n"
    "input, or after QUIT or EXIT, the current drawing is saved to the file of \\fB\\-o\\fR when\n"
    "one is given; when an expression or script of the start-up failed, nothing is saved.\n"
    ".PP\n"
    "Each drawing has its own LISP variables and functions. At the prompt DRAWINGS lists the\n"
    "open drawings, SWITCH followed by a number or name makes one current, OPEN opens one more\n"
    "and CLOSE closes the current one; in LISP (drawings), (switchdrawing x),\n"
    "(opendrawing \"file.dxf\") and (closedrawing [x]) do the same.\n"
    ".PP\n"
    "Message boxes ask at the terminal; in script mode they take the answers of\n"
    "\\fB\\-\\-answer\\fR in order, and their default button when none is left.\n";

const char* const kTrailer =
    ".SH EXIT STATUS\n"
    "0 on success, 1 when a drawing, a script or the module named with \\fB\\-\\-module\\fR cannot be\n"
    "read, a start-up expression or script fails, or the drawing cannot be saved, 2 for a wrong\n"
    "command line.\n"
    ".SH ENVIRONMENT\n"
    ".TP\n"
    ".B HOME\n"
    "The installed package keeps each user's settings and central layer control file below\n"
    ".IR ~/.config/ardo/ .\n"
    ".TP\n"
    ".B TMPDIR\n"
    "The folder of the module's command stub file; /tmp when unset.\n"
    ".SH FILES\n"
    ".TP\n"
    ".I /usr/lib/ardo/program/\n"
    "The program folder: ardo.arx, its configuration, definition, message and dialog text files,\n"
    "Ardo_Sys.cfg, the default settings in DefaultIni/ and the object\\-type files in Objektarten/.\n"
    ".TP\n"
    ".I ~/.config/ardo/\\fIuser\\fP/\n"
    "The user's own settings files, copied from the defaults on first use.\n"
    ".SH SEE ALSO\n"
    "The documentation in\n"
    ".IR /usr/share/doc/ardo/ :\n"
    "ardo\\-cad.md, central\\-layer\\-file.md, installation.md and lisp\\-reference.md.\n";

}  // namespace

std::string manPage(const std::string& version) {
    std::string page = ".TH ARDO\\-CAD 1 \"\" \"ardo " + roff(version) + "\" \"User Commands\"\n";
    page += ".SH NAME\nardo\\-cad \\- CAD host for DXF drawings with the ardo central layer control\n";
    page += ".SH SYNOPSIS\n.B ardo\\-cad\n" + roff(kOperands) + "\n";
    for (const OptionRow& row : optionTable()) {
        page += "[" + boldNames(synopsisName(row));
        if (*row.value) page += std::string(" \\fI") + roff(row.value) + "\\fR";
        page += row.repeatable ? "]...\n" : "]\n";
    }
    page += kDescription;
    page += ".SH OPTIONS\n";
    for (const OptionRow& row : optionTable()) {
        page += ".TP\n" + boldNames(row.names);
        if (*row.value) page += std::string(" \\fI") + roff(row.value) + "\\fR";
        page += "\n" + roff(row.text) + (row.repeatable ? " (repeatable)" : "") + ".\n";
    }
    page += kTrailer;
    return page;
}

}  // namespace cadhost::console
