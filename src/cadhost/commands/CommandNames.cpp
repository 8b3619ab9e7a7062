#include "cadhost/commands/CommandNames.h"

#include "cadhost/commands/BlockCommands.h"
#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/EditingCommands.h"
#include "cadhost/commands/PlotCommand.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

constexpr CommandEntry kCommands[] = {
    {"LAYER", makeLayerCommand},
    {"VPLAYER", makeVplayerCommand},
    {"SELECT", makeSelectCommand},
    {"REGENALL", makeRegenallCommand},
    {"ZOOM", makeZoomCommand},
    {"PAN", makePanCommand},
    {"QSAVE", makeQsaveCommand},
    {"SAVEAS", makeSaveasCommand},
    {"MENULOAD", makeMenuloadCommand},
    {"MENUUNLOAD", makeMenuunloadCommand},
    {"LINE", makeLineCommand},
    {"CIRCLE", makeCircleCommand},
    {"ERASE", makeEraseCommand},
    {"RECTANG", makeRectangCommand},
    {"POINT", makePointCommand},
    {"PLINE", makePlineCommand},
    {"ARC", makeArcCommand},
    {"TEXT", makeTextCommand},
    {"MTEXT", makeMtextCommand},
    {"U", makeUCommand},
    {"UNDO", makeUndoCommand},
    {"REDO", makeRedoCommand},
    {"MOVE", makeMoveCommand},
    {"COPY", makeCopyCommand},
    {"ROTATE", makeRotateCommand},
    {"SCALE", makeScaleCommand},
    {"MIRROR", makeMirrorCommand},
    {"CHPROP", makeChpropCommand},
    {"MATCHPROP", makeMatchpropCommand},
    {"LAYCUR", makeLaycurCommand},
    {"LAYMCUR", makeLaymcurCommand},
    {"MAPEXPORT", makeMapExportCommand},
    {"OFFSET", makeOffsetCommand},
    {"STRETCH", makeStretchCommand},
    {"TRIM", makeTrimCommand},
    {"EXTEND", makeExtendCommand},
    {"PROPERTIES", makePropertiesCommand},
    {"PR", makePropertiesCommand},
    {"DDCHPROP", makePropertiesCommand},
    {"INSERT", makeInsertCommand},
    {"BLOCK", makeBlockCommand},
    {"EXPLODE", makeExplodeCommand},
    {"HATCH", makeHatchCommand},
    {"PLOT", makePlotCommand},
};

// Commands that have a "-" command-line form beside their dialog (MAPEXPORT is known by
// its dash form from GIS hosts; here both forms prompt on the command line).
bool hasDashForm(std::string_view name) {
    return name == "LAYER" || name == "MAPEXPORT" || name == "INSERT" || name == "BLOCK" || name == "HATCH" ||
           name == "PLOT";
}

}  // namespace

std::string commandKey(std::string_view typed) {
    typed = ardo::trimWhite(typed);
    while (!typed.empty() && (typed.front() == '_' || typed.front() == '.')) typed.remove_prefix(1);
    return ardo::upperCase(typed);
}

std::optional<CommandEntry> findCommand(std::string_view typed) {
    std::string key = commandKey(typed);
    const bool dash = !key.empty() && key.front() == '-';
    if (dash) key.erase(0, 1);
    for (const CommandEntry& entry : kCommands)
        if (entry.name == key && (!dash || hasDashForm(entry.name))) return entry;
    return std::nullopt;
}

std::vector<std::string_view> commandNames() {
    std::vector<std::string_view> names;
    for (const CommandEntry& entry : kCommands) names.push_back(entry.name);
    return names;
}

}  // namespace cadhost::commands
