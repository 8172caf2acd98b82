#!/usr/bin/env bash
# sanitized_library.sh TESTS LIBRARY [JOBS]: runs the test programs in folder TESTS over the library in folder LIBRARY, which clang++ built
# under AddressSanitizer and UndefinedBehaviorSanitizer. The programs, of another compiler and not instrumented, need no
# second build; the heap is watched in them, too.
set -euo pipefail
export TESTS=$1 LIBRARY=$2
RUNTIME=$(clang++ -print-file-name="libclang_rt.asan-$(uname -m).so")
[ -f "$RUNTIME" ] || RUNTIME=$(clang++ -print-runtime-dir)/libclang_rt.asan-$(uname -m).so
export RUNTIME
run() {
  local log
  log=$(mktemp)
  if LD_LIBRARY_PATH=$LIBRARY LD_PRELOAD=$RUNTIME GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$2 "$1" --gtest_brief=1 >"$log" 2>&1; then
    echo "$(basename "$1") $2: $(grep -o 'PASSED.*' "$log")"
  else
    echo "$(basename "$1") $2 FAILED"
    tail -n 60 "$log"
    rm "$log"
    return 1
  fi
  rm "$log"
}
export -f run
# A library of another build must not be found first.
LD_LIBRARY_PATH=$LIBRARY ldd "$TESTS/frame_tests" | grep -q "$LIBRARY/libzorsl9.so"
for shard in 0 1; do printf '%s\n' "$TESTS"/*_tests; done | sort | awk '{print $1, n[$1]++}' |
  xargs -P "${3:-2}" -L 1 bash -c 'run "$0" "$1"'
