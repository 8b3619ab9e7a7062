// The run as one self-contained HTML page: style and the column sorting inline, nothing
// fetched from elsewhere, so the page can be mailed or archived as it is.
#include <map>
#include <set>

#include "base/CaseFold.h"
#include "standard/AuditReport.h"
#include "standard/RenameMap.h"

namespace ardo {

namespace {

constexpr const char* kStyle = R"(
body{font:14px/1.4 system-ui,sans-serif;margin:24px;color:#1d2125;background:#fff}
h1{font-size:22px;margin:0 0 4px}h2{font-size:17px;margin:28px 0 6px;word-break:break-all}
.meta{color:#5b6470;margin-bottom:16px}
table{border-collapse:collapse;margin:6px 0 10px;min-width:420px}
th,td{border:1px solid #d4d8dd;padding:4px 8px;text-align:left;vertical-align:top}
th{background:#eef1f4;cursor:pointer;user-select:none;white-space:nowrap}
th:after{content:" \2195";color:#9aa3ad}th.asc:after{content:" \2191"}th.desc:after{content:" \2193"}
td.num{text-align:right}
.sw{display:inline-block;width:14px;height:14px;border:1px solid #555;vertical-align:-2px;margin-right:6px}
.sw.none{background:repeating-linear-gradient(45deg,#fff,#fff 3px,#bbb 3px,#bbb 5px)}
.badge{display:inline-block;padding:1px 8px;border-radius:9px;font-size:12px;font-weight:600}
.ok{background:#d8f0dc;color:#1e6b2e}.bad{background:#fde2e1;color:#a1261d}.fail{background:#fff0c2;color:#7a5a00}
.fixed{color:#1e6b2e;font-weight:600}.would{color:#7a5a00}.err{color:#a1261d}
details{margin:4px 0 8px}summary{cursor:pointer;color:#3b4650}
)";

// Sorts a table by the clicked column: numbers as numbers, texts as the reader's locale orders them.
constexpr const char* kScript = R"(
document.querySelectorAll('table.sortable th').forEach(function(th){
 th.addEventListener('click',function(){
  var table=th.closest('table'),body=table.tBodies[0],i=Array.prototype.indexOf.call(th.parentNode.children,th);
  var asc=!th.classList.contains('asc');
  table.querySelectorAll('th').forEach(function(h){h.classList.remove('asc','desc');});
  th.classList.add(asc?'asc':'desc');
  var rows=Array.prototype.slice.call(body.rows);
  rows.sort(function(a,b){
   var x=a.cells[i].textContent.trim(),y=b.cells[i].textContent.trim();
   var c=x.localeCompare(y,undefined,{numeric:true,sensitivity:'base'});
   return asc?c:-c;});
  rows.forEach(function(r){body.appendChild(r);});
 });
});
)";

std::string esc(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            default: out += c;
        }
    }
    return out;
}

std::string cell(const std::string& html, const char* cls = nullptr) {
    return cls ? std::string("<td class=\"") + cls + "\">" + html + "</td>" : "<td>" + html + "</td>";
}

std::string valueCell(const LayerDeviation& d, const std::string& value, const std::string& rgb) {
    if (d.property != LayerProperty::Colour) return cell(esc(value));
    const std::string swatch = rgb.empty() ? "<span class=\"sw none\"></span>"
                                           : "<span class=\"sw\" style=\"background:" + esc(rgb) + "\"></span>";
    return cell(swatch + esc(value));
}

std::string head(std::initializer_list<const char*> columns) {
    std::string out = "<table class=\"sortable\"><thead><tr>";
    for (const char* c : columns) out += std::string("<th>") + c + "</th>";
    return out + "</tr></thead><tbody>\n";
}

std::string badge(const AuditRun& run, const DrawingResult& r) {
    if (!r.failure.empty()) return "<span class=\"badge fail\">failed</span>";
    const size_t left = remainingDeviations(run, r);
    if (left == 0) return "<span class=\"badge ok\">meets the standard</span>";
    return "<span class=\"badge bad\">" + countOf(left, "finding", "findings") + "</span>";
}

void appendOverview(std::string& out, const AuditRun& run) {
    // Per key: the drawings in which its layer deviates, and which properties.
    struct KeyCount {
        std::string layer;
        std::set<std::string> drawings;
        std::set<std::string> properties;
    };
    std::map<std::string, KeyCount> byKey;
    struct Unnamed {
        UnnamedLayer layer;
        std::set<std::string> drawings;
    };
    std::map<std::string, Unnamed> unnamedByLayer;
    for (const DrawingResult& r : run.drawings) {
        for (const LayerDeviation& d : r.audit.deviations) {
            KeyCount& k = byKey[d.key];
            k.layer = d.layer;
            k.drawings.insert(r.path);
            k.properties.insert(propertyName(d.property));
        }
        for (const UnnamedLayer& u : r.audit.unnamed) {
            Unnamed& found = unnamedByLayer[upperCase(u.layer)];
            if (found.drawings.empty()) found.layer = u;
            found.drawings.insert(r.path);
        }
    }
    out += "<h2>Deviating drawings per key</h2>\n";
    if (byKey.empty()) {
        out += "<p>No layer of a key deviates in any drawing.</p>\n";
    } else {
        out += head({"Key", "Layer", "Drawings", "Properties"});
        for (const auto& [key, k] : byKey) {
            std::string properties;
            for (const std::string& p : k.properties) properties += (properties.empty() ? "" : ", ") + p;
            out += "<tr>" + cell(esc(key)) + cell(esc(k.layer)) + cell(std::to_string(k.drawings.size()), "num") +
                   cell(esc(properties)) + "</tr>\n";
        }
        out += "</tbody></table>\n";
    }
    if (unnamedByLayer.empty()) return;
    out += "<h2>Layers without a key</h2>\n" + head({"Layer", "Drawings", "Nearest key", "Its layer"});
    for (const auto& [folded, found] : unnamedByLayer)
        out += "<tr>" + cell(esc(found.layer.layer)) + cell(std::to_string(found.drawings.size()), "num") +
               cell(esc(found.layer.hintKey)) + cell(esc(found.layer.hintName)) + "</tr>\n";
    out += "</tbody></table>\n";
}

void appendDrawing(std::string& out, const AuditRun& run, const DrawingResult& r, size_t index) {
    const DrawingAudit& a = r.audit;
    out += "<h2 id=\"d" + std::to_string(index) + "\">" + esc(r.path) + " " + badge(run, r) + "</h2>\n";
    if (!r.failure.empty()) out += "<p class=\"err\">" + esc(r.failure) + "</p>\n";
    if (!a.deviations.empty()) {
        out += run.apply ? head({"Layer", "Key", "Property", "Standard", "Drawing", "Applied"})
                         : head({"Layer", "Key", "Property", "Standard", "Drawing"});
        for (const LayerDeviation& d : a.deviations) {
            out += "<tr>" + cell(esc(d.layer)) + cell(esc(d.key)) + cell(propertyName(d.property)) +
                   valueCell(d, d.fileValue, d.fileRgb) + valueCell(d, d.drawingValue, d.drawingRgb);
            if (run.apply)
                out += cell(isResolved(run, r, d) ? "<span class=\"fixed\">fixed</span>"
                            : run.dryRun           ? "<span class=\"would\">would be fixed</span>"
                                                   : "<span class=\"err\">not fixed</span>");
            out += "</tr>\n";
        }
        out += "</tbody></table>\n";
    }
    if (!a.unnamed.empty()) {
        out += head({"Layer without a key", "Nearest key", "Its layer"});
        for (const UnnamedLayer& u : a.unnamed)
            out += "<tr>" + cell(esc(u.layer)) + cell(esc(u.hintKey)) + cell(esc(u.hintName)) + "</tr>\n";
        out += "</tbody></table>\n";
    }
    // Property changes show in the deviations' table; layer moves and failures show here.
    std::vector<const LayerChange*> shown;
    for (const LayerChange& c : a.changes)
        if (c.what == kRenamedTo || c.what == kMergedInto || !c.failure.empty()) shown.push_back(&c);
    if (!shown.empty()) {
        out += head({"Layer", "Change", "To", "Result"});
        for (const LayerChange* c : shown)
            out += "<tr>" + cell(esc(c->layer)) + cell(esc(c->what)) + cell(esc(c->to)) +
                   (!c->failure.empty() ? cell(esc(c->failure), "err")
                    : run.dryRun        ? cell("<span class=\"would\">would be done</span>")
                                        : cell("<span class=\"fixed\">done</span>")) +
                   "</tr>\n";
        out += "</tbody></table>\n";
    }
    if (!a.missing.empty()) {
        out += "<details><summary>" + countOf(a.missing.size(), "key has", "keys have") +
               " no layer in this drawing</summary>\n";
        out += head({"Key", "Layer"});
        for (const MissingKey& m : a.missing) out += "<tr>" + cell(esc(m.key)) + cell(esc(m.layer)) + "</tr>\n";
        out += "</tbody></table></details>\n";
    }
}

}  // namespace

std::string htmlReport(const AuditRun& run) {
    std::string out = "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
                      "<title>Layer standard audit</title>\n<style>";
    out += kStyle;
    out += "</style></head><body>\n<h1>Layer standard audit</h1>\n";
    out += "<div class=\"meta\">" + drawingCounts(run) +
           (run.dryRun ? " &middot; dry run, nothing saved" : run.apply ? " &middot; standard applied" : "") + "</div>\n";
    appendOverview(out, run);
    out += "<h2>Drawings</h2>\n" + head({"Drawing", "Deviations", "Layers without a key", "Keys without a layer", "Result"});
    for (size_t i = 0; i < run.drawings.size(); ++i) {
        const DrawingResult& r = run.drawings[i];
        out += "<tr>" + cell("<a href=\"#d" + std::to_string(i) + "\">" + esc(r.path) + "</a>") +
               cell(std::to_string(r.audit.deviations.size()), "num") + cell(std::to_string(r.audit.unnamed.size()), "num") +
               cell(std::to_string(r.audit.missing.size()), "num") + cell(badge(run, r)) + "</tr>\n";
    }
    out += "</tbody></table>\n";
    for (size_t i = 0; i < run.drawings.size(); ++i) appendDrawing(out, run, run.drawings[i], i);
    out += "<script>";
    out += kScript;
    out += "</script>\n</body></html>\n";
    return out;
}

}  // namespace ardo
