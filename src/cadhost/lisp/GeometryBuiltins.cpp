// Points, distances and angles: polar, distance, angle, inters and trans (the user
// coordinate system is the world's, so trans only checks and converts), and numbers and
// angles as text: angtos.
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Interpreter.h"
#include "cadhost/lisp/LispError.h"

namespace cadhost::lisp {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

struct Point {
    double x = 0, y = 0, z = 0;
    bool is3d = false;
};

// A list of two or three numbers.
Point pointArg(const Value& v) {
    std::vector<double> c;
    for (const Value* p = &v; p->isList() && c.size() <= 3; p = &p->cdr()) {
        if (!p->car().isNumber()) badArgType("2D/3D point", v);
        c.push_back(p->car().asNumber());
    }
    if (c.size() < 2 || c.size() > 3) badArgType("2D/3D point", v);
    return {c[0], c[1], c.size() == 3 ? c[2] : 0.0, c.size() == 3};
}

Value pointValue(const Point& p) {
    std::vector<Value> items{Value::real(p.x), Value::real(p.y)};
    if (p.is3d) items.push_back(Value::real(p.z));
    return makeList(items);
}

double normalized(double radians) {
    const double a = std::fmod(radians, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}

Value distanceFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    const Point a = pointArg(args[0]), b = pointArg(args[1]);
    // A 2D point on either side makes it the distance in the xy plane.
    const double dz = a.is3d && b.is3d ? b.z - a.z : 0.0;
    return Value::real(std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y) + dz * dz));
}

Value angleFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    const Point a = pointArg(args[0]), b = pointArg(args[1]);
    return Value::real(normalized(std::atan2(b.y - a.y, b.x - a.x)));
}

Value polarFn(Interpreter&, const Args& args) {
    checkCount(args, 3, 3);
    Point p = pointArg(args[0]);
    const double angle = numberArg(args[1]), distance = numberArg(args[2]);
    p.x += distance * std::cos(angle);
    p.y += distance * std::sin(angle);
    return pointValue(p);
}

// (inters p1 p2 p3 p4 [onseg]): where the lines meet; with onseg nil the lines go on past
// their points. Nil for parallel lines or a meeting point off a segment.
Value intersFn(Interpreter&, const Args& args) {
    checkCount(args, 4, 5);
    const Point a = pointArg(args[0]), b = pointArg(args[1]), c = pointArg(args[2]), d = pointArg(args[3]);
    const bool onSegments = args.size() < 5 || !args[4].isNil();
    const double rx = b.x - a.x, ry = b.y - a.y, sx = d.x - c.x, sy = d.y - c.y;
    const double denominator = rx * sy - ry * sx;
    const double scale = std::max({std::abs(rx), std::abs(ry), std::abs(sx), std::abs(sy), 1e-300});
    if (std::abs(denominator) <= 1e-12 * scale * scale) return Value();
    const double t = ((c.x - a.x) * sy - (c.y - a.y) * sx) / denominator;
    const double u = ((c.x - a.x) * ry - (c.y - a.y) * rx) / denominator;
    constexpr double kSlack = 1e-10;
    if (onSegments && (t < -kSlack || t > 1 + kSlack || u < -kSlack || u > 1 + kSlack)) return Value();
    const bool is3d = a.is3d && b.is3d && c.is3d && d.is3d;
    return pointValue({a.x + t * rx, a.y + t * ry, is3d ? a.z + t * (b.z - a.z) : 0.0, is3d});
}

// (trans pt from to [disp]): the world, user and display systems coincide here; an
// entity name stands for its object system, which for the host's flat entities is the
// world's too.
Value transFn(Interpreter&, const Args& args) {
    checkCount(args, 3, 4);
    for (std::size_t i = 1; i <= 2; ++i) {
        if (args[i].kind() == Kind::Ename) continue;
        if (args[i].kind() == Kind::Int && args[i].asInt() >= 0 && args[i].asInt() <= 3) continue;
        if (args[i].isList()) {
            pointArg(args[i]);   // an extrusion direction
            continue;
        }
        throw LispError("bad argument value: AutoCAD coordinate system " + std::to_string(args[i].kind() == Kind::Int ? args[i].asInt() : -1));
    }
    Point p = pointArg(args[0]);
    p.is3d = true;
    return pointValue(p);
}

