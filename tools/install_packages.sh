#!/usr/bin/env bash
# Installs from the distribution what building and testing need and the machine lacks. Nothing is touched, and no
# network asked, where all is there.
#
#   tools/install_packages.sh [run|test|tidy]     what for: the workbench alone, all tests as well, or reading the sources
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config qt6-base-dev libgl-dev libcli11-dev fonts-dejavu-core libcrypt-dev libshp-dev
          unixodbc-dev libxlsxwriter-dev libpugixml-dev libsqlite3-dev nlohmann-json3-dev)
if [ "${1:-test}" != run ]; then
  packages+=(git python3 libgtest-dev libgmock-dev locales clang libclang-rt-14-dev clang-format qt6-qpa-plugins)
fi
[ "${1:-test}" != tidy ] || packages+=(clang-tidy)

missing=()
for package in "${packages[@]}"; do
  # A package that another one provides (libgl-dev) counts as well.
  dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
