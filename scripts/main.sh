#!/usr/bin/env bash
# Sets up, builds, and runs the main job: the CAD host on the example drawing with the
# example installation's demo script, then reads the saved drawing back with ezdxf.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset default >/dev/null
cmake --build --preset default -j "$(nproc)"
host=build/default/ardo/ardo-cad
if [ ! -x "$host" ]; then
  echo "The build made no $host; see the build output above." >&2
  exit 1
fi
out=build/out/office-demo.dxf
mkdir -p build/out
rm -f "$out"
# The demo's users' settings and command stub stay out of the build tree and the user's temp.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r build/default/ardo "$work/ardo"
find "$work/ardo/Benutzer" -mindepth 1 -maxdepth 1 -type d -exec rm -rf {} +
mkdir -p "$work/tmp"
TMPDIR="$work/tmp" "$work/ardo/ardo-cad" examples/drawings/office.dxf \
  -s examples/demo.lsp -o "$out" </dev/null
if [ ! -s "$out" ]; then
  echo "ardo-cad saved no drawing to $out; its output above says why." >&2
  exit 1
fi
echo
echo "== The saved drawing, read by ezdxf"
/usr/bin/python3 examples/drawings/show_layers.py examples/drawings/office.dxf "$out"
echo
echo "Saved drawing / gespeicherte Zeichnung: $(realpath "$out")"
