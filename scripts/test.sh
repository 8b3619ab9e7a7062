#!/usr/bin/env bash
# Sets up, builds with warnings as errors and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake --preset ci >/dev/null
cmake --build --preset ci -j "$(nproc)"
ctest --preset ci -j "$(nproc)"
