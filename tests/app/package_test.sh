#!/usr/bin/env bash
# Builds the Debian package from the build folder, as `cpack -G DEB` there
# does, and checks it: its name, the dependencies that dpkg-shlibdeps found in
# the executable, the files that the desktop finds, an AppStream metainfo that
# appstreamcli accepts, and no error from lintian.
set -euo pipefail
cpack_command="$1"
build="$2"
version="$3"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

(cd "$build" && "$cpack_command" -G DEB -B "$work" >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log" >&2; fail "cpack"; }
deb="$work/chengchuan_${version}_$(dpkg --print-architecture).deb"
[ -f "$deb" ] || fail "no package $(basename "$deb"): $(ls "$work")"

field() { dpkg-deb --field "$deb" "$1"; }
[ "$(field Package)" = chengchuan ] || fail "the package's name"
[ "$(field Version)" = "$version" ] || fail "the package's version"
depends="$(field Depends)"
for library in libqt6widgets6 libqt6charts6 libqt6network6 libgumbo1 libc6 qt6-qpa-plugins; do
  grep -qE "(^|, )$library( |,|$)" <<<"$depends" || fail "no dependency on $library: $depends"
done

contents="$(dpkg-deb --contents "$deb" | awk '{ print $NF }')"
for file in ./usr/bin/chengchuan ./usr/share/applications/chengchuan.desktop \
  ./usr/share/icons/hicolor/scalable/apps/chengchuan.svg ./usr/share/metainfo/example.chengchuan.chengchuan.metainfo.xml \
  ./usr/share/doc/chengchuan/copyright ./usr/share/doc/chengchuan/changelog.gz ./usr/share/man/man1/chengchuan.1.gz; do
  grep -qxF "$file" <<<"$contents" || fail "no $file in the package"
done
! grep -q chengchuan-build-tree <<<"$contents" || fail "the build-tree marker is in the package"

dpkg-deb --extract "$deb" "$work/root"
metainfo="$work/root/usr/share/metainfo/example.chengchuan.chengchuan.metainfo.xml"
report="$(appstreamcli validate --no-net "$metainfo" 2>&1)" || fail "appstreamcli: $report"
for element in '<project_license>GPL-3.0-or-later</project_license>' '<metadata_license>FSFAP</metadata_license>' \
  '<summary xml:lang="zh-CN">' '<caption>' '<caption xml:lang="zh-CN">' \
  "<release version=\"$version\"" '<launchable type="desktop-id">chengchuan.desktop</launchable>'; do
  grep -qF "$element" "$metainfo" || fail "the metainfo lacks $element"
done

report="$(lintian --fail-on error "$deb" 2>&1)" || fail "lintian: $report"
echo "package $(basename "$deb") built and valid"
