#!/usr/bin/env bash
# run.sh BUILD: installs into a prefix of its own, moves the tree, and uses it there as somebody else's project would: by
# CMake, by pkg-config and by plain flags, in C99 and in C++20, with every compiler that is here. Each way runs the program:
# the library must find its neighbour wherever the tree stands.
set -Eeuo pipefail
trap 'echo "installed: this fails: $BASH_COMMAND"' ERR
source=$(cd "$(dirname "$0")/../.." && pwd)
here=$source/tests/installed/consumer
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
say() { echo "installed: $*"; }

cmake --install "$1" --prefix "$place/first" >/dev/null
mv "$place/first" "$place/moved"
tree=$place/moved
library=$(dirname "$(find "$tree" -name libzorsl9.so)")
if grep -rlI --exclude-dir=include -e "$place" -e "$source" "$tree"; then say "these files name a folder"; exit 1; fi

runs() { # runs PROGRAM: it says what it should
  case $1 in
    *_cpp) "$1" | grep -- '-3.0 dB' >/dev/null ;;
    *_core) [ "$("$1")" = aligned ] ;;
    *) [ "$("$1" | tr -d '[:space:]')" = 123432 ] ;;
  esac || { say "$1 says something else"; exit 1; }
}

flags="-Wall -Wextra -Werror -pedantic"
for compilers in "gcc g++" "clang clang++"; do
  read -r cc cxx <<<"$compilers"
  command -v "$cxx" >/dev/null || { say "no $cxx"; continue; }
  to=$place/$cc
  mkdir "$to"

  cmake -S "$here" -B "$to/cmake" -G Ninja -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" -DFROM=package \
    -DPROGRAMS="$source/examples" -DCMAKE_PREFIX_PATH="$tree" >/dev/null
  cmake --build "$to/cmake" >/dev/null
  for program in consumer_c consumer_cpp consumer_core; do runs "$to/cmake/$program"; done
  say "$cxx, CMake: well"

  export PKG_CONFIG_PATH=$library/pkgconfig
  [ "$(pkg-config --modversion zorsl9)" = 8.2.3 ]
  # shellcheck disable=SC2046
  "$cc" -std=c99 $flags "$source/examples/first_filter.c" -o "$to/pc_c" $(pkg-config --cflags --libs zorsl9) -Wl,-rpath,"$library"
  # shellcheck disable=SC2046
  "$cxx" -std=c++20 $flags "$source/examples/cpp_blocks.cpp" -o "$to/pc_cpp" $(pkg-config --cflags --libs zorsl9) -Wl,-rpath,"$library"
  # shellcheck disable=SC2046
  "$cc" -std=c99 $flags "$here/core.c" -o "$to/pc_core" $(pkg-config --cflags --libs zorcore) -Wl,-rpath,"$library"
  for program in pc_c pc_cpp pc_core; do runs "$to/$program"; done
  say "$cxx, pkg-config: well"

  "$cc" -std=c99 $flags "$source/examples/first_filter.c" -o "$to/plain_c" -I"$tree/include" -L"$library" -lzorsl9
  "$cxx" -std=c++20 $flags "$source/examples/cpp_blocks.cpp" -o "$to/plain_cpp" -I"$tree/include" -L"$library" -lzorsl9
  for program in plain_c plain_cpp; do LD_LIBRARY_PATH=$library runs "$to/$program"; done
  say "$cxx, plain flags: well"
done
# Each header stands alone.
for header in "$tree"/include/zors/*.h; do
  echo "#include \"zors/$(basename "$header")\"" | cc -std=c99 $flags -fsyntax-only -I"$tree/include" -x c -
done
for header in "$tree"/include/zors/hpp/*.hpp; do
  c++ -std=c++20 $flags -Wconversion -Wshadow -fsyntax-only -I"$tree/include" -include "$header" -x c++ /dev/null
done
c++ -std=c++20 $flags -fno-exceptions -fno-rtti -fsyntax-only -I"$tree/include" -include "$tree/include/zors.hpp" -x c++ /dev/null

# From the sources: only what is quick is built, which shows that the targets are there and that neither tests, benchmarks,
# demos nor installation come along.
for from in subdirectory fetch; do
  to=$place/$from
  cmake -S "$here" -B "$to" -G Ninja -DFROM=$from -DSOURCE="$source" -DPROGRAMS="$source/examples" >/dev/null
  ninja -C "$to" consumer_core CMakeFiles/consumer_c.dir"$source"/examples/first_filter.c.o >/dev/null
  runs "$to/consumer_core"
  grep -q ' -O3 ' "$to/build.ninja"
  if ninja -C "$to" -t targets all | grep -E '_tests|_bench:|telephone_band'; then say "$from brings tests or demos"; exit 1; fi
  cmake --install "$to" --prefix "$to/installed" >/dev/null
  [ -z "$(find "$to/installed" -type f 2>/dev/null)" ] || { say "$from installs files"; exit 1; }
  say "$from: well"
done
