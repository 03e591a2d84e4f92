#!/bin/bash
# Installs what building, testing and running Strativo on Debian 12 needs. Does nothing when everything is there.
set -euo pipefail

packages=(
  # compilers and build
  build-essential cmake ninja-build ccache
  # what the product is made of; its interpreter is the system's, /usr/bin/python3
  qtbase5-dev libqt5svg5-dev libboost-python-dev libproj-dev libsegyio-dev
  python3 python3-dev python3-distutils python3-jedi python3-parso python3-pip python3-pip-whl python3-numpy
  # documentation
  python3-sphinx furo
  # tests and pictures: windows are drawn without a screen and need a font all the same
  libgtest-dev python3-joblib python3-segyio python3-zarr xvfb xauth xdotool imagemagick fonts-dejavu-core libgl1-mesa-dri
  # style checks
  clang-format clang-tidy
)

if ! command -v dpkg-query >/dev/null; then
  echo "setup: this is not a Debian system; install the counterparts of these packages: ${packages[*]}" >&2
  exit 1
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $EUID -ne 0 ]]; then
  if ! command -v sudo >/dev/null; then
    echo "setup: there is no sudo; run this as root: apt-get install ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

apt_get() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y "$@"
}

echo "setup: installing ${missing[*]}"
# Package lists that are missing or out of date show only when the installation fails.
apt_get install --no-install-recommends "${missing[@]}" || {
  apt_get update
  apt_get install --no-install-recommends "${missing[@]}"
}
