#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Installs what is missing of the named groups of Debian packages, without questions; silent when nothing is missing.
#   tools/install_packages.sh build run test wayland bench tidy fuzz
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
log=$root/build/log/packages.log

packages_of() {
    case $1 in
    build) echo g++ cmake ninja-build libcli11-dev qt6-base-dev qt6-svg-dev ;;
    # A window needs letters: Qt brings no font. Its xcb platform plug-in comes with its Gui library.
    run) echo libqt6widgets6 libqt6svg6 fonts-dejavu-core ;;
    # Only for a session that offers no X server beside Wayland.
    wayland) echo qt6-wayland ;;
    test)
        echo libgtest-dev libgmock-dev locales util-linux procps
        # The window tests: a display, a window manager, the accessibility tree, keys and screenshots.
        echo xvfb xauth openbox xdotool x11-utils dbus dbus-x11 at-spi2-core imagemagick qt6-gtk-platformtheme
        echo python3 python3-gi python3-pyatspi gir1.2-atspi-2.0
        ;;
    bench) echo libbenchmark-dev r-base-core r-cran-data.table time ;;
    tidy) echo clang-tidy clang-format ;;
    fuzz) echo clang libclang-rt-14-dev ;;
    *)
        echo "install_packages: there is no group \"$1\" (build, run, wayland, test, bench, tidy, fuzz)" >&2
        return 2
        ;;
    esac
}

is_installed() {
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif [[ -t 0 ]]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 \
        apt-get -y -qq -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 "$@" </dev/null >>"$log" 2>&1
}

missing=()
for group in "$@"; do
    names=$(packages_of "$group")
    for package in $names; do
        is_installed "$package" || missing+=("$package")
    done
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

if ! command -v apt-get >/dev/null; then
    echo "Tarvelint's scripts set up Debian 12 and its relatives. Please install by hand: ${missing[*]}" >&2
    exit 1
fi
if [[ $(id -u) -ne 0 ]] && ! command -v sudo >/dev/null; then
    echo "These packages are missing, and installing them takes root or sudo, of which there is neither here." >&2
    echo "As root: apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
fi

mkdir -p "$(dirname "$log")"
: >"$log"
echo "Installing ${missing[*]} ..."
if ! { apt_get update && apt_get install --no-install-recommends "${missing[@]}"; }; then
    tail -n 40 "$log" >&2
    echo "Installing packages failed; the whole log is $log" >&2
    echo "By hand, as root: apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
fi
