#!/usr/bin/env bash
# bare_debian.sh SUITE: runs README's two commands, as they stand, in a Debian that has nothing but
# its minimal base and what is committed here. For root, before a release; takes packages from the
# mirror that this machine's apt uses. Needs debootstrap and git.
set -euo pipefail

suite=${1:?usage: bare_debian.sh bookworm|trixie}
root=$(git -C "$(dirname "$(readlink -f "$0")")" rev-parse --show-toplevel)
readonly suite root

chroot=$(mktemp -d)
readonly chroot
# shellcheck disable=SC2317 # the trap calls it
clean_up() {
  local each
  for each in dev proc; do
    if mountpoint -q "$chroot/$each"; then umount "$chroot/$each"; fi
  done
  # A mount that stays would be emptied as well.
  rm -rf --one-file-system "$chroot"
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

in_chroot() {
  chroot "$chroot" env -i HOME=/root LANG=C.UTF-8 TERM=dumb PATH=/usr/sbin:/usr/bin:/sbin:/bin \
    sh -c "cd /root/cardpanels && $1" </dev/null
}

mirror=$(mirror_of_apt)
echo "bare Debian $suite"
debootstrap --variant=minbase "$suite" "$chroot" "$mirror" >"$chroot.log"
rm "$chroot.log"
take_network_along
mount -t proc proc "$chroot/proc"
mount --bind /dev "$chroot/dev"
git clone -q --no-hardlinks "$root" "$chroot/root/cardpanels"

failed=0
for command in "./dev run" "./dev test"; do
  start=$SECONDS status=0
  in_chroot "$command" || status=$?
  echo "$suite: $command: exit status $status after $((SECONDS - start)) s, packages included"
  [[ $status -eq 0 ]] || failed=1
done
exit "$failed"
