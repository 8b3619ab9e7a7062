#!/usr/bin/python3
"""Writes office.dxf: the ground floor of a small office as an existing survey drawing.

Its layers are the surveyor's own ("Bestand-alt", "Bestand-Öffnungen", ...), not those of the
office's layer standard, so that the demo shows ardo adding its layers beside them.
Run with Debian's python3 (python3-ezdxf): /usr/bin/python3 examples/drawings/make_office.py
"""
import pathlib
import sys

import ezdxf

OUT = pathlib.Path(__file__).with_name("office.dxf")

# Outline of the building in metres; the walls are 0.365 (outer) and 0.115 (inner) thick.
OUTER = [(0, 0), (14, 0), (14, 9), (0, 9)]
OUTER_T = 0.365
INNER_WALLS = [((6, OUTER_T), (6, 9 - OUTER_T)), ((6, 5), (14 - OUTER_T, 5)), ((10, 5), (10, 9 - OUTER_T))]
INNER_T = 0.115

ROOMS = [((3.0, 4.5), "Büro 1", "24,9 m²"), ((8.0, 2.5), "Empfang", "33,1 m²"),
         ((8.0, 7.0), "Büro 2", "14,7 m²"), ((12.0, 7.0), "Teeküche", "12,8 m²")]
DOORS = [((6.0, 2.0), 90), ((8.0, 5.0), 0), ((11.5, 5.0), 0), ((7.5, 0.0), 0)]
WINDOWS = [((2.0, 0.0), 0), ((11.0, 0.0), 0), ((0.0, 4.5), 90), ((3.0, 9.0), 0), ((8.0, 9.0), 0),
           ((12.0, 9.0), 0), ((14.0, 2.5), 90)]


def offset_rect(points, d):
    (x0, y0), (x1, y1) = points[0], points[2]
    return [(x0 + d, y0 + d), (x1 - d, y0 + d), (x1 - d, y1 - d), (x0 + d, y1 - d)]


def define_blocks(doc):
    door = doc.blocks.new("TUER_88")
    door.add_line((0, 0), (0.885, 0))
    door.add_line((0, 0), (0, 0.885))
    door.add_arc((0, 0), 0.885, 0, 90)
    window = doc.blocks.new("FENSTER_126")
    for y in (0.0, OUTER_T):
        window.add_line((-0.63, y), (0.63, y))
    window.add_line((-0.63, OUTER_T / 2), (0.63, OUTER_T / 2))
    window.add_line((-0.63, 0), (-0.63, OUTER_T))
    window.add_line((0.63, 0), (0.63, OUTER_T))


def draw(msp):
    walls = {"layer": "Bestand-alt"}
    msp.add_lwpolyline(OUTER, close=True, dxfattribs=walls)
    msp.add_lwpolyline(offset_rect(OUTER, OUTER_T), close=True, dxfattribs=walls)
    for (x0, y0), (x1, y1) in INNER_WALLS:
        dx, dy = (INNER_T / 2, 0) if x0 == x1 else (0, INNER_T / 2)
        msp.add_line((x0 - dx, y0 - dy), (x1 - dx, y1 - dy), dxfattribs=walls)
        msp.add_line((x0 + dx, y0 + dy), (x1 + dx, y1 + dy), dxfattribs=walls)
    for pos, angle in DOORS:
        msp.add_blockref("TUER_88", pos, dxfattribs={"layer": "Bestand-Öffnungen", "rotation": angle})
    for pos, angle in WINDOWS:
        msp.add_blockref("FENSTER_126", pos, dxfattribs={"layer": "Bestand-Öffnungen", "rotation": angle})
    for pos, name, area in ROOMS:
        msp.add_text(name, height=0.25, dxfattribs={"layer": "Raumtext", "insert": pos})
        msp.add_text(area, height=0.18, dxfattribs={"layer": "Raumtext", "insert": (pos[0], pos[1] - 0.4)})
    msp.add_text("Erdgeschoss 1:100", height=0.4, dxfattribs={"layer": "0", "insert": (0, -1.5)})
    dim = msp.add_linear_dim(base=(0, -0.8), p1=(0, 0), p2=(14, 0), dxfattribs={"layer": "Bemaßung-alt"})
    dim.render()
    dim = msp.add_linear_dim(base=(-0.8, 0), p1=(0, 0), p2=(0, 9), angle=90,
                             dxfattribs={"layer": "Bemaßung-alt"})
    dim.render()


def main():
    doc = ezdxf.new("R2013", setup=True, units=6)  # metres
    doc.layers.add("Bestand-alt", color=8, lineweight=35)
    doc.layers.add("Bestand-Öffnungen", color=3, lineweight=25)
    doc.layers.add("Raumtext", color=7)
    doc.layers.add("Bemaßung-alt", color=1, lineweight=18)
    define_blocks(doc)
    draw(doc.modelspace())
    # The dimensions brought "Defpoints"; as in every CAD drawing it is not plotted.
    doc.layers.get("Defpoints").dxf.plot = 0
    doc.header["$CLAYER"] = "0"
    doc.saveas(OUT)
    print(f"wrote {OUT}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
