# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# What those share who start the game, ./play and the installed launcher: which files it reads from
# its data directory, and how it is run. To be sourced under set -euo pipefail.
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
    mapfile -t configurations < <(words "$layout" | awk '$1 == "CONF" && NF > 1 { print $2 }')
    mapfile -t themes < <(
        printf '%s\n' default.theme messagebox.theme tabwin_button.theme combo_button.theme
        # The name "default" is taken by the file above.
        words "$layout" | awk '$1 == "THEM" && NF > 1 && $2 != "default" { print $2 }'
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

# words FILE: its lines, of words that blanks separate; nothing when it cannot be read. The ends of
# lines may be those of another system. What is no file might be waited for.
words() {
    [[ ! -f $1 || ! -r $1 ]] || tr '\r' ' ' <"$1"
}

# first_words FILE: the first word of each line that holds a value.
first_words() {
    words "$1" | awk 'NF && substr($1, 1, 2) != "//" { print $1 }'
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

# The game while it runs, and the signal that is to end it.
player=
asked=

# end_game SIGNAL: passes it on to the game, now or as soon as there is one.
end_game() {
    asked=$1
    [[ -z $player ]] || kill "-$1" "$player" 2>/dev/null || true
}

# run_game FOLDER GAME WORK: runs GAME in FOLDER and leaves its status in `status`. Its errors go
# where they belong at once and, to be looked at once it has ended, into WORK/log.
# shellcheck disable=SC2034  # the status is for the caller
run_game() {
    local errors reader
    # The terminal sends its signals to the game as well; the others reach it from here. They are
    # awaited before there is a game, so that none of them leaves it alone.
    trap ':' INT QUIT
    trap 'end_game TERM' TERM
    trap 'end_game HUP' HUP

    mkfifo -- "$3/errors"
    (
        trap '' HUP INT QUIT TERM
        exec tee -- "$3/log" <"$3/errors" >&2
    ) &
    reader=$!
    # Opened here: the reader would wait for ever for a game that ends before it could.
    exec {errors}>"$3/errors"
    (
        cd -- "$1" && exec "$2" 2>&"$errors" {errors}>&-
    ) &
    player=$!
    exec {errors}>&-
    [[ -z $asked ]] || end_game "$asked"
    status=0
    wait "$player" || status=$?
    while kill -0 "$player" 2>/dev/null; do
        status=0
        wait "$player" || status=$?
    done
    wait "$reader" || true
}
