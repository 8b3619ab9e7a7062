#include "panes/PaneLayoutFile.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <array>
#include <utility>

namespace ardo {

namespace {

constexpr auto kRoot = "DockingPanelLayout";
constexpr auto kPane = "Pane";
constexpr auto kVersion = "1";

constexpr std::array<std::pair<Qt::DockWidgetArea, const char*>, 4> kAreas{{
    {Qt::LeftDockWidgetArea, "left"},
    {Qt::RightDockWidgetArea, "right"},
    {Qt::TopDockWidgetArea, "top"},
    {Qt::BottomDockWidgetArea, "bottom"},
}};

const char* areaName(Qt::DockWidgetArea area) {
    for (const auto& [value, name] : kAreas)
        if (value == area) return name;
    return kAreas.front().second;
}

std::optional<Qt::DockWidgetArea> areaOf(QStringView name) {
    for (const auto& [value, text] : kAreas)
        if (name == QLatin1String(text)) return value;
    return std::nullopt;
}

std::optional<int> number(const QXmlStreamAttributes& attributes, const char* name) {
    bool ok = false;
    const int value = attributes.value(QLatin1String(name)).toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

std::optional<bool> flag(const QXmlStreamAttributes& attributes, const char* name) {
    const auto text = attributes.value(QLatin1String(name));
    if (text == QLatin1String("1")) return true;
    if (text == QLatin1String("0")) return false;
    return std::nullopt;
}

std::optional<PanePlace> placeOf(const QXmlStreamAttributes& a) {
    PanePlace place;
    place.id = a.value(QLatin1String("id")).toString();
    const auto area = areaOf(a.value(QLatin1String("area")));
    const auto floating = flag(a, "floating");
    const auto visible = flag(a, "visible");
    const auto x = number(a, "x"), y = number(a, "y"), w = number(a, "width"), h = number(a, "height");
    if (place.id.isEmpty() || !area || !floating || !visible || !x || !y || !w || !h || *w <= 0 || *h <= 0)
        return std::nullopt;
    place.area = *area;
    place.floating = *floating;
    place.visible = *visible;
    place.geometry = QRect(*x, *y, *w, *h);
    place.tabGroup = a.value(QLatin1String("tabGroup")).toString();
    return place;
}

}  // namespace

QByteArray layoutXml(const std::vector<PanePlace>& places) {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeStartElement(kRoot);
    xml.writeAttribute("version", kVersion);
    for (const PanePlace& place : places) {
        xml.writeEmptyElement(kPane);
        xml.writeAttribute("id", place.id);
        xml.writeAttribute("area", areaName(place.area));
        xml.writeAttribute("floating", place.floating ? "1" : "0");
        xml.writeAttribute("visible", place.visible ? "1" : "0");
        xml.writeAttribute("x", QString::number(place.geometry.x()));
        xml.writeAttribute("y", QString::number(place.geometry.y()));
        xml.writeAttribute("width", QString::number(place.geometry.width()));
        xml.writeAttribute("height", QString::number(place.geometry.height()));
        if (!place.tabGroup.isEmpty()) xml.writeAttribute("tabGroup", place.tabGroup);
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

std::optional<std::vector<PanePlace>> parseLayoutXml(const QByteArray& bytes) {
    QXmlStreamReader xml(bytes);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String(kRoot)) return std::nullopt;
    std::vector<PanePlace> places;
    while (xml.readNextStartElement()) {
        // A pane this version does not understand is left out; the others keep their places.
        if (xml.name() == QLatin1String(kPane))
            if (auto place = placeOf(xml.attributes())) places.push_back(std::move(*place));
        xml.skipCurrentElement();
    }
    if (xml.hasError()) return std::nullopt;
    return places;
}

}  // namespace ardo
