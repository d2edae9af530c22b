#!/bin/sh
# Makes the bundle's icon: renders the SVG logo at every size macOS asks for and packs them with
# iconutil. Renders with rsvg-convert when it is installed (Homebrew's librsvg), else with
# Quick Look, which every Mac has.
# Usage: make-icns.sh LOGO.svg OUTPUT.icns
set -eu
logo=$1
output=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
iconset="$work/icon.iconset"
mkdir "$iconset"

render() {  # render SIZE FILE
    if command -v rsvg-convert >/dev/null 2>&1; then
        rsvg-convert -w "$1" -h "$1" "$logo" -o "$2"
    else
        qlmanage -t -s "$1" -o "$work" "$logo" >/dev/null
        mv "$work/$(basename "$logo").png" "$2"
    fi
}

for size in 16 32 128 256 512; do
    render "$size" "$iconset/icon_${size}x${size}.png"
    render $((size * 2)) "$iconset/icon_${size}x${size}@2x.png"
done
iconutil --convert icns --output "$output" "$iconset"
