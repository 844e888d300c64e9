#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# list.sh ARDENO: what the application takes for the list of a large library, whose projects grow in number with the
# checkpoints: ten times as many records may take ten times as long, and asking it is faster than reading the library.
set -euo pipefail
program=$(realpath "$1")
[ -n "${LIST_BENCH_BUS-}" ] || LIST_BENCH_BUS=yes exec dbus-run-session -- "$0" "$program"
folder=$(mktemp -d "${TMPDIR:-/tmp}/ardeno-list.XXXXXX")
application=
trap '[ -z "$application" ] || kill "$application"; rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME=$folder/config XDG_CACHE_HOME=$folder/cache
unset DISPLAY WAYLAND_DISPLAY

# library COUNT: with ten checkpoints in each project.
library() {
    export XDG_DATA_HOME=$folder/$1
    mkdir -p "$XDG_DATA_HOME/Ardeno"
    awk -v count="$1" 'BEGIN {
        printf "{\"version\":2,\"projects\":["
        for (i = 0; i < count / 10; i++)
            printf "%s{\"id\":\"%08X-0000-4000-8000-000000000001\",\"name\":\"Project %d\",\"createdAt\":7e8,\"isSample\":false}", i ? "," : "", i, i
        printf "],\"checkpoints\":["
        for (i = 0; i < count; i++)
            printf "%s{\"id\":\"%08X-0000-4000-8000-000000000002\",\"projectID\":\"%08X-0000-4000-8000-000000000001\",\"title\":\"Checkpoint %d\",\"createdAt\":%d,\"objective\":\"\",\"decision\":\"\",\"nextStep\":\"\",\"apps\":[],\"tabs\":[],\"captureNote\":\"\",\"isSample\":false}", i ? "," : "", i, i % (count / 10), i, 7e8 + i
        print "]}"
    }' >"$XDG_DATA_HOME/Ardeno/checkpoints.json"
}

# Prints the median of five lists, each of which must be complete.
measure() {
    local round
    for round in 1 2 3 4 5; do
        local start=$EPOCHREALTIME
        [ "$("$program" list | grep -c Checkpoint)" = "$1" ]
        awk -v from="$start" -v to="$EPOCHREALTIME" 'BEGIN { print to - from }'
    done | sort -n | sed -n 3p
}

serve() {
    "$program" --background &
    application=$!
    until [ -s "$XDG_DATA_HOME/Ardeno/lock" ]; do sleep .1; done
    "$program" list >/dev/null # Waits until it serves.
}

stop() {
    kill "$application"
    wait "$application"
    application=
}

status=0
# row FIGURE SECONDS PEER SECONDS LIMIT
row() {
    awk -v figure="$1" -v own="$2" -v peer="$3" -v other="$4" -v limit="$5" 'BEGIN {
        missed = own / other > limit
        printf "%-38s %9.0f ms %24s %7.0f ms %8.3f %8.3f  %s\n", figure, own * 1000, peer, other * 1000, own / other,
            limit, missed ? "NOT MET" : "met"
        exit missed }' || status=1
}

library 10000
serve
few=$(measure 10000)
stop
library 100000
alone=$(measure 100000)
serve
many=$(measure 100000)
stop
row "list of 100,000 checkpoints" "$many" "of 10,000" "$few" 11
row "list from the application" "$many" "alone" "$alone" 0.5
exit "$status"
