#!/usr/bin/env bash
# bare_debian.sh SUITE: runs README's two commands, as they stand, in a Debian that has nothing but
# its minimal base and what is committed here. For root, before a release.
set -euo pipefail

suite=${1:?usage: bare_debian.sh bookworm|trixie}
readonly suite
# shellcheck source=tools/chroot.sh
source "$(dirname "$(readlink -f "$0")")/chroot.sh"

echo "bare Debian $suite"
make_chroot "$suite"

failed=0
for command in "./dev run" "./dev test"; do
  start=$SECONDS status=0
  in_chroot "$command" || status=$?
  echo "$suite: $command: exit status $status after $((SECONDS - start)) s, packages included"
  [[ $status -eq 0 ]] || failed=1
done
exit "$failed"
