#!/usr/bin/env bash
# Installs the build into a temporary staging folder, as a package would, and
# checks what the desktop finds there: the program in bin, a desktop entry that
# desktop-file-validate accepts, and the icon it names in the icon theme.
set -euo pipefail
cmake_command="$1"
build="$2"

stage="$(mktemp -d)"
trap 'rm -rf "$stage"' EXIT
DESTDIR="$stage" "$cmake_command" --install "$build" --prefix /usr >/dev/null
root="$stage/usr"

fail() { echo "FAIL: $*" >&2; exit 1; }

[ -x "$root/bin/chengchuan" ] || fail "no executable bin/chengchuan"
# The build tree's marker would make the installed program write beside itself.
[ -z "$(find "$stage" -name chengchuan-build-tree)" ] || fail "the build-tree marker was installed"

entry="$root/share/applications/chengchuan.desktop"
[ -f "$entry" ] || fail "no desktop entry"
report="$(desktop-file-validate "$entry" 2>&1)" || fail "desktop-file-validate: $report"
[ -z "$report" ] || fail "desktop-file-validate: $report"
grep -qx 'Name=澄川号码分析台' "$entry" || fail "the entry's name"
grep -qE '^Comment=.+' "$entry" || fail "the entry's comment"
grep -qE '^Categories=.+;$' "$entry" || fail "the entry's categories"
grep -qx 'Exec=chengchuan' "$entry" || fail "the entry's command"

icon_name="$(sed -n 's/^Icon=//p' "$entry")"
icon="$root/share/icons/hicolor/scalable/apps/$icon_name.svg"
[ -s "$icon" ] || fail "no icon $icon_name in the theme"
grep -q '<svg' "$icon" || fail "the icon is not an SVG picture"
echo "installed and valid"
