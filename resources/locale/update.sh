#!/bin/sh
# Collects the texts that people see into cardpanels.pot and merges it into the .po files.
# With --check it changes nothing and fails when cardpanels.pot is not up to date.
set -eu
export LC_ALL=C.UTF-8

here=$(dirname "$(readlink -f "$0")")
cd "$here/../.."

temporary=$(mktemp -d)
trap 'rm -rf "$temporary"' EXIT
pot=$temporary/cardpanels.pot
touch "$temporary/collected.pot"

collect() {
  xgettext --join-existing --output="$temporary/collected.pot" --from-code=UTF-8 \
    --add-location=file --add-comments=Translators: "$@"
}

# xgettext knows no `key = text`: each text becomes _("text") in a copy under the same name.
strings=resources/cardpanels.strings
mkdir "$temporary/resources"
sed -n '/^#/d; s/[\\"]/\\&/g; s/^[^=]*=[[:blank:]]*\(.*[^[:blank:]]\)[[:blank:]]*$/_("\1")/p' \
  "$strings" >"$temporary/$strings"
collect --directory="$temporary" --language=C --keyword=_ "$strings"

find platform host dialog ports/gtk3 apps -name '*.cpp' -o -name '*.h' | sort >"$temporary/sources"
collect --language=C++ --keyword=_ --files-from="$temporary/sources"

find resources/ui -name '*.ui' | sort >"$temporary/views"
collect --language=Glade --files-from="$temporary/views"

# xgettext's own header has the day in it, and blanks to fill in.
cat >"$pot" <<'END'
msgid ""
msgstr ""
"Project-Id-Version: cardpanels\n"
"MIME-Version: 1.0\n"
"Content-Type: text/plain; charset=UTF-8\n"
"Content-Transfer-Encoding: 8bit\n"

END
sed '1,/^$/d' "$temporary/collected.pot" >>"$pot"

if [ "${1-}" = --check ]; then
  diff -u "$here/cardpanels.pot" "$pot" >&2 || {
    echo "resources/locale/update.sh: cardpanels.pot is not up to date; run this without --check" >&2
    exit 1
  }
  exit 0
fi
cp "$pot" "$here/cardpanels.pot"
for po in "$here"/*.po; do
  msgmerge --quiet --update --backup=none --no-fuzzy-matching --add-location=file "$po" "$pot"
done
