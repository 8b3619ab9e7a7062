#!/usr/bin/env bash
# Compares ardo-cad's rendering of every drawing of the DXF corpus with LibreCAD's print of
# it (librecad dxf2pdf, rasterised with pdftoppm) and prints a table with the measure's two
# shares per drawing. Usage: scripts/compare-with-librecad.sh [--keep DIR] [drawing.dxf...]
# --keep leaves both images of each drawing in DIR to look at.
#
# The page: A4 at 72 dpi, landscape or portrait as our model-space extents are, 10 mm
# margins, the extents centred at the largest scale that fits. LibreCAD takes its page from
# the drawing's paper limits, read in the drawing's units, so it prints a copy whose header
# ends with $PLIMMIN 0,0, $PLIMMAX at the page's size and $INSUNITS 4 (millimetres), with
# dxf2pdf -m (black on white) -c (centred) -s (our scale, mm per drawing unit) -f (margins);
# without that, a drawing set up for another sheet comes out on a page of its own size,
# down to a pixel. pdftoppm rasterises it; we paint model space to the same page.
#
# The measure: each image becomes an ink mask (LibreCAD's: darker than grey 200 of 255;
# ours: not the background), each mask is widened by 3 pixels (about a millimetre), and two
# shares are counted: of our ink, the part near LibreCAD's, and of LibreCAD's ink, the part
# near ours. A drawing passes when both reach 0.8. Widening forgives line placement, caps
# and anti-aliasing; a missing or extra entity, a wrong place or scale, or text in another
# font lowers a share. Run it at low priority (nice -n 10): LibreCAD takes a while on some
# drawings.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${ARDO_BUILD_DIR:-$here/build/default}"
tool="$build/tests/librecad-compare"
if [[ ! -x "$tool" ]]; then
  echo "Build the comparison first: cmake --build --preset default --target librecad-compare" >&2
  exit 2
fi
keep=()
if [[ "${1:-}" == "--keep" ]]; then
  keep=(--keep "$2")
  shift 2
fi
if [[ $# -eq 0 ]]; then
  set -- "$here"/../shared/dxf-corpus/*.dxf
fi
exec "$tool" "${keep[@]}" "$@"
