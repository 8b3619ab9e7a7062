#include "cadhost/commands/PlotCommand.h"

#include <array>
#include <cstdio>
#include <filesystem>

#include "base/CaseFold.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/PlotSettings.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::commands {

namespace {

enum class Ask {
    Detailed, Layout, PageSetup, Device, Paper, Units, Orientation, UpsideDown, Area, WindowFirst, WindowSecond, View,
    Scale, Offset, PlotStyles, StyleTable, Lineweights, File, SaveSetup, Proceed
};

const std::vector<std::string_view> kYesNo{"Yes", "No"};

std::string shownPoint(const ardo::Point3& p) {
    char text[80];
    std::snprintf(text, sizeof text, "%f,%f", p[0], p[1]);
    return text;
}

std::string shownNumber(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

// "1=100", "1:100", "2.5=1" or a lone number (paper units per drawing unit).
std::optional<double> parseScale(std::string_view text) {
    text = ardo::trimWhite(text);
    const auto sign = text.find_first_of("=:");
    if (sign == std::string_view::npos) {
        const auto value = parseReal(text);
        return value && *value > 0 ? value : std::nullopt;
    }
    const auto paper = parseReal(ardo::trimWhite(text.substr(0, sign)));
    const auto units = parseReal(ardo::trimWhite(text.substr(sign + 1)));
    if (!paper || !units || *paper <= 0 || *units <= 0) return std::nullopt;
    return *paper / *units;
}

class PlotCommand final : public Command {
public:
    explicit PlotCommand(Context& context)
        : context_(context), drawing_(*context.drawing), settings_(defaultPlotSettings(drawing_)) {}

    std::string prompt() const override {
        switch (ask_) {
        case Ask::Detailed: return "Detailed plot configuration? [Yes/No] <No>: ";
        case Ask::Layout: return "Enter a layout name or [?] <" + settings_.layout + ">: ";
        case Ask::PageSetup: return "Enter a page setup name <>: ";
        case Ask::Device: return "Enter an output device name or [?] <" + settings_.device + ">: ";
        case Ask::Paper: return "Enter paper size or [?] <" + std::string(settings_.paper->name) + ">: ";
        case Ask::Units:
            return std::string("Enter paper units [Inches/Millimeters] <") +
                   (settings_.millimeters ? "Millimeters" : "Inches") + ">: ";
        case Ask::Orientation:
            return std::string("Enter drawing orientation [Portrait/Landscape] <") +
                   (settings_.landscape ? "Landscape" : "Portrait") + ">: ";
        case Ask::UpsideDown: return yesNo("Plot upside down? [Yes/No] ", settings_.upsideDown);
        case Ask::Area:
            return std::string("Enter plot area [Display/Extents/") + (settings_.plotsLayout() ? "Layout" : "Limits") +
                   "/View/Window] <" + areaName() + ">: ";
        case Ask::View: return "Enter view name <" + settings_.view + ">: ";
        case Ask::WindowFirst:
            return "Enter lower left corner of window <" + shownPoint(settings_.windowFirst) + ">: ";
        case Ask::WindowSecond:
            return "Enter upper right corner of window <" + shownPoint(settings_.windowSecond) + ">: ";
        case Ask::Scale:
            return std::string("Enter plot scale (Plotted ") + (settings_.millimeters ? "Millimeters" : "Inches") +
                   "=Drawing Units) or [Fit] <" +
                   (settings_.scale ? shownNumber(*settings_.scale) + "=1" : std::string("Fit")) + ">: ";
        case Ask::Offset:
            return "Enter plot offset (x,y) or [Center] <" +
                   (settings_.offset ? shownPoint(*settings_.offset) : std::string("Center")) + ">: ";
        case Ask::PlotStyles: return yesNo("Plot with plot styles? [Yes/No] ", settings_.plotStyles);
        case Ask::StyleTable:
            return "Enter plot style table name or [?] (enter . for none) <" + settings_.styleTable + ">: ";
        case Ask::Lineweights: return yesNo("Plot with lineweights? [Yes/No] ", settings_.lineweights);
        case Ask::File: return "Enter file name <" + settings_.file + ">: ";
        case Ask::SaveSetup: return "Save changes to page setup [Yes/No]? <N> ";
        case Ask::Proceed: return "Proceed with plot [Yes/No] <Y>: ";
        }
        return {};
    }

    InputRequest request() const override {
        if (ask_ == Ask::WindowFirst) return pointRequest();
        if (ask_ == Ask::WindowSecond) return pointRequest(settings_.windowFirst, true);
        return {};
    }

    Step take(const ardo::ResBuf& input) override {
        const std::string text = input.restype == ardo::RTSTR ? std::string(ardo::trimWhite(input.text)) : std::string();
        const bool enter = isEnter(input);
        switch (ask_) {
        case Ask::Detailed:
            if (!readYesNo(input, detailed_)) return askAgain(context_, kInvalidKeyword);
            return next(Ask::Layout);
        case Ask::Layout:
            if (text == "?") return list(layoutNames());
            if (!enter && !choosePlotLayout(drawing_, text, settings_))
                return complain("Layout \"" + text + "\" not found; enter ? to list the layouts.\n");
            return next(detailed_ ? Ask::Device : Ask::PageSetup);
        case Ask::PageSetup:
            if (!enter) return complain("Page setup \"" + text + "\" not found.\n");
            return next(Ask::Device);
        case Ask::Device:
            if (text == "?") return list({std::string(kPdfDevice)});
            if (!enter) {
                if (!isPdfDevice(text))
                    return complain("No such output device: \"" + text + "\". Plots are written as PDF by \"" +
                                    std::string(kPdfDevice) + "\".\n");
                settings_.device = std::string(kPdfDevice);
            }
            return next(detailed_ ? Ask::Paper : Ask::File);
        case Ask::Paper: {
            if (text == "?") {
                std::vector<std::string> names;
                for (const PaperSize& size : paperSizes()) names.emplace_back(size.name);
                return list(names);
            }
            if (!enter) {
                const PaperSize* size = findPaperSize(text);
                if (!size) return complain("Paper size \"" + text + "\" is not listed by the device; enter ? to list the sizes.\n");
                settings_.paper = size;
                settings_.sheet.reset();
                settings_.millimeters = !size->inches;
            }
            return next(Ask::Units);
        }
        case Ask::Units:
            if (!pick(input, {"Inches", "Millimeters"}, [&](std::size_t k) { settings_.millimeters = k == 1; }))
                return askAgain(context_, kInvalidKeyword);
            return next(Ask::Orientation);
        case Ask::Orientation:
            if (!pick(input, {"Portrait", "Landscape"}, [&](std::size_t k) { settings_.landscape = k == 1; }))
                return askAgain(context_, kInvalidKeyword);
            return next(Ask::UpsideDown);
        case Ask::UpsideDown:
            if (!readYesNo(input, settings_.upsideDown)) return askAgain(context_, kInvalidKeyword);
            return next(Ask::Area);
        case Ask::Area: {
            const std::array areas{PlotArea::Display, PlotArea::Extents, settings_.plotsLayout() ? PlotArea::Layout : PlotArea::Limits,
                                   PlotArea::View, PlotArea::Window};
            if (!pick(input, {"Display", "Extents", settings_.plotsLayout() ? "Layout" : "Limits", "View", "Window"},
                      [&](std::size_t k) { settings_.area = areas[k]; }))
                return askAgain(context_, kInvalidKeyword);
            if (settings_.area == PlotArea::View) return next(Ask::View);
            return next(settings_.area == PlotArea::Window ? Ask::WindowFirst : Ask::Scale);
        }
        case Ask::View: {
            if (text == "?") return list(viewNames(drawing_));
            const std::string name = enter ? settings_.view : text;
            const auto box = namedView(drawing_, name);
            if (!box) return complain("View \"" + name + "\" not found; enter ? to list the drawing's views.\n");
            settings_.view = name;
            settings_.windowFirst = box->first;
            settings_.windowSecond = box->second;
            return next(Ask::Scale);
        }
        case Ask::WindowFirst:
        case Ask::WindowSecond: {
            ardo::Point3& corner = ask_ == Ask::WindowFirst ? settings_.windowFirst : settings_.windowSecond;
            if (!enter) {
                const auto p = pointInput(drawing_, input);
                if (!p) return askAgain(context_, kInvalidPoint);
                corner = *p;
            }
            if (ask_ == Ask::WindowFirst) return next(Ask::WindowSecond);
            if (settings_.windowFirst[0] == settings_.windowSecond[0] ||
                settings_.windowFirst[1] == settings_.windowSecond[1])
                return askAgain(context_, "The window has no area; specify another corner.\n");
            return next(Ask::Scale);
        }
        case Ask::Scale:
            if (!enter) {
                if (matchKeyword(input, {"Fit"})) {
                    settings_.scale.reset();
                } else {
                    const auto scale = parseScale(inputText(input));
                    if (!scale)
                        return askAgain(context_, "Requires a scale such as 1=100 (plotted units=drawing units) or Fit.\n");
                    settings_.scale = scale;
                }
            }
            return next(Ask::Offset);
        case Ask::Offset:
            if (!enter) {
                if (matchKeyword(input, {"Center"})) {
                    settings_.offset.reset();
                } else {
                    const auto p = parsePoint(inputText(input), ardo::Point3{0, 0, 0});
                    if (!p || inputText(input).find_first_of("@<") != std::string::npos)
                        return askAgain(context_, "Requires an offset x,y in paper units or Center.\n");
                    settings_.offset = p;
                }
            }
            return next(Ask::PlotStyles);
        case Ask::PlotStyles:
            if (!readYesNo(input, settings_.plotStyles)) return askAgain(context_, kInvalidKeyword);
            return next(settings_.plotStyles ? Ask::StyleTable : Ask::Lineweights);
        case Ask::StyleTable:
            return styleTable(text, enter);
        case Ask::Lineweights:
            if (!readYesNo(input, settings_.lineweights)) return askAgain(context_, kInvalidKeyword);
            return next(Ask::File);
        case Ask::File:
            return fileName(text, enter);
        case Ask::SaveSetup: {
            bool save = false;
            if (!readYesNo(input, save)) return askAgain(context_, kInvalidKeyword);
            if (save) context_.message("Page setups are not stored in the drawing by this host; the plot goes on with these settings.\n");
            return next(Ask::Proceed);
        }
        case Ask::Proceed: {
            bool go = true;
            if (!readYesNo(input, go)) return askAgain(context_, kInvalidKeyword);
            if (go) plot();
            return Step::Done;
        }
        }
        return Step::Refused;
    }

private:
    static std::string yesNo(std::string text, bool value) { return text + (value ? "<Yes>: " : "<No>: "); }

    std::string areaName() const {
        switch (settings_.area) {
        case PlotArea::Display: return "Display";
        case PlotArea::Limits: return "Limits";
        case PlotArea::Window: return "Window";
        case PlotArea::View: return "View";
        case PlotArea::Layout: return "Layout";
        default: return "Extents";
        }
    }

    Step next(Ask ask) {
        ask_ = ask;
        return Step::More;
    }

    Step complain(const std::string& why) {
        context_.message(why);
        return Step::More;
    }

    Step list(const std::vector<std::string>& names) {
        for (const std::string& name : names) context_.message("  " + name + "\n");
        return Step::More;
    }

    // Enter keeps the setting, one of the keywords sets it; false for any other input.
    template <class Set>
    static bool pick(const ardo::ResBuf& input, const std::vector<std::string_view>& keywords, Set set) {
        if (isEnter(input)) return true;
        const auto k = matchKeyword(input, keywords);
        if (k) set(*k);
        return k.has_value();
    }

    static bool readYesNo(const ardo::ResBuf& input, bool& value) {
        return pick(input, kYesNo, [&](std::size_t k) { value = k == 0; });
    }

    std::vector<std::string> layoutNames() const {
        std::vector<std::string> names{"Model"};
        for (const Layout& layout : drawing_.layouts()) names.push_back(layout.name);
        return names;
    }

    bool namedStyles() const { return drawing_.usesNamedPlotStyles(); }

    Step styleTable(const std::string& text, bool enter) {
        const std::string_view extension = namedStyles() ? ".stb" : ".ctb";
        if (text == "?") return list({"monochrome" + std::string(extension), "acad" + std::string(extension)});
        if (enter) return next(Ask::Lineweights);
        if (text == ".") {
            settings_.styleTable.clear();
            return next(Ask::Lineweights);
        }
        std::string name = text;
        if (std::filesystem::path(name).extension().empty()) name += extension;
        if (!ardo::equalsNoCase(std::filesystem::path(name).extension().string(), extension))
            return complain("\"" + name + "\" is not a " +
                            (namedStyles() ? "named plot style table (.stb)" : "color-dependent plot style table (.ctb)") +
                            ", which this drawing uses.\n");
        settings_.styleTable = name;
        if (styleTableOf(name) == StyleTable::Unread)
            context_.message("Plot style table files are not read: \"" + name +
                             "\" plots with the objects' own colors (monochrome" + std::string(extension) +
                             " plots black).\n");
        return next(Ask::Lineweights);
    }

    Step fileName(const std::string& text, bool enter) {
        if (!enter) {
            std::filesystem::path path = text;
            if (!ardo::equalsNoCase(path.extension().string(), ".pdf")) path += ".pdf";
            std::error_code ec;
            const auto folder = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
            if (!std::filesystem::is_directory(folder, ec))
                return complain("The folder \"" + folder.string() + "\" does not exist; enter another file name.\n");
            settings_.file = path.string();
        }
        return next(Ask::SaveSetup);
    }

    void plot() {
        const PlotWriter& writer = plotWriter();
        if (!writer) {
            context_.message("This host cannot write plots without its window libraries; nothing was plotted.\n");
            return;
        }
        const auto written = writer(drawing_, settings_, [this](const std::string& note) { context_.message(note); });
        if (!written) {
            context_.message(written.error() + "\n");
            return;
        }
        context_.message("Plot written to \"" + settings_.file + "\".\n");
    }

    Context& context_;
    Drawing& drawing_;
    PlotSettings settings_;
    Ask ask_ = Ask::Detailed;
    bool detailed_ = false;
};

}  // namespace

std::unique_ptr<Command> makePlotCommand(Context& context) { return std::make_unique<PlotCommand>(context); }

}  // namespace cadhost::commands
