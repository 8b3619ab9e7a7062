#!/usr/bin/python3
"""Reads a drawing saved by ardo-cad with ezdxf, an independent DXF reader, and prints the
layers it has beyond the original drawing with their properties, the lines drawn on them
(the wall module's walls), then ezdxf's audit.

usage: /usr/bin/python3 show_layers.py ORIGINAL.dxf SAVED.dxf
Exit status 1 when the saved drawing cannot be read, has no new layer or fails the audit.
"""
import sys

import ezdxf

LINEWEIGHT_WORDS = {-3: "Vorgabe/default", -2: "VonBlock/ByBlock", -1: "VonLayer/ByLayer"}


def lineweight_text(value):
    return LINEWEIGHT_WORDS.get(value, f"{value / 100:.2f} mm")


def colour_text(layer):
    if layer.dxf.hasattr("true_color"):
        r, g, b = layer.rgb
        text = f"RGB {r},{g},{b}"
        if layer.dxf.hasattr("color_name"):
            text += f" ({layer.dxf.color_name})"
        return text
    return f"ACI {abs(layer.dxf.color)}"


def states_text(layer):
    words = [word for flag, word in ((layer.is_off(), "aus/off"), (layer.is_frozen(), "gefroren/frozen"),
                                     (layer.is_locked(), "gesperrt/locked")) if flag]
    if layer.dxf.flags & 2:
        words.append("in neuen AF gefroren/frozen in new viewports")
    return ", ".join(words) or "an/on"


def plot_style_name(doc, layer):
    # The layer points at a placeholder object; its name is its key in ACAD_PLOTSTYLENAME.
    handle = layer.dxf.get("plotstyle_handle")
    styles = doc.rootdict.get("ACAD_PLOTSTYLENAME")
    if not handle or styles is None:
        return "-"
    for name, entry in styles.items():
        if getattr(entry, "dxf", None) is not None and entry.dxf.handle == handle:
            return name
    return f"? ({handle})"


def main(argv):
    if len(argv) != 3:
        print(__doc__.strip().splitlines()[-2], file=sys.stderr)
        return 2
    original = {layer.dxf.name.upper() for layer in ezdxf.readfile(argv[1]).layers}
    doc = ezdxf.readfile(argv[2])
    new_layers = [layer for layer in doc.layers if layer.dxf.name.upper() not in original]
    print(f"ezdxf {ezdxf.__version__} liest/reads {argv[2]} ({doc.dxfversion})")
    print(f"{len(new_layers)} neue Layer / new layers (aktuell/current: {doc.header.get('$CLAYER', '0')}):")
    for layer in new_layers:
        print(f"  {layer.dxf.name:26} {colour_text(layer):34} {layer.dxf.linetype:17} "
              f"{lineweight_text(layer.dxf.lineweight):16} plot={'ja/yes' if layer.dxf.plot else 'nein/no':7} "
              f"Plotstil/plot style={plot_style_name(doc, layer)}  [{states_text(layer)}]")
    new_names = {layer.dxf.name.upper() for layer in new_layers}
    drawn = [line for line in doc.modelspace().query("LINE") if line.dxf.layer.upper() in new_names]
    print(f"{len(drawn)} Linien auf neuen Layern / lines on new layers:")
    for line in drawn:
        start, end = line.dxf.start, line.dxf.end
        print(f"  {line.dxf.layer:26} ({start.x:g},{start.y:g}) - ({end.x:g},{end.y:g})")
    used = {layer.dxf.linetype.upper() for layer in new_layers}
    loaded = [lt.dxf.name for lt in doc.linetypes if lt.dxf.name.upper() in used and lt.dxf.name.upper() != "CONTINUOUS"]
    print(f"Linientypen aus ardo.lin / linetypes loaded: {', '.join(loaded) or '-'}")
    auditor = doc.audit()
    print(f"ezdxf audit: {len(auditor.errors)} Fehler/errors, {len(auditor.fixes)} Korrekturen/fixes")
    for error in auditor.errors:
        print(f"  {error.message}")
    return 0 if new_layers and not auditor.has_errors else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv))
