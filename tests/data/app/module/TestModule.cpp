// A small module for the host's tests, loaded as the real module is: it finds its host
// through the appId of its entry point, registers two LISP functions, checks their
// arguments and returns results of every kind. It prints each application message it
// gets, so the tests see the order.
#include <string>

#include "module/HostBinding.h"

namespace {

ardo::Host* host = nullptr;

enum Code { kAdd = 0, kResult = 1 };

bool isInteger(const ardo::ResBuf& r) { return r.restype == ardo::RTSHORT || r.restype == ardo::RTLONG; }
bool isNumber(const ardo::ResBuf& r) { return isInteger(r) || r.restype == ardo::RTREAL; }
double number(const ardo::ResBuf& r) { return isInteger(r) ? static_cast<double>(r.integer) : r.real; }

// (tm_add a b): the sum, an integer for two integers; registered with regFunc.
int add() {
    host->retNil();
    const ardo::ResBufChain& args = host->getArgs();
    if (args.size() != 2) {
        host->print("tm_add: two numbers expected\n");
        return ardo::RSRSLT;
    }
    if (!isNumber(args[0]) || !isNumber(args[1])) {
        host->print("tm_add: numbers only\n");
        return ardo::RSRSLT;
    }
    if (isInteger(args[0]) && isInteger(args[1]))
        host->retInt(static_cast<int>(args[0].integer + args[1].integer));
    else
        host->retReal(number(args[0]) + number(args[1]));
    return ardo::RSRSLT;
}

ardo::ResBufChain bracketed(ardo::ResBufChain items) {
    items.insert(items.begin(), ardo::ResBuf::marker(ardo::RTLB));
    items.push_back(ardo::ResBuf::marker(ardo::RTLE));
    return items;
}

// (tm_result "kind" ...): a result of the kind asked for; reached through kInvkSubrMsg.
void result() {
    host->retNil();
    const ardo::ResBufChain& args = host->getArgs();
    if (args.empty() || args[0].restype != ardo::RTSTR) {
        host->print("tm_result: a kind is expected\n");
        return;
    }
    const std::string& kind = args[0].text;
    if (kind == "t") host->retT();
    else if (kind == "void") host->retVoid();
    else if (kind == "str") host->retStr("text");
    else if (kind == "int") host->retInt(42);
    else if (kind == "real") host->retReal(2.5);
    else if (kind == "code") host->retInt(host->getFunCode());
    else if (kind == "args") host->retList(bracketed(args));
    else if (kind == "list")
        host->retList(bracketed({ardo::ResBuf::str("a"), ardo::ResBuf::shortInt(1), ardo::ResBuf::realNum(2.5),
                                 ardo::ResBuf::marker(ardo::RTLB), ardo::ResBuf::str("b"),
                                 ardo::ResBuf::marker(ardo::RTLE)}));
    else if (kind == "ask") {
        const ardo::MbAnswer a = host->messageBox("Continue?", "testmod", ardo::MbButtons::YesNo,
                                                  ardo::MbIcon::Question);
        host->retStr(a == ardo::MbAnswer::Yes ? "Yes" : a == ardo::MbAnswer::No ? "No" : "other");
    } else if (kind == "lock") {
        const bool first = host->lockDocument();
        const bool nested = host->lockDocument();
        host->unlockDocument();
        host->retList(bracketed({ardo::ResBuf::marker(first ? ardo::RTT : ardo::RTNIL),
                                 ardo::ResBuf::marker(nested ? ardo::RTT : ardo::RTNIL)}));
    } else if (kind == "layer") {
        ardo::ResBuf layer;
        if (host->getVar("CLAYER", layer) == ardo::RTNORM) host->retStr(layer.text);
    } else if (kind != "nil") {
        host->print("tm_result: unknown kind " + kind + "\n");
    }
}

}  // namespace

extern "C" int acrxEntryPoint(int message, void* appId) {
    host = static_cast<ardo::Host*>(appId);
    switch (message) {
    case 1:
        host->print("testmod: init\n");
        host->defun("tm_add", kAdd);
        host->regFunc(add, kAdd);
        host->defun("tm_result", kResult);
        break;
    case 2:
        host->print("testmod: unload\n");
        host->undef("tm_add", kAdd);
        host->regFunc(nullptr, kAdd);
        host->undef("tm_result", kResult);
        break;
    case 3:
        host->print("testmod: load drawing\n");
        host->queueExpr("(setq testmod-ready T)\n");
        break;
    case 4: host->print("testmod: unload drawing\n"); break;
    case 5:
        if (host->getFunCode() == kResult) result();
        break;
    case 8: host->print("testmod: quit\n"); break;
    case 13: host->print("testmod: pre-quit\n"); break;
    default: break;
    }
    return 0;
}
