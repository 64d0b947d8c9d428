#!/usr/bin/env bash
# installed_debian.sh SUITE [FOLDER]: installs the packages of what is committed here into a bare
# Debian, over the version before, prints cards from there, purges them, and looks for what is left.
# FOLDER has the packages, built on that Debian; without it they are built there first. For root,
# before a release. Needs debootstrap and git.
set -euo pipefail

suite=${1:?usage: installed_debian.sh bookworm|trixie [FOLDER]}
packages=${2:+$(readlink -f "$2")}
# shellcheck source=tools/chroot.sh
source "$(dirname "$(readlink -f "$0")")/chroot.sh"

# The same packages with a lower number, until there is a release to upgrade from.
make_older() {
  local each content
  mkdir -p "$chroot/tmp/before"
  for each in "$chroot"/tmp/packages/*.deb; do
    content=$(mktemp -d)
    dpkg-deb -R "$each" "$content"
    sed -i -E 's/^(Version: ).*/\10.0.1/; s/(cardpanels \(= )[^)]*/\10.0.1/' \
      "$content/DEBIAN/control"
    dpkg-deb -b --root-owner-group "$content" "$chroot/tmp/before" >/dev/null
    rm -rf "$content"
  done
}

# All files that packages bring or make, but for the lists of what is installed.
files() {
  in_chroot "find / -xdev -path /proc -prune -o -path /dev -prune -o -path /root -prune \
    -o -path /tmp -prune -o -path /var/cache -prune -o -path /var/lib/apt -prune \
    -o -path /var/lib/dpkg -prune -o -path /var/log -prune -o -print" | LC_ALL=C sort
}

# What the packages, and the tests in debian/tests, depend on besides the packages.
dependencies() {
  in_chroot "apt-get -q -s install --no-install-recommends /tmp/packages/*.deb" |
    awk '$1 == "Inst" && $2 !~ /^cardpanels/ { print $2 }'
  sed -n 's/^ \([a-z0-9.+-]*\),$/\1/p' "$root/debian/tests/control" |
    grep -v -e cardpanels -e allow-stderr
}

make_chroot "$suite"
if [[ -z $packages ]]; then
  in_copy "./dev package"
  packages=$chroot.copy/root/cardpanels/build/packages
fi
mkdir "$chroot/tmp/packages"
cp "$packages"/*.deb "$chroot/tmp/packages"
make_older

in_chroot "apt-get -q update" >/dev/null
mapfile -t needed < <(dependencies | LC_ALL=C sort -u)
in_chroot "apt-get -q install -y --no-install-recommends ${needed[*]}" >/dev/null
before=$(files)

install="apt-get -q install -y --no-install-recommends"
in_chroot "$install /tmp/before/*.deb" >/dev/null
echo "$suite: installed: $(in_chroot "dpkg-query -W -f '\${Package} \${Version}, ' 'cardpanels*'")"
in_chroot "$install /tmp/packages/*.deb" >/dev/null
echo "$suite: upgraded: $(in_chroot "dpkg-query -W -f '\${Package} \${Version}, ' 'cardpanels*'")"

for test in cardprint dialogs; do
  in_chroot "debian/tests/$test"
  echo "$suite: debian/tests/$test passed"
done

in_chroot "apt-get -q purge -y 'cardpanels*'" >/dev/null
left=$(LC_ALL=C comm -13 <(echo "$before") <(files))
# GTK 4's package writes down the modules that there are.
left+=$(in_chroot "grep -r cardpanels /usr/lib/*/gtk-4.0" || true)
registered=$(in_chroot "dpkg-query -W 'cardpanels*' 2>&1" || true)
if [[ -n $left || $registered != *"no packages found"* ]]; then
  printf '%s: left after the purge:\n%s\n%s\n' "$suite" "$left" "$registered" >&2
  exit 1
fi
echo "$suite: nothing is left after the purge"
