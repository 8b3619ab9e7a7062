#include "highlight/HighlightCommand.h"

#include "base/Printf.h"
#include "boundary/Host.h"
#include "help/Help.h"
#include "highlight/BlinkControl.h"
#include "highlight/HighlightFrames.h"
#include "highlight/HighlightOptionsRun.h"
#include "highlight/HighlightPrompt.h"
#include "highlight/cOptHighlight.h"
#include "messages/MessageCatalog.h"
#include "module/DialogHandlers.h"
#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "module/paths/ModuleSubfolder.h"
#include "module/paths/UserPaths.h"
#include "settings/LayerDialogSettings.h"

namespace ardo {

namespace {

constexpr int kNoEmptyInput = 1, kAnyText = 128;

std::int64_t newSet() {
    std::int64_t set = 0;
    host().ssAdd(0, 0, set);
    return set;
}

long lengthOf(std::int64_t set) {
    long length = 0;
    host().ssLength(set, length);
    return length;
}

// Visits the members of a set in order.
template <typename Visit>
void forEachMember(std::int64_t set, Visit visit) {
    const long length = lengthOf(set);
    for (long i = 0; i < length; ++i) {
        std::int64_t entity = 0;
        if (host().ssName(set, i, entity) == RTNORM) visit(entity);
    }
}

// The entities and their frames become the previous selection set for the next command.
void handOverSelection(std::int64_t entities, std::int64_t frames) {
    const std::int64_t output = newSet();
    std::int64_t same = output;
    forEachMember(entities, [&](std::int64_t e) { host().ssAdd(e, output, same); });
    forEachMember(frames, [&](std::int64_t e) { host().ssAdd(e, output, same); });
    if (lengthOf(output) > 0) {
        const std::string report =
            format("%s\n   %ld %s\n%s\n   %ld %s\n%s\n\n%s\n%s\n%s\n", catalogText(MsgKey::TxMakeSelectionSet1),
                   lengthOf(entities), catalogText(MsgKey::TxMakeSelectionSet2),
                   catalogText(MsgKey::TxMakeSelectionSet3), lengthOf(frames),
                   catalogText(MsgKey::TxMakeSelectionSet4), catalogText(MsgKey::TxMakeSelectionSet5),
                   catalogText(MsgKey::TxMakeSelectionSet6), catalogText(MsgKey::TxMakeSelectionSet7),
                   catalogText(MsgKey::TxMakeSelectionSet8));
        host().print(format("%s\n", report));
        host().messageBox(report, catalogText(MsgKey::TiMsgBoxInfo), MbButtons::Ok, MbIcon::Information);
    }
    host().command({ResBuf::str("_select"), ResBuf::selectionSet(output), ResBuf::str("")});
    host().ssFree(output);
}

// True when the user confirmed and everything shown, frames too, was erased.
bool deleteAfterQuestion(std::int64_t entities, std::int64_t frames) {
    if (host().messageBox(catalogText(MsgKey::QuHlDelete), catalogText(MsgKey::TiMsgBoxQuestion), MbButtons::YesNo,
                          MbIcon::Question) != MbAnswer::Yes)
        return false;
    forEachMember(entities, [](std::int64_t e) { host().entDel(e); });
    forEachMember(frames, [](std::int64_t e) { host().entDel(e); });
    host().updateDisplay();
    host().ssFree(entities);
    return true;
}

// Runs the prompt until an answer ends it; the options may change on the way.
void promptLoop(cOptHighlight& options, std::int64_t entities, std::int64_t frames) {
    const std::vector<std::string> keywords = highlightKeywords(catalogText(MsgKey::SyHighlightCtrl));
    BlinkControl control;
    for (;;) {
        control.configure(options, entities);
        control.start();
        host().initGet(kNoEmptyInput | kAnyText, highlightKeywordList(keywords));
        std::string answer;
        const int status = host().getKword(highlightPrompt(keywords), answer);
        control.stop();
        switch (highlightCode(status == RTNORM, answer, keywords)) {
            case HighlightCode::Options: runHighlightOptionsLoop(options); break;
            case HighlightCode::PermanentFrame: drawPermanentFrames(entities, options, frames); break;
            case HighlightCode::SelectionSet: handOverSelection(entities, frames); return;
            case HighlightCode::Delete:
                if (deleteAfterQuestion(entities, frames)) return;
                break;
            case HighlightCode::Help: showHelp(kHelpSection, "Highlight"); break;
            case HighlightCode::Return: return;
        }
    }
}

// The options file: the caller's own file in its module's settings folder, or the module's.
bool optionsFile(const CallFrame& frame, std::string& path) {
    if (!frame.has(2)) {
        path = moduleSettings().highlight.filePath();
        return true;
    }
    return provideUserFile(path, frame.text(2), moduleSubfolder(frame.text(0)), "", false) == RTNORM;
}

}  // namespace

int kemb_Highlight() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::SelectionSet}, {ArgKind::String, Presence::Optional}}))
        return RSRSLT;
    // A settings file needs its section.
    if (frame.has(2) && !frame.check({{ArgKind::String}, {ArgKind::SelectionSet}, {ArgKind::String}, {ArgKind::String}}))
        return RSRSLT;
    host().retVoid();
    std::string path;
    if (!optionsFile(frame, path)) return RSRSLT;
    cOptHighlight options;
    options.load(path, frame.has(3) ? frame.text(3) : kHighlightSection);
    const std::int64_t frames = newSet();
    promptLoop(options, frame.node(1).integer, frames);
    host().ssFree(frames);
    options.save();
    return RSRSLT;
}

int C_kemb_HighlightOptions() {
    host().retVoid();
    cOptHighlight options;
    options.load(moduleSettings().highlight.filePath(), kHighlightSection);
    runHighlightOptionsLoop(options);
    options.save();
    return RSRSLT;
}

void installHighlightHandlers() {
    DialogHandlers& handlers = dialogHandlers();
    handlers.highlight = kemb_Highlight;
    handlers.highlightOptions = C_kemb_HighlightOptions;
}

}  // namespace ardo
