#!/usr/bin/env bash
# run.sh BUILD CC: installs into a prefix of its own, moves the tree, and runs a program linked with it there: the library
# must find its neighbour wherever the tree stands. C sees every section alone, too.
set -euo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$1" --prefix "$place/first" >/dev/null
mv "$place/first" "$place/moved"
library=$(dirname "$(find "$place/moved" -name libzorsl9.so)")
"$2" -std=c99 -Wall -Wextra -Werror -I"$place/moved/include" "$source/examples/first_filter.c" -L"$library" -lzorsl9 \
  -Wl,-rpath-link,"$library" -Wl,-rpath,"$library" -lm -o "$place/first_filter"
[ "$("$place/first_filter" | tr -d '[:space:]')" = 123432 ]
for header in "$place"/moved/include/zors/*.h; do
  echo "#include \"zors/$(basename "$header")\"" | "$2" -std=c99 -Wall -Wextra -Werror -pedantic -fsyntax-only -I"$place/moved/include" -x c -
done
