#include "cadhost/dxf/GroupCode.h"

namespace cadhost {

namespace {
bool in(int code, int low, int high) { return code >= low && code <= high; }
}  // namespace

ValueKind valueKind(int code) {
    if (in(code, 10, 59) || in(code, 110, 149) || in(code, 210, 239) || in(code, 460, 469) ||
        in(code, 1010, 1059))
        return ValueKind::Double;
    if (in(code, 60, 79) || in(code, 170, 179) || in(code, 270, 289) || in(code, 370, 389) ||
        in(code, 400, 409) || in(code, 1060, 1070))
        return ValueKind::Int16;
    if (in(code, 90, 99) || in(code, 420, 429) || in(code, 440, 459) || code == 1071)
        return ValueKind::Int32;
    if (in(code, 160, 169)) return ValueKind::Int64;
    if (in(code, 290, 299)) return ValueKind::Bool;
    if (code == 105 || in(code, 320, 369) || in(code, 390, 399) || in(code, 480, 481))
        return ValueKind::Handle;
    if (in(code, 310, 319) || code == 1004) return ValueKind::Binary;
    return ValueKind::String;
}

bool startsPoint(int code) {
    return in(code, 10, 18) || in(code, 110, 112) || in(code, 1010, 1013);
}

bool isAngleGroup(int code) { return in(code, 50, 58); }

}  // namespace cadhost
