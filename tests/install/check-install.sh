#!/bin/sh
# Usage: check-install.sh install|package BUILD_DIR APP_ID VERSION
# Installs the build into a temporary root with cmake --install, or makes the .deb with cpack,
# shows its control data and contents, fails on any lintian error or warning and unpacks it. The
# root must then hold exactly the expected files, the desktop entry and the metainfo must pass
# their validators, and the installed program must answer --version and --help.
set -eu
kind=$1 build=$2 id=$3 version=$4 work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root share=$work/root/usr/share
if [ "$kind" = install ]; then
    DESTDIR=$root cmake --install "$build" --prefix /usr >/dev/null
else
    cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work" >/dev/null
    deb=$(echo "$work"/*.deb)
    dpkg-deb --info "$deb" && dpkg-deb --contents "$deb"
    # dpkg-shlibdeps found the libraries, and the named one is there
    dpkg-deb --field "$deb" Depends | grep 'libqt6widgets6' | grep -q 'libexiv2-27'
    lintian --fail-on error,warning "$deb"
    dpkg-deb -x "$deb" "$root"
fi
installed=$(cd "$root" && find . -type f | sed 's|^\./||' | LC_ALL=C sort)
expected="usr/bin/velmora
usr/share/applications/$id.desktop
usr/share/doc/velmora/changelog.gz
usr/share/doc/velmora/copyright
usr/share/icons/hicolor/scalable/apps/$id.svg
usr/share/man/man1/velmora.1.gz
usr/share/metainfo/$id.metainfo.xml"
[ "$installed" = "$expected" ] || { printf 'Installed:\n%s\nExpected:\n%s\n' "$installed" "$expected"; exit 1; }
desktop=$share/applications/$id.desktop
report=$(desktop-file-validate "$desktop" 2>&1 || true)
[ -z "$report" ] || { echo "desktop-file-validate: $report"; exit 1; }
appstreamcli validate --no-net "$share/metainfo/$id.metainfo.xml"
# What the entry starts and shows is what was installed.
[ -x "$root/usr/bin/$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$desktop")" ]
[ -f "$share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$desktop").svg" ]
unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY  # neither needs a display
[ "$("$root/usr/bin/velmora" --version)" = "Velmora $version" ]
"$root/usr/bin/velmora" --help | grep -q 'FOLDER'
