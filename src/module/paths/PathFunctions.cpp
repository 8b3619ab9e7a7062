#include "module/paths/PathFunctions.h"

#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "module/paths/ModuleSubfolder.h"
#include "module/paths/Platform.h"
#include "module/paths/UserPaths.h"

namespace ardo::handlers {

namespace {

constexpr ArgDecl kString{ArgKind::String};
constexpr ArgDecl kOptionalString{ArgKind::String, Presence::Optional};

// The optional string argument i, or empty when the call does not give it.
std::string optionalText(const CallFrame& frame, size_t i) { return frame.has(i) ? frame.text(i) : std::string(); }

bool anyEmpty(const CallFrame& frame, std::initializer_list<size_t> arguments) {
    for (size_t i : arguments)
        if (frame.text(i).empty()) return true;
    return false;
}

int returnFile(const std::string& fileName, const std::string& subfolder, const std::string& userName) {
    std::string file;
    if (provideUserFile(file, fileName, subfolder, userName, false) == RTNORM) host().retStr(file);
    return RSRSLT;
}

// The handlers without arguments refuse any.
bool noArguments() {
    CallFrame frame;
    return frame.check({}, ExtraArgs::Reject);
}

}  // namespace

int kemb_GetUserIniPath() {
    CallFrame frame;
    if (!frame.check({kString, kOptionalString}, ExtraArgs::Reject)) return RSRSLT;
    if (anyEmpty(frame, {0})) {
        frame.reportBadValue();
        return RSRSLT;
    }
    std::string path;
    if (getUserPath(path, moduleSubfolder(frame.text(0)), optionalText(frame, 1), false) == RTNORM)
        host().retStr(path);
    return RSRSLT;
}

int kemb_GetUserIniFile() {
    CallFrame frame;
    if (!frame.check({kString, kOptionalString, kOptionalString})) return RSRSLT;
    if (anyEmpty(frame, {0})) {
        frame.reportBadValue();
        return RSRSLT;
    }
    return returnFile(frame.text(0), optionalText(frame, 1), optionalText(frame, 2));
}

int kemb_GetUserIniFileByModule() {
    CallFrame frame;
    if (!frame.check({kString, kString, kOptionalString})) return RSRSLT;
    if (anyEmpty(frame, {0, 1})) {
        frame.reportBadValue();
        return RSRSLT;
    }
    return returnFile(frame.text(1), moduleSubfolder(frame.text(0)), optionalText(frame, 2));
}

int kemb_GetUserNames() {
    if (!noArguments()) return RSRSLT;
    std::string login;
    getUserName(login);
    host().retList({ResBuf::marker(RTLB), ResBuf::str(login), ResBuf::str(platform::fullUserName()),
                    ResBuf::marker(RTLE)});
    return RSRSLT;
}

int kemb_GetCurrentUserName() {
    if (!noArguments()) return RSRSLT;
    std::string login;
    getUserName(login);
    host().retStr(login);
    return RSRSLT;
}

int kemb_GetComputerName() {
    if (!noArguments()) return RSRSLT;
    std::string name;
    if (getComputerName(name) == RTNORM) host().retStr(name);
    return RSRSLT;
}

int kemb_GetUserTempPath() {
    CallFrame frame;  // takes no argument and ignores any
    host().retStr(platform::tempFolder());
    return RSRSLT;
}

}  // namespace ardo::handlers
