#!/usr/bin/env bash
# Installs what a task needs from Debian's packages, only what is missing.
#   install-packages.sh build | test | lint | package
set -euo pipefail

build=(build-essential cmake ninja-build pkg-config qt6-base-dev qt6-charts-dev qt6-svg-dev
       libqt6opengl6-dev libgl1-mesa-dev libsqlite3-dev libcurl4-openssl-dev libpcre2-dev libgsf-1-dev
       nlohmann-json3-dev libcpp-httplib-dev ca-certificates libgtest-dev libgmock-dev libfreexl-dev
       fonts-noto-cjk qt6-translations-l10n python3 cmark-gfm)
test=("${build[@]}" python3-xlrd)
lint=("${test[@]}" clang-format clang-tidy clang libclang-rt-14-dev ccache mold)
package=("${build[@]}" dpkg-dev lintian desktop-file-utils appstream)

case "${1:-}" in
    build) wanted=("${build[@]}") ;;
    test) wanted=("${test[@]}") ;;
    lint) wanted=("${lint[@]}") ;;
    package) wanted=("${package[@]}") ;;
    *) echo "usage: $0 build|test|lint|package" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
        missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}"
