#!/usr/bin/env bash
# Sets up, builds, and runs the main job: the CAD host on the example drawing with the
# example installation's demo script.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset default >/dev/null
cmake --build --preset default -j "$(nproc)"
host=build/default/src/cadhost/console/ardo-cad
if [ ! -x "$host" ]; then
  echo "Built the module's core libraries and their tests. The CAD host ardo-cad is not part of"
  echo "this build yet, so there is no drawing to run the demo on; run the tests with scripts/test.sh."
  exit 0
fi
mkdir -p build/out
"$host" examples/drawings/office.dxf -s examples/demo.lsp -o build/out/office-demo.dxf
