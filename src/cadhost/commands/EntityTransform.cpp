#include "cadhost/commands/EntityTransform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

double number(const std::string& text) { return parseReal(text).value_or(0.0); }

// The value of the first tag with `code` after position `from`, as an index.
std::optional<std::size_t> find(const std::vector<EntityTag>& tags, int code, std::size_t from = 0) {
    for (std::size_t i = from; i < tags.size(); ++i) {
        if (tags[i].code == 1001) break;
        if (tags[i].code == code) return i;
    }
    return std::nullopt;
}

// Transforms the point whose x is at `i` (y and z follow as code+10 and code+20).
void transformPointAt(std::vector<EntityTag>& tags, std::size_t i, const Transform& t, bool vector = false) {
    const int code = tags[i].code;
    const auto y = find(tags, code + 10, i + 1), z = find(tags, code + 20, i + 1);
    const ardo::Point3 p{number(tags[i].value), y ? number(tags[*y].value) : 0.0, z ? number(tags[*z].value) : 0.0};
    const ardo::Point3 q = vector ? t.vector(p) : t.point(p);
    tags[i].value = dxfNumber(q[0]);
    if (y) tags[*y].value = dxfNumber(q[1]);
    if (z) tags[*z].value = dxfNumber(q[2]);
}

void transformPoint(std::vector<EntityTag>& tags, int code, const Transform& t) {
    if (const auto i = find(tags, code)) transformPointAt(tags, *i, t);
}

void scaleValue(std::vector<EntityTag>& tags, int code, double factor) {
    if (const auto i = find(tags, code)) tags[*i].value = dxfNumber(number(tags[*i].value) * factor);
}

double degrees(double radians) { return radians * 180 / std::numbers::pi; }
double radians(double degrees) { return degrees * std::numbers::pi / 180; }
double angleOf(const std::vector<EntityTag>& tags, int code) {
    const auto i = find(tags, code);
    return i ? radians(number(tags[*i].value)) : 0.0;
}

}  // namespace

double normalizedAngle(double radians) {
    double a = std::fmod(radians, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}

void setGroupNumber(std::vector<EntityTag>& tags, int code, double value) {
    if (const auto i = find(tags, code)) {
        tags[*i].value = dxfNumber(value);
    } else if (value != 0) {   // absent means 0; a new value goes before extended data
        const auto xdata = std::find_if(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 1001; });
        tags.insert(xdata, {code, dxfNumber(value)});
    }
}

Transform Transform::translation(const ardo::Point3& by) {
    Transform t;
    t.t_ = by;
    return t;
}

Transform Transform::rotation(const ardo::Point3& base, double angle) {
    Transform t;
    const double c = std::cos(angle), s = std::sin(angle);
    t.m_[0][0] = c, t.m_[0][1] = -s, t.m_[1][0] = s, t.m_[1][1] = c;
    t.t_ = {base[0] - c * base[0] + s * base[1], base[1] - s * base[0] - c * base[1], 0};
    return t;
}

Transform Transform::scaling(const ardo::Point3& base, double factor) {
    Transform t;
    t.m_[0][0] = t.m_[1][1] = t.zScale_ = factor;
    t.t_ = {base[0] * (1 - factor), base[1] * (1 - factor), base[2] * (1 - factor)};
    return t;
}

Transform Transform::mirror(const ardo::Point3& a, const ardo::Point3& b) {
    Transform t;
    const double phi = std::atan2(b[1] - a[1], b[0] - a[0]);
    const double c = std::cos(2 * phi), s = std::sin(2 * phi);
    t.m_[0][0] = c, t.m_[0][1] = s, t.m_[1][0] = s, t.m_[1][1] = -c;
    t.t_ = {a[0] - c * a[0] - s * a[1], a[1] - s * a[0] + c * a[1], 0};
    return t;
}

ardo::Point3 Transform::point(const ardo::Point3& p) const {
    return {m_[0][0] * p[0] + m_[0][1] * p[1] + t_[0], m_[1][0] * p[0] + m_[1][1] * p[1] + t_[1], zScale_ * p[2] + t_[2]};
}

