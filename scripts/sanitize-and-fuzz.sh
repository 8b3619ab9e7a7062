#!/usr/bin/env bash
# The test suite under AddressSanitizer and UndefinedBehaviorSanitizer, then every fuzz
# target for a few seconds on its seed corpus.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
seconds=${FUZZ_SECONDS:-10}

cmake --preset sanitize >/dev/null
cmake --build --preset sanitize -j "$(nproc)"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --preset sanitize -j "$(nproc)"

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$(nproc)" --target fuzzers
for target in build/fuzz/fuzz/fuzz_*; do
  [ -f "$target" ] && [ -x "$target" ] || continue
  name=$(basename "$target")
  corpus=$(mktemp -d)
  [ -d "fuzz/corpus/$name" ] && cp -r "fuzz/corpus/$name/." "$corpus/"
  echo "== $name for ${seconds}s"
  # Targets that write files run in memory-backed storage: every save syncs the disk.
  TMPDIR=/dev/shm "$target" -max_total_time="$seconds" -max_len=65536 "$corpus" 2>&1 | tail -n 3
  rm -rf "$corpus"
done
