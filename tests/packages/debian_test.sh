#!/bin/sh
# Installs the Debian packages in a bare Debian root, uses them and purges them:
#   debian_test.sh PACKAGES ROOT FOLDER
# ROOT stays as it is; what happens, happens to a copy in FOLDER.
set -eu
packages=$1 bare=$2 folder=$3
source=$(CDPATH='' cd -- "$(dirname -- "$0")/../.." && pwd)
. "$source/cmake/common.sh"

fail() {
  say "Debian packages: $*"
  exit 1
}

inside() { in_root "$folder/root" "$@"; }

inventory() {
  inside dpkg-query --show
  inside find / -xdev \( -path /kova -o -path /proc -o -path /dev -o -path /tmp -o -path /var/cache \
    -o -path /var/lib/apt -o -path /var/log \) -prune -o -print | grep -v '^/var/lib/dpkg/[^/]*-old$' | sort
}

# The package's name at the front of the file's, and its version.
set -- "$packages"/libkova[0-9]*.deb
[ -e "$1" ] && [ $# = 1 ] || fail "one package of the library should be in $packages: $*"
version=$(dpkg-deb --field "$1" Version)
series=${version%.*}
[ "$(dpkg-deb --field "$1" Package)" = "libkova$series" ] || fail "$1 should be named libkova$series"

as_root rm -rf "$folder/root"
mkdir -p "$folder"
as_root cp -a "$bare" "$folder/root"
as_root mkdir "$folder/root/kova"
as_root cp "$packages"/*.deb "$source/examples/models/flanged-bearing.stl" "$folder/root/kova"
inventory >"$folder/before"

# Without the library the others refuse.
for package in kova-tools libkova-dev; do
  if inside dpkg --install "/kova/${package}_${version}_$(dpkg --print-architecture).deb" >"$folder/log" 2>&1; then
    fail "$package was installed without the library"
  fi
  grep -q "$package depends on libkova$series (= $version)" "$folder/log" || fail "$(cat "$folder/log")"
  inside dpkg --purge "$package" >"$folder/log"
done

# Nothing but what is in the bare root is needed.
inside sh -c 'apt-get install -y -o Dpkg::Use-Pty=0 -o Dir::Etc::SourceList=/dev/null /kova/*.deb' \
  >"$folder/log" 2>&1 || fail "$(cat "$folder/log")"
said=$(inside kova-translate --version)
[ "$said" = "kova-translate $version" ] || fail "kova-translate --version says: $said"
inside kova-translate /kova/flanged-bearing.stl /kova/bearing.obj >"$folder/log" 2>&1 || fail "$(cat "$folder/log")"
[ "$(grep -c '^f ' "$folder/root/kova/bearing.obj")" = 4512 ] || fail 'the translated model has not 4512 faces'

for file in man/man1/kova-translate.1 bash-completion/completions/kova-translate zsh/vendor-completions/_kova-translate; do
  [ -s "$folder/root/usr/share/$file" ] || fail "$file is missing"
done

# A program that is built with the installed development files needs the library by its series.
rm -rf "$folder/hello"
cmake -G Ninja -S "$source/tests/consumer" -B "$folder/hello" -Dway=find_package \
  -DCMAKE_PREFIX_PATH="$folder/root/usr" \
  -Dwanted_version="$version" -Dwanted_components=library,tools >"$folder/log" 2>&1 || fail "$(cat "$folder/log")"
cmake --build "$folder/hello" >"$folder/log" || fail "$(cat "$folder/log")"
readelf --dynamic "$folder/hello/hello" | grep -q "NEEDED.*\[libkova.so.$series\]" ||
  fail "hello does not need libkova.so.$series"
as_root cp "$folder/hello/hello" "$folder/root/kova"
said=$(inside /kova/hello 2>&1) || fail "hello fails: $said"
[ "$said" = 'Message : models\part.obj is not here' ] || fail "hello says: $said"

inside apt-get purge -y -o Dpkg::Use-Pty=0 "libkova$series" libkova-dev libkova-doc kova-tools \
  >"$folder/log" 2>&1 || fail "$(cat "$folder/log")"
inventory >"$folder/after"
diff "$folder/before" "$folder/after" >&2 || fail 'purging leaves or takes what it should not'
as_root rm -rf "$folder/root"
echo "Debian packages $version: installed, run and purged in a bare root"
