# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# Functions for ./play, ./check and the other scripts. They source this file with
# set -euo pipefail, and call the functions that read the tree from its root.
# shellcheck shell=bash

root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
# shellcheck source=scripts/gamedata.sh
. "$root/scripts/gamedata.sh"

die() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    exit 1
}

# packages SECTION...: the packages in these sections of packages.txt.
packages() {
    local section
    for section; do
        awk -v wanted="[$section]" \
            '/^\[/ { reading = $1 == wanted; next } reading && NF && !/^#/ { print $1 }' \
            packages.txt
    done
}

# missing_packages SECTION...: the packages of these sections that are not installed.
missing_packages() {
    local names installed name
    mapfile -t names < <(packages "$@")
    # dpkg-query fails if it does not know one of the names, but still reports the others.
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "${names[@]}" 2>/dev/null) ||
        true
    for name in "${names[@]}"; do
        grep -qFx "$name installed" <<<"$installed" || printf '%s\n' "$name"
    done
}

# install_missing SECTION...: installs the packages of these sections that are missing. Prints
# nothing if none is missing.
install_missing() {
    command -v dpkg-query >/dev/null || die "dpkg-query is missing: packages need Debian"
    local missing run=()
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    echo "Installing: ${missing[*]}"
    if ((EUID != 0)); then
        command -v sudo >/dev/null || die "only root can install: ${missing[*]}"
        run=(sudo)
    fi
    run+=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300)
    "${run[@]}" update
    "${run[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null
}

# configure_release TOOLS: configures build/release for players, without the tests, and without the
# tools unless TOOLS is ON. A build folder that has tests or tools keeps them.
configure_release() {
    local testing=OFF tools=$1 cache=build/release/CMakeCache.txt
    ! grep -qsx BUILD_TESTING:BOOL=ON "$cache" || testing=ON
    ! grep -qsx MEROVINSKA_TOOLS:BOOL=ON "$cache" || tools=ON
    cmake --preset release --log-level=WARNING \
        -DBUILD_TESTING="$testing" -DMEROVINSKA_TOOLS="$tools" >/dev/null
}

# lay_set NAME: links the data to build/sets/NAME, with the files of a set in place of those of the
# same name. An existing folder is kept, because a game may run in it. Links to files that exist no
# more are removed.
lay_set() {
    local folder=build/sets/$1 link
    lay_over "$root/data" "$folder"
    lay_over "$root/data/sets/$1" "$folder"
    for link in "$folder"/*; do
        [[ -f data/${link##*/} || -f data/sets/$1/${link##*/} ]] || rm -rf -- "$link"
    done
}

# own_sources PATTERN...: the files of the tree whose names match, each followed by a NUL byte.
# build/ and hidden folders are left out.
own_sources() {
    local names=() pattern
    for pattern; do
        names+=(-o -name "$pattern")
    done
    find . \( -path ./build -o -path './.*' \) -prune -o \( "${names[@]:1}" \) -type f -print0
}

# start_display SIZE [LOG]: starts a virtual display of SIZE, such as 800x600, that ends when the
# script ends. Its messages go to the file LOG. The server chooses its own number and tells it once
# it accepts connections, so displays that start at the same time do not collide and the script need
# not wait. With -noreset it goes on after the first program has closed its window.
start_display() {
    local server_output number log=${2:-$root/build/display.log}
    mkdir -p "$(dirname "$log")"
    exec {server_output}< <(exec Xvfb -displayfd 1 -screen 0 "$1x24" -noreset -nolisten tcp 2>"$log")
    display_pid=$!
    trap end_display EXIT
    read -r number <&"$server_output" || die "the virtual display did not start, see $log"
    exec {server_output}<&-
    export DISPLAY=":$number" SDL_VIDEODRIVER=x11 LIBGL_ALWAYS_SOFTWARE=1
    unset WAYLAND_DISPLAY
}

end_display() {
    kill "$display_pid" 2>/dev/null || true
    wait "$display_pid" 2>/dev/null || true
}
