# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# Functions for the installed launcher, which keeps the last set and the last scale that the player
# chose in a file with the lines set=NAME and scale=N. Whatever is wrong with this file, the game
# must start: a fault is one line on standard error.
# shellcheck shell=bash

is_scale() {
    [[ $1 =~ ^[1-9]([.][0-9]+)?$ ]]
}

# is_natural_size SCALE: whether the scale is 1, with which nothing is scaled.
is_natural_size() {
    [[ $1 =~ ^1([.]0+)?$ ]]
}

# choices_fault FILE TEXT
choices_fault() {
    printf 'merovinska: %s: %s\n' "$1" "$2" >&2
}

# printable TEXT: the text as it can be shown in one line of a terminal.
printable() {
    local LC_ALL=C text=${1//[^ -~]/?}
    ((${#text} <= 40)) || text=${text:0:40}...
    printf '%s' "$text"
}

# read_choices FILE: sets kept_set and kept_scale to what the file keeps, empty if nothing, and
# choices_damaged if a line of it is neither.
# shellcheck disable=SC2034  # the caller reads choices_damaged
read_choices() {
    local line number=0
    kept_set=
    kept_scale=
    choices_damaged=
    [[ -e $1 || -L $1 ]] || return 0
    if [[ ! -f $1 || ! -r $1 ]]; then
        choices_fault "$1" "cannot be read; the game starts without it."
        return
    fi
    # A longer file is not one that the launcher has written.
    while IFS= read -r line || [[ -n $line ]]; do
        ((++number))
        if [[ $line =~ ^set=([^/.][^/]*)$ ]]; then
            kept_set=${BASH_REMATCH[1]}
        elif [[ $line == scale=* ]] && is_scale "${line#scale=}"; then
            kept_scale=${line#scale=}
        elif [[ -n $line && $line != '#'* && -z $choices_damaged ]]; then
            choices_damaged=yes
            choices_fault "$1" "line $number, \"$(printable "$line")\", is neither set=NAME nor scale=N."
        fi
    done < <(head -c 4096 -- "$1" 2>/dev/null | tr -d '\0\r')
}

# write_choices FILE SET SCALE: replaces the file at once, so that a launcher that reads it at the
# same time finds the old or the new choices. Removes it if there is nothing to keep.
write_choices() {
    local file folder draft
    folder=$(dirname -- "$1")
    if [[ -z $2$3 ]]; then
        if rm -f -- "$1" 2>/dev/null; then
            rmdir -- "$folder" 2>/dev/null || true
        else
            choices_fault "$1" "cannot be removed; the next game starts as the last one."
        fi
        return
    fi
    # A link to the file, as some players have it, stays a link.
    file=$(readlink -f -- "$1") || file=$1
    if (umask 077 && mkdir -p -- "$folder") 2>/dev/null &&
        draft=$(mktemp -- "$file.XXXXXX" 2>/dev/null); then
        if { printf '%s\n' ${2:+"set=$2"} ${3:+"scale=$3"} >"$draft" &&
            mv -fT -- "$draft" "$file"; } 2>/dev/null; then
            return
        fi
        rm -f -- "$draft"
    fi
    choices_fault "$1" "cannot be written; the next game starts without this choice."
}
