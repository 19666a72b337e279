# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# What the game reads from its data directory, for those who start it: ./play and the installed
# launcher. To be sourced under set -euo pipefail.
# shellcheck shell=bash

# With it, cd may lead elsewhere and print where.
unset CDPATH

# needed_data DIRECTORY: the files that the game reads from its data directory, one per
# line. The layout names the themes and the configuration, these name pictures and the
# font; the toolkit asks for four themes by itself.
needed_data() (
    cd -- "$1" || exit
    local layout=my.gui.debug themes configurations theme configuration
    echo "$layout"
    [[ -r $layout ]] || return 0
    mapfile -t configurations < <(awk '$1 == "CONF" && NF > 1 { print $2 }' "$layout")
    mapfile -t themes < <(
        printf '%s\n' default.theme messagebox.theme tabwin_button.theme combo_button.theme
        # The name "default" is taken by the file above.
        awk '$1 == "THEM" && NF > 1 && $2 != "default" { print $2 }' "$layout"
    )
    for configuration in "${configurations[@]}"; do
        echo "$configuration"
        first_words "$configuration" | sed -n 1p
    done
    for theme in "${themes[@]}"; do
        echo "$theme"
        first_words "$theme" | sed -n 15p | grep -vx NULL || true
    done
)

# first_words FILE: the first word of each line that holds a value.
first_words() {
    [[ ! -r $1 ]] || awk 'NF && substr($1, 1, 2) != "//" { print $1 }' "$1"
}

# unreadable_data DIRECTORY: the needed files that cannot be read, in one line.
unreadable_data() {
    local file missing=()
    [[ -r $1 && -x $1 ]] || {
        echo "$1"
        return
    }
    while read -r file; do
        [[ -f $1/$file && -r $1/$file ]] || missing+=("$1/$file")
    done < <(needed_data "$1" | sort -u)
    ((${#missing[@]} == 0)) || echo "${missing[*]}"
}

# lay_over FOLDER TARGET: a link in TARGET for every file in FOLDER, which is named from the root.
lay_over() {
    local file
    mkdir -p -- "$2"
    for file in "$1"/*; do
        [[ ! -f $file ]] || ln -sfn -- "$file" "$2/"
    done
}
