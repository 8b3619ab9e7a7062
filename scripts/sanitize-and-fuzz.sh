#!/usr/bin/env bash
# The test suite under AddressSanitizer and UndefinedBehaviorSanitizer, then every fuzz
# target from the same build for FUZZ_SECONDS each on its seed corpus. The DXF
# targets also start from the shared DXF corpus beside the work tree when it is there.
#   FUZZ_SECONDS=600 scripts/sanitize-and-fuzz.sh     a long run by hand
#   FUZZ_ONLY=1                                       skip the sanitized test suite
#   JOBS=2                                            build and test jobs (default: all cores)
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
seconds=${FUZZ_SECONDS:-10}
jobs=${JOBS:-$(nproc)}

cmake --preset sanitize >/dev/null
if [ -z "${FUZZ_ONLY:-}" ]; then
  cmake --build --preset sanitize -j "$jobs"
  ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    LSAN_OPTIONS="suppressions=$PWD/scripts/lsan-suppressions.txt" ctest --preset sanitize -j "$jobs"
else
  cmake --build --preset sanitize -j "$jobs" --target fuzzers
fi
shared_dxf=../shared/dxf-corpus
summary=()
for target in build/sanitize/fuzz/fuzz_*; do
  [ -f "$target" ] && [ -x "$target" ] || continue
  name=$(basename "$target")
  corpus=$(mktemp -d)
  [ -d "fuzz/corpus/$name" ] && cp -r "fuzz/corpus/$name/." "$corpus/"
  case "$name" in
    fuzz_dxf_*)
      # Drawings up to the length the fuzzer tries; larger ones only slow every run.
      [ -d "$shared_dxf" ] && find "$shared_dxf" -name '*.dxf' -size -64k -exec cp {} "$corpus/" \; ;;
  esac
  echo "== $name for ${seconds}s"
  log=$(mktemp)
  # Targets that write files run in memory-backed storage: every save syncs the disk.
  status=0
  TMPDIR=/dev/shm "$target" -max_total_time="$seconds" -max_len=65536 -timeout=20 "$corpus" >"$log" 2>&1 || status=$?
  tail -n 3 "$log"
  runs=$(grep -o 'Done [0-9]* runs' "$log" | grep -o '[0-9]*' || echo "?")
  verdict=""
  [ "$status" -eq 0 ] || verdict=", FAILED (exit $status)"
  summary+=("$name: $runs executions in ${seconds}s$verdict")
  rm -rf "$corpus" "$log"
  [ "$status" -eq 0 ] || { printf '%s\n' "${summary[@]}"; exit "$status"; }
done
printf '%s\n' "${summary[@]}"
