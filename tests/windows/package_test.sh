#!/usr/bin/env bash
# Makes the zip for developers of hosts and does with it what they do: looks what is inside, unpacks it, makes a report
# with the program, builds the guide's first host and makes another one. Under Wine, in the prefix WINEPREFIX.
#
# Usage: package_test.sh SOURCE BUILD WORK
# WORK is made anew.
set -euo pipefail
source=$(cd "$1" && pwd) build=$(cd "$2" && pwd) work=$3
compiler=x86_64-w64-mingw32-gcc-posix
page=root/Users/demo/Data/Bill/Image/TradeBill.html

rm -rf "$work"
mkdir -p "$work/again"
cd "$work"

zip=$("$source/packaging/windows_zip.sh" "$build" .)
name=$(basename "$zip" .zip)
[[ $name =~ ^tradebill-[0-9]+\.[0-9]+\.[0-9]+-windows-x64$ ]]
"$source/packaging/windows_zip.sh" "$build" again >/dev/null
cmp "$zip" "again/$name.zip"

{
    cat <<'FILES'
README.txt
bin/TradeBill.dll
bin/tradebill.exe
docs/embedding.md
docs/hosts.md
examples/c_host/account.c
examples/csharp_host/Host.cs
examples/csharp_host/TradeBill.cs
examples/python_host/host.py
examples/python_host/linux_side.py
examples/python_host/tradebill.py
examples/python_host/windows_side.py
include/tradebill/report_error.h
include/tradebill/report_request.h
include/tradebill/report/money_record.h
include/tradebill/tradebill.h
lib/cmake/tradebill/tradebillConfig.cmake
lib/cmake/tradebill/tradebillConfigVersion.cmake
lib/TradeBill.def
lib/TradeBill.lib
share/tradebill/units.ini
FILES
    git -C "$source" ls-files templates | sed 's|^|share/tradebill/|'
    git -C "$source" ls-files examples/cpp_host examples/csharp_reports examples/msvc_host examples/windows_host python samples
} | sed "s|^|$name/|" | LC_ALL=C sort >expected
unzip -Z1 "$zip" >listed
diff expected listed

unzip -q "$zip"
cd "$name"
[ "$(grep -c $'\r$' README.txt)" = "$(wc -l <README.txt)" ]
version=${name#tradebill-}
[ "$(head -n 1 README.txt | tr -d '\r')" = "tradebill ${version%-windows-x64} for 64-bit Windows" ]

wine bin/tradebill.exe report --root samples/fund-status/root --request samples/fund-status/request.ini \
    --units samples/fund-status/units.ini --quiet
tail -c 18 "samples/fund-status/$page" | grep -q '</html>'
rm "samples/fund-status/$page"

"$compiler" -std=c99 -Wall -Wextra -Werror -I include examples/c_host/account.c lib/TradeBill.lib -o bin/account.exe
wine bin/account.exe samples/fund-status/root samples/one-year/root | tr -d '\r' >said
diff said - <<'END'
samples/fund-status/root: 35 days
25 statements, 944 records, 0 errors
samples/one-year/root: 378 days
250 statements, 29885 records, 0 errors
END

sed -n '/^```c$/,/^```$/{//!p;/^```$/q}' docs/embedding.md >host.c
"$compiler" -std=c99 -Wall -Wextra -Werror -I include host.c lib/TradeBill.lib -o bin/host.exe
[ "$(wine bin/host.exe | tr -d '\r')" = 0x00000000 ]
tail -c 18 "samples/fund-status/$page" | grep -q '</html>'