int sysvarInt(Interpreter& in, const char* name, int fallback) {
    ardo::ResBuf value;
    if (!in.host().getVar(name, value)) return fallback;
    return value.restype == ardo::RTSHORT || value.restype == ardo::RTLONG ? static_cast<int>(value.integer) : fallback;
}

std::string fixed(double value, int precision) {
    char text[512];
    std::snprintf(text, sizeof text, "%.*f", precision, value);
    return text;
}

// (angtos angle [mode [precision]]): 0 degrees, 1 degrees/minutes/seconds, 2 grads,
// 3 radians, 4 surveyor's units; AUNITS and AUPREC when left out.
Value angtosFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 3);
    const double angle = normalized(numberArg(args[0]));
    const int mode = args.size() > 1 ? intArg(args[1]) : sysvarInt(in, "AUNITS", 0);
    const int precision = args.size() > 2 ? intArg(args[2]) : sysvarInt(in, "AUPREC", 0);
    if (mode < 0 || mode > 4) throw LispError("bad argument value: " + std::to_string(mode));
    if (precision < 0 || precision > 8) throw LispError("bad argument value: " + std::to_string(precision));
    const double degrees = angle * 180 / std::numbers::pi;
    // Degrees, minutes and seconds to the precision: 0 degrees only, 1-2 with minutes,
    // 3-4 with seconds, more with decimals of seconds.
    auto dms = [&](double deg) {
        if (precision == 0) return fixed(deg, 0) + "d";
        if (precision <= 2) {
            long long minutes = std::llround(deg * 60);
            return std::to_string(minutes / 60) + "d" + std::to_string(minutes % 60) + "'";
        }
        const int decimals = precision <= 4 ? 0 : precision - 4;
        const double scale = std::pow(10.0, decimals);
        const long long units = std::llround(deg * 3600 * scale);
        const long long whole = units / static_cast<long long>(scale);
        const std::string seconds = fixed(static_cast<double>(units - (whole / 60) * 60 * static_cast<long long>(scale)) / scale, decimals);
        return std::to_string(whole / 3600) + "d" + std::to_string(whole / 60 % 60) + "'" + seconds + "\"";
    };
    switch (mode) {
        case 0: return Value::string(fixed(degrees, precision));
        case 1: return Value::string(dms(degrees));
        case 2: return Value::string(fixed(degrees * 400 / 360, precision) + "g");
        case 3: return Value::string(fixed(angle, precision) + "r");
        default: {
            // A bearing: from north or south, towards east or west.
            if (std::abs(degrees - 90) < 1e-12) return Value::string("E");
            if (std::abs(degrees - 270) < 1e-12) return Value::string("W");
            if (degrees < 1e-12 || std::abs(degrees - 360) < 1e-12) return Value::string("N");
            if (std::abs(degrees - 180) < 1e-12) return Value::string("S");
            const bool north = degrees < 180;
            const double fromAxis = north ? std::abs(90 - degrees) : std::abs(270 - degrees);
            const bool east = degrees < 90 || degrees > 270;
            return Value::string(std::string(north ? "N " : "S ") + dms(fromAxis) + (east ? " E" : " W"));
        }
    }
}

const Builtin table[] = {
    {"DISTANCE", distanceFn, nullptr}, {"ANGLE", angleFn, nullptr}, {"POLAR", polarFn, nullptr},
    {"INTERS", intersFn, nullptr},     {"TRANS", transFn, nullptr}, {"ANGTOS", angtosFn, nullptr},
};

}  // namespace

std::span<const Builtin> geometryBuiltins() { return table; }

}  // namespace cadhost::lisp
