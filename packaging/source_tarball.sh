#!/usr/bin/env bash
# Makes tradebill-VERSION.tar.gz: the sources of the commit, with the viewer ready made, so that a build of them needs neither
# Node nor a network.
#
# Usage: source_tarball.sh BUILD FOLDER
# BUILD is a build that has bundled the viewer. Puts the tarball into FOLDER and says its path. From the same build and commit
# comes the same tarball, byte for byte.
set -euo pipefail
build=$1
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
output=$(cd "$2" && pwd)

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
name=tradebill-$version
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

git -C "$source" archive --prefix="$name/" HEAD | tar -x -C "$work"
mkdir -p "$work/$name/web/dist"
cp "$build"/viewer/{explore,accounts}.html "$work/$name/web/dist/"
date=$(git -C "$source" log -1 --format=%ct)
chmod -R u=rwX,go=rX "$work/$name"
tar -c -C "$work" --sort=name --mtime="@$date" --owner=0 --group=0 --numeric-owner --format=ustar "$name" |
    gzip -n -9 >"$output/$name.tar.gz"
echo "$output/$name.tar.gz"
