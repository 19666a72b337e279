# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# Functions for ./play and the installed launcher, which start the game: they check the files that
# it reads, and run it. Both source this file with set -euo pipefail.
# shellcheck shell=bash

# If CDPATH is set, cd may change to another folder than the named one, and print its name.
unset CDPATH

# needed_data DIRECTORY: the files that the game reads from its data directory, one per line. The
# layout names themes and the configuration. These name pictures and the font. The toolkit reads
# four more themes, which no file names.
needed_data() (
    cd -- "$1" || exit
    local layout=my.gui.debug themes configurations
    echo "$layout"
    mapfile -t configurations < <(words "$layout" | awk '$1 == "CONF" && NF > 1 { print $2 }')
    mapfile -t themes < <(
        {
            printf '%s\n' default.theme messagebox.theme tabwin_button.theme combo_button.theme
            # THEM default selects default.theme, which is listed above.
            words "$layout" | awk '$1 == "THEM" && NF > 1 && $2 != "default" { print $2 }'
        } | sort -u
    )
    printf '%s\n' "${configurations[@]}" "${themes[@]}"
    value_of_line 1 "${configurations[@]}"
    value_of_line 15 "${themes[@]}" | grep -vx NULL || true
)

# words FILE: the lines of FILE, without the carriage returns that Windows ends lines with. Prints
# nothing if FILE is not a readable regular file; reading a pipe could wait without end.
words() {
    [[ ! -f $1 || ! -r $1 ]] || tr '\r' ' ' <"$1"
}

# value_of_line NUMBER FILE...: of each file, the first word of this line. Empty lines and comments
# do not count. One program reads all files, because to start some for each file takes a second.
value_of_line() {
    local number=$1 file files=()
    shift
    for file; do
        [[ -f $file && -r $file ]] || continue
        # awk takes NAME=TEXT for a variable, but no path with a slash.
        [[ $file == /* ]] || file=./$file
        files+=("$file")
    done
    ((${#files[@]})) || return 0
    awk -v number="$number" '
        FNR == 1 { lines = 0 }
        { gsub(/\r/, " ") }
        NF && substr($1, 1, 2) != "//" && ++lines == number { print $1 }' "${files[@]}"
}

# unreadable_data DIRECTORY: the needed files that cannot be read, on one line.
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

# lay_over FOLDER TARGET: makes a link in TARGET to every file in FOLDER, which is an absolute path.
# A link replaces one of the same name.
lay_over() {
    local file files=()
    mkdir -p -- "$2"
    for file in "$1"/*; do
        [[ ! -f $file ]] || files+=("$file")
    done
    ((${#files[@]} == 0)) || ln -sfn -- "${files[@]}" "$2/"
}

# scale_window SCALE: tells sdl12-compat to draw everything SCALE times as large.
scale_window() {
    export SDL12COMPAT_WINDOW_SCALING=$1
    # With a whole scale each pixel becomes a square. To mix the colours of neighbours, as
    # sdl12-compat does otherwise, would only blur the letters.
    [[ ! $1 =~ ^[0-9]+([.]0+)?$ ]] ||
        export SDL12COMPAT_SCALE_METHOD=${SDL12COMPAT_SCALE_METHOD-nearest}
}

# The process of the game while it runs, and the signal that shall end it.
game_process=
end_signal=

# end_game SIGNAL: sends the signal to the game, or has run_game send it when the game has started.
end_game() {
    end_signal=$1
    [[ -z $game_process ]] || kill "-$1" "$game_process" 2>/dev/null || true
}

# run_game FOLDER GAME WORK: runs GAME in FOLDER and sets `status` to its exit status. Its errors go
# to standard error and to WORK/log, which the caller can read after the game has ended.
# shellcheck disable=SC2034  # the caller reads the status
run_game() {
    local errors reader
    # INT and QUIT come from the terminal, which sends them to the game as well. The others have to
    # be passed on. The traps are set before the game starts, so that no signal ends this script
    # while the game goes on.
    trap ':' INT QUIT
    trap 'end_game TERM' TERM
    trap 'end_game HUP' HUP

    mkfifo -- "$3/errors"
    (
        trap '' HUP INT QUIT TERM
        exec tee -- "$3/log" <"$3/errors" >&2
    ) &
    reader=$!
    # Opened here and not by the game: if the game ended before it opened the pipe, the reader would
    # wait without end.
    exec {errors}>"$3/errors"
    (
        cd -- "$1" && exec "$2" 2>&"$errors" {errors}>&-
    ) &
    game_process=$!
    exec {errors}>&-
    [[ -z $end_signal ]] || end_game "$end_signal"
    status=0
    # A signal ends wait before the game has ended.
    wait "$game_process" || status=$?
    while kill -0 "$game_process" 2>/dev/null; do
        status=0
        wait "$game_process" || status=$?
    done
    wait "$reader" || true
}
