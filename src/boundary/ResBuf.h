#pragma once
// The host's argument and result chain: nodes with the host's type codes, in order.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace ardo {

// Result-buffer type codes as the host numbers them.
enum ResType : short {
    RTNONE = 5000,
    RTREAL = 5001,
    RTPOINT = 5002,
    RTSHORT = 5003,
    RTANG = 5004,
    RTSTR = 5005,
    RTENAME = 5006,
    RTPICKS = 5007,
    RTORINT = 5008,
    RT3DPOINT = 5009,
    RTLONG = 5010,
    RTVOID = 5014,
    RTLB = 5016,
    RTLE = 5017,
    RTDOTE = 5018,
    RTNIL = 5019,
    RTDXF0 = 5020,
    RTT = 5021,
};

// Return codes of the host's functions and of the module's work functions (ardo::Status is
// the host's own result type, base/Result.h).
enum ReturnCode : int {
    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RSRSLT = 1,
    RSERR = 3,
};

using Point3 = std::array<double, 3>;

// One node. Which value field is meaningful follows from the type code; a DXF group
// code in a type field (entity lists) carries its value the same way.
struct ResBuf {
    short restype = RTNONE;
    std::string text;        // RTSTR
    std::int64_t integer = 0; // RTSHORT, RTLONG, RTENAME and RTPICKS (the name's id)
    double real = 0.0;        // RTREAL, RTANG
    Point3 point{};           // RTPOINT, RT3DPOINT

    static ResBuf str(std::string s) { ResBuf r; r.restype = RTSTR; r.text = std::move(s); return r; }
    static ResBuf shortInt(int v) { ResBuf r; r.restype = RTSHORT; r.integer = v; return r; }
    static ResBuf longInt(std::int64_t v) { ResBuf r; r.restype = RTLONG; r.integer = v; return r; }
    static ResBuf realNum(double v) { ResBuf r; r.restype = RTREAL; r.real = v; return r; }
    static ResBuf point3(Point3 p) { ResBuf r; r.restype = RT3DPOINT; r.point = p; return r; }
    static ResBuf marker(short type) { ResBuf r; r.restype = type; return r; }
    static ResBuf entityName(std::int64_t id) { ResBuf r; r.restype = RTENAME; r.integer = id; return r; }
    static ResBuf selectionSet(std::int64_t id) { ResBuf r; r.restype = RTPICKS; r.integer = id; return r; }
    // A dotted pair (code . value) as the host writes it in entity and colour lists.
    bool operator==(const ResBuf&) const = default;
};

// The chain in node order; the host's linked list is kept as a sequence.
using ResBufChain = std::vector<ResBuf>;

}  // namespace ardo
