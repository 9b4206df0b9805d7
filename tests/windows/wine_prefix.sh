#!/usr/bin/env bash
# Makes a Wine prefix in which the tests run: a Chinese system whose faces are the font files that Linux paints with.
# Usage: wine_prefix.sh BUILD
# What a test must set to use it is in wine_env.sh.
set -euo pipefail
build=$1
source "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh" "$build"

rm -rf "$build/wine"
mkdir -p "$build/wine/locales"
# Names of files and the code page follow the locale, which needn't be one of the machine's own.
localedef -i zh_CN -f UTF-8 "$build/wine/locales/zh_CN.UTF-8"
wineboot --init >"$build/wine/boot.log" 2>&1
ln -s /usr/share/wine/fonts/tahoma*.ttf "$WINEPREFIX/drive_c/windows/Fonts"

cat >"$build/wine/fonts.reg" <<'REG'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"Arial"="Liberation Sans"
"SimSun"="WenQuanYi Zen Hei"
"宋体"="AR PL UMing CN"
REG
iconv -f UTF-8 -t GBK "$build/wine/fonts.reg" >"$build/wine/fonts_gbk.reg"
wine regedit "$build/wine/fonts_gbk.reg" >>"$build/wine/boot.log" 2>&1
wineserver -w
