#!/usr/bin/env bash
# run_family.sh PRESET REGEX: builds the test programs of the files in which the expression stands (an export, a family, a
# test's name) and runs the suites of those files.
set -euo pipefail
cd "$(dirname "$0")/.."
files=$(grep -lE "$2" tests/*/*_test.cpp) || { echo "no test file says '$2'"; exit 1; }
programs=$(for f in $files; do echo "$(basename "$(dirname "$f")")_tests"; done | sort -u)
suites=$(sed -nE 's/^(TEST|TEST_P|TEST_F|TYPED_TEST)\(([A-Za-z0-9_]+),.*/*\2.*/p' $files | sort -u | paste -sd:)
cmake --preset "$1" >/dev/null
cmake --build --preset "$1" -j "$(nproc)" --target $programs | tail -1
for program in $programs; do "build/$1/tests/$program" --gtest_brief=1 --gtest_filter="$suites"; done
