# Sourced by scripts that try something in a bare Debian: `make_chroot SUITE` makes one that has
# nothing but its minimal base, `in_chroot COMMAND` runs a shell command there, in the checkout as
# it is committed here. It is gone when the script ends. For root; packages come from the mirror
# that this machine's apt uses. Needs debootstrap and git.
# shellcheck shell=bash

root=$(git -C "$(dirname "$(readlink -f "$0")")" rev-parse --show-toplevel)
readonly root

chroot=$(mktemp -d)
readonly chroot
# shellcheck disable=SC2317 # the trap calls it
clean_up() {
  local each
  for each in "$chroot"{,.copy}/{dev/pts,dev,proc}; do
    if mountpoint -q "$each"; then umount "$each"; fi
  done
  # A mount that stays would be emptied as well.
  rm -rf --one-file-system "$chroot" "$chroot.copy"
}
trap clean_up EXIT

# Where apt gets Debian's main archive from.
mirror_of_apt() {
  # shellcheck disable=SC2016 # apt-get fills in the names
  apt-get indextargets --format '$(SITE) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' |
    awk '$3 == "main" && $2 !~ /-/ { print $1; exit }'
}

# What this machine needs to get through to the mirror goes with it.
take_network_along() {
  local each
  for each in /etc/resolv.conf /etc/hosts /etc/apt/apt.conf.d/*[Pp]roxy*; do
    if [[ -f $each ]]; then install -D -m 644 "$(readlink -f "$each")" "$chroot$each"; fi
  done
}

make_chroot() {
  local mirror
  mirror=$(mirror_of_apt)
  chmod 755 "$chroot"  # the root of all that runs there, as whatever user
  debootstrap --variant=minbase "$1" "$chroot" "$mirror" >"$chroot.log"
  rm "$chroot.log"
  take_network_along
  git clone -q --no-hardlinks "$root" "$chroot/root/cardpanels"
  mount_in "$chroot"
}

mount_in() {
  mount -t proc proc "$1/proc"
  mount --bind /dev "$1/dev"
  mount --make-private "$1/dev"  # nothing mounted there shows here
  mount -t devpts -o ptmxmode=666 devpts "$1/dev/pts"
}

# The same in a copy, where something can be built that the chroot stays bare of.
in_copy() {
  if [[ ! -e $chroot.copy ]]; then
    cp -a --one-file-system "$chroot" "$chroot.copy"
    mount_in "$chroot.copy"
  fi
  in_folder "$chroot.copy" "$1"
}

# Without an init system a package must not try to start its service: runlevel 1 has none.
in_folder() {
  chroot "$1" env -i HOME=/root LANG=C.UTF-8 TERM=dumb PATH=/usr/sbin:/usr/bin:/sbin:/bin \
    DEBIAN_FRONTEND=noninteractive RUNLEVEL=1 sh -c "cd /root/cardpanels && $2" </dev/null
}

in_chroot() {
  in_folder "$chroot" "$1"
}
