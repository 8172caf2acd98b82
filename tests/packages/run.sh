#!/usr/bin/env bash
# run.sh FOLDER: its packages under lintian; then installed, used and removed. The root is scratch: this system as it is,
# below a layer that takes all that is written and goes when the test ends.
set -euo pipefail
if [ "${2:-}" != inside ]; then
  lintian --allow-root --tag-display-limit 0 --fail-on error,warning "$1"/*.changes
  echo "packages: lintian has nothing to say"
  exec $([ "$(id -u)" = 0 ] || echo sudo) unshare --mount "$0" "$(realpath "$1")" inside
fi

source=$(cd "$(dirname "$0")/../.." && pwd)
place=$(mktemp -d)
mount -t tmpfs scratch "$place" # goes with this name space
trap 'umount -R "$place" 2>/dev/null || umount -Rl "$place"; rmdir "$place"' EXIT
root=$place/root
mkdir "$place"/{written,work,root}
mount -t overlay scratch -o "lowerdir=/,upperdir=$place/written,workdir=$place/work" "$root"
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mkdir "$root/try"
cp "$1"/*.deb "$source/examples/first_filter.c" "$source/examples/cpp_blocks.cpp" "$source/tests/installed/consumer/core.c" \
   "$source/tests/installed/consumer/CMakeLists.txt" "$root/try"

cat >"$root/try/try.sh" <<'INSIDE'
set -Eeuo pipefail
trap 'echo "packages: this fails: $BASH_COMMAND"' ERR
cd /try
say() { echo "packages: $*"; }
says() { grep -e "$1" >/dev/null; }
tree() { find /usr /etc /var/lib/dpkg/info -iname '*zors*' | sort; }
packages=$(for file in *.deb; do dpkg-deb --field "$file" Package; done)
before=$(tree)
dpkg -i ./*.deb >dpkg.log || { cat dpkg.log; exit 1; }
[ -z "$(dpkg --audit $packages)" ]
dpkg --verify $packages
ldconfig -p | says 'libzorsl9.so.8 '
say "installed: $(dpkg-query -W -f '${Package} ${Version}, ${Installed-Size} KiB; ' $packages)"

gcc -std=c99 first_filter.c -o c $(pkg-config --cflags --libs zorsl9)
g++ -std=c++20 cpp_blocks.cpp -o cpp $(pkg-config --cflags --libs zorsl9)
gcc core.c -o core -lzorcore
[ "$(./c | tr -d '[:space:]')" = 123432 ]
./cpp | says '-3.0 dB'
./core | says '^aligned$'
ldd ./c | says '=> /.*/libzorcore-8.2.so'
cmake -S . -B by-cmake -DFROM=package -DPROGRAMS=/try >/dev/null
cmake --build by-cmake >/dev/null
by-cmake/consumer_cpp | says '-3.0 dB'
gcc -fsyntax-only /usr/share/doc/libzorsl9-dev/examples/first_filter.c
if grep -qw zorsl9-doc <<<"$packages"; then
  [ -s /usr/share/doc/zorsl9-doc/html/index.html ]
  man -w 3 zorsFIR_32f >/dev/null
fi
say "used by pkg-config, by CMake and by plain flags"

dpkg --purge $packages >dpkg.log || { cat dpkg.log; exit 1; }
[ "$(tree)" = "$before" ] || { say "left behind: $(tree)"; exit 1; }
if ldconfig -p | says zorsl9; then say "the loader still knows the library"; exit 1; fi
say "removed without a trace"
INSIDE
chroot "$root" bash /try/try.sh
