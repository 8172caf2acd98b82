#!/usr/bin/env bash
# refuses.sh BUILD: what the comparison must refuse, tried on copies of the headers: a function that is gone, another
# type of a parameter, another value of a status, a longer element. What is new is named and passes the record.
set -euo pipefail
build=$(realpath "$1")
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
try() { # try FILE EDIT SAYS
  rm -rf "$work/include" && cp -r ../../include "$work/include"
  sed -i "$2" "$work/include/zors/$1"
  if cmp -s "../../include/zors/$1" "$work/include/zors/$1"; then echo "abi: '$2' changes nothing"; exit 1; fi
  if ./run.sh check "$build" "$work/include" >"$work/says"; then echo "abi: '$2' is not refused"; exit 1; fi
  grep -q "$3" "$work/says" || { cat "$work/says"; echo "abi: '$2' is refused without the words '$3'"; exit 1; }
}
try arithmetic.h '/ zorsAdd_16s(/d' "^abi: .*takes away or changes"
try arithmetic.h 's/ zorsAdd_16s(const Zor16s/ zorsAdd_16s(const Zor8s/' "'const Zor16s' changed to 'const Zor8s'"
try types.h 's/zorStatusBadOrder = -15/zorStatusBadOrder = -14/' "zorStatusBadOrder' from value '-15' to '-14'"
try types.h 's/Zor16s re, im;/Zor16s re, im, more;/' 'size changed from 32 to 48'
try arithmetic.h 's/ZorStatus zorsAdd_16s(/ZorStatus zorsAdd_16new(const Zor16s* src); &/' 'has more than is recorded'
echo "abi: what must be refused is"
