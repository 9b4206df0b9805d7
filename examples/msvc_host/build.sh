#!/usr/bin/env bash
# Builds host.exe as Microsoft's compiler would, with LLVM's compiler and linker (Debian: clang, lld, llvm): for the target
# x86_64-pc-windows-msvc, without a C runtime and without Microsoft's headers and libraries.
#
# Usage: build.sh INSTALLED FOLDER
# INSTALLED has include/ and lib/ of the module for Windows; FOLDER gets host.exe, linked against lib/TradeBill.lib, and
# host_def.exe, against an import library made of lib/TradeBill.def.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
installed=$1 folder=$2
mkdir -p "$folder"
clang --target=x86_64-pc-windows-msvc -std=c99 -O1 -ffreestanding -fno-builtin -Wall -Wextra -Werror -I "$installed/include" \
    -c "$here/host.c" -o "$folder/host.obj"
llvm-dlltool -m i386:x86-64 -d "$here/kernel32.def" -l "$folder/kernel32.lib"
llvm-dlltool -m i386:x86-64 -D TradeBill.dll -d "$installed/lib/TradeBill.def" -l "$folder/FromDef.lib"
for pair in "host.exe $installed/lib/TradeBill.lib" "host_def.exe $folder/FromDef.lib"; do
    read -r program library <<<"$pair"
    lld-link -nodefaultlib -entry:Start -subsystem:console "-out:$folder/$program" "$folder/host.obj" "$library" \
        "$folder/kernel32.lib"
done
