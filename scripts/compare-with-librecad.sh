#!/usr/bin/env bash
# Compares ardo-cad's rendering of every drawing of the DXF corpus with LibreCAD's print of
# it (librecad dxf2pdf, rasterised with pdftoppm) and prints a table with the measure's two
# shares per drawing. Usage: scripts/compare-with-librecad.sh [--keep DIR] [drawing.dxf...]
# --keep leaves both images of each drawing in DIR to look at.
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