ardo::Point3 Transform::vector(const ardo::Point3& v) const {
    return {m_[0][0] * v[0] + m_[0][1] * v[1], m_[1][0] * v[0] + m_[1][1] * v[1], zScale_ * v[2]};
}

double Transform::angle(double radians) const {
    const ardo::Point3 d = vector({std::cos(radians), std::sin(radians), 0});
    return normalizedAngle(std::atan2(d[1], d[0]));
}

double Transform::scale() const { return std::sqrt(std::abs(m_[0][0] * m_[1][1] - m_[0][1] * m_[1][0])); }

std::optional<std::vector<EntityTag>> transformedTags(std::vector<EntityTag> tags, const Transform& t) {
    if (tags.empty()) return std::nullopt;
    const std::string type = tags.front().value;
    const double s = t.scale();
    if (type == "LINE") {
        transformPoint(tags, 10, t);
        transformPoint(tags, 11, t);
    } else if (type == "POINT") {
        transformPoint(tags, 10, t);
    } else if (type == "CIRCLE" || type == "ARC") {
        transformPoint(tags, 10, t);
        scaleValue(tags, 40, s);
        if (type == "ARC") {
            double start = t.angle(angleOf(tags, 50)), end = t.angle(angleOf(tags, 51));
            // A mirrored arc runs the other way round: its ends change places.
            if (t.mirrored()) std::swap(start, end);
            setGroupNumber(tags, 50, degrees(start));
            setGroupNumber(tags, 51, degrees(end));
        }
    } else if (type == "LWPOLYLINE") {
        for (std::size_t i = 0; i < tags.size() && tags[i].code != 1001; ++i) {
            if (tags[i].code == 10) transformPointAt(tags, i, t);
            else if (tags[i].code == 40 || tags[i].code == 41 || tags[i].code == 43) tags[i].value = dxfNumber(number(tags[i].value) * s);
            else if (tags[i].code == 42 && t.mirrored()) tags[i].value = dxfNumber(-number(tags[i].value));
        }
    } else if (type == "TEXT" || type == "ATTRIB" || type == "MTEXT" || type == "INSERT") {
        transformPoint(tags, 10, t);
        if (type == "TEXT" || type == "ATTRIB") transformPoint(tags, 11, t);
        if (type == "MTEXT") {
            if (const auto i = find(tags, 11)) transformPointAt(tags, *i, t, true);
            scaleValue(tags, 41, s);
        }
        if (type == "INSERT") {
            scaleValue(tags, 41, t.mirrored() ? -s : s);
            scaleValue(tags, 42, s);
            scaleValue(tags, 43, s);
            if (!find(tags, 41) && s != 1) setGroupNumber(tags, 41, t.mirrored() ? -s : s);
            if (!find(tags, 42) && s != 1) setGroupNumber(tags, 42, s);
            if (!find(tags, 43) && s != 1) setGroupNumber(tags, 43, s);
        } else {
            scaleValue(tags, 40, s);
        }
        // Texts stay readable in a mirror image; a mirrored block turns half round after
        // its x scale changed sign.
        const double rotation = angleOf(tags, 50);
        if (!t.mirrored()) setGroupNumber(tags, 50, degrees(t.angle(rotation)));
        else if (type == "INSERT") setGroupNumber(tags, 50, degrees(normalizedAngle(t.angle(rotation) + std::numbers::pi)));
    } else if (type == "ELLIPSE") {
        transformPoint(tags, 10, t);
        if (const auto i = find(tags, 11)) transformPointAt(tags, *i, t, true);
        if (t.mirrored()) {
            const auto from = find(tags, 41), to = find(tags, 42);
            if (from && to) {
                const double a = number(tags[*from].value), b = number(tags[*to].value);
                tags[*from].value = dxfNumber(kTwoPi - b);
                tags[*to].value = dxfNumber(kTwoPi - a);
            }
        }
    } else {
        return std::nullopt;
    }
    return tags;
}

}  // namespace cadhost::commands
