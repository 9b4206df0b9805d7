#!/usr/bin/env bash
# Installs the Debian packages that building needs; with the argument "bench" also those of the benchmarks, with "test"
# those of testing, which has the benchmarks too. Quick if they are there.
set -euo pipefail

build_packages=(
    g++ cmake ninja-build pkg-config
    libfreetype-dev libfontconfig-dev libpng-dev libturbojpeg0-dev zlib1g-dev
    libcli11-dev nlohmann-json3-dev nettle-dev libsqlite3-dev
    libfreexl-dev libzip-dev libpugixml-dev
    fonts-liberation fonts-arphic-uming fonts-wine
)
command -v npm >/dev/null || build_packages+=(nodejs npm)  # another build of Node has its own npm, and no such package
bench_packages=(libbenchmark-dev)
test_packages=(libgtest-dev libgmock-dev sqlite3 "${bench_packages[@]}")
test_packages+=(clang lld clang-format clang-tidy-19 libclang-rt-14-dev llvm python3-clang-14 valgrind git fonts-wqy-zenhei chromium)
test_packages+=(python3 python3-jsonschema python3-pandas python3-pip python3-setuptools python3-wheel python3-xlwt python3-yaml)
test_packages+=(mono-mcs mono-runtime)  # hosts in C#
test_packages+=(make munge parallel slurm-client slurmctld slurmd)  # the recipes of batches
test_packages+=(faketime)  # machines whose clock is set back
test_packages+=(groff-base mandoc fish zsh)  # readers of the manual, and shells that complete
test_packages+=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev googletest wine wine64 locales zip unzip)  # the Windows build

wanted=("${build_packages[@]}")
[ "${1:-}" = bench ] && wanted+=("${bench_packages[@]}")
[ "${1:-}" = test ] && wanted+=("${test_packages[@]}")

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "install as root: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
echo "installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
