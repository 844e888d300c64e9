#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# shown.sh BENCH, on a desktop of its own: what it costs to know the folders and documents of an editor and two file
# managers.
set -u
cd "$HOME" || exit 2
mkdir -p Documents/Thesis Pictures
echo text >Documents/notes.txt
applications=()
trap 'kill "${applications[@]}" 2>/dev/null' EXIT
start() {
    "$@" >/dev/null 2>&1 &
    applications+=($!)
}
start mousepad Documents/notes.txt
start pcmanfm Documents/Thesis
start thunar Pictures
for _ in {1..200}; do
    [ "$(wmctrl -l | wc -l)" -ge 3 ] && break
    sleep .1
done
sleep 1
"$1"
