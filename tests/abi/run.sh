#!/usr/bin/env bash
# run.sh check|update BUILD [INCLUDE]: the binary interface of both libraries beside its records, zorsl9.abi and zorcore.abi.
# Types come from the public headers: each prototype is given a body, and the debug information of that tells the types (the
# library's own definitions have those types, or they do not compile). Names come from the libraries themselves.
set -euo pipefail
action=$1
build=$(realpath "$2")
cd "$(dirname "$0")"
include=${3:-../../include}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
compile=${CXX:-c++}
failed=0
refuse() { echo "abi: $*"; failed=1; }

for pair in zorsl9:libzorsl9.so zorcore:libzorcore-8.2.so; do
  library=${pair%:*} real=$build/src/${pair#*:}
  header=zors.h
  [ $library = zorsl9 ] || header=zorcore.h
  soname=$(objdump -p "$real" | awk '$1 == "SONAME" {print $2}')
  bodies='s/(\b(zors?|own)[A-Z1][A-Za-z0-9_]*\([^;{}]*\)) *;/\1 { __builtin_trap(); }\n/g'
  { echo 'extern "C" {'; "$compile" -E -P -x c -I"$include" "$include/$header" | tr '\n' ' ' | sed -E "$bodies"; echo '}'; } >"$work/$library.cpp"
  "$compile" -g -w -fno-eliminate-unused-debug-types -shared -fPIC "$work/$library.cpp" -o "$work/$soname" -Wl,-soname,"$soname"

  for file in "$real" "$work/$soname"; do nm -D --defined-only "$file" | awk '{print $3}' | sort >"$work/names.$(basename "$(dirname "$file")")"; done
  if ! diff "$work/names.$(basename "$work")" "$work/names.src" >"$work/apart"; then
    refuse "$header (<) and $soname (>) have not the same functions:"
    grep '^[<>]' "$work/apart"
  fi

  abidw --load-all-types --no-show-locs --no-corpus-path --no-comp-dir-path --drop-undefined-syms "$work/$soname" >"$work/$library.abi"
  if [ "$action" = update ]; then
    cp "$work/$library.abi" .
    continue
  fi
  status=0
  abidiff --non-reachable-types --no-show-locs $library.abi "$work/$library.abi" >"$work/report" || status=$?
  if [ $status -eq 0 ]; then
    echo "abi: $soname is as recorded, $(wc -l <"$work/names.src") functions"
  elif [ $((status & 3)) -eq 0 ] && ! grep -q '^ *\[[CD]\]' "$work/report"; then
    cat "$work/report"
    echo "abi: $soname has more than is recorded; make abi-update records it"
  else
    cat "$work/report"
    refuse "$soname takes away or changes what programs were built with. Keep what there was, or raise the number in its name"
  fi
done
exit $failed
