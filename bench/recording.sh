#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
usage='Usage: recording.sh PROGRAM [SECONDS]
Compares a recording of a 1920×1080 desktop by PROGRAM (ardeno) with one by ffmpeg (x11grab, 10 frames a second, libx264
veryfast) that runs at the same time: processor time and peak memory of the processes. Run it on a headless desktop:
  tests/desktop/headless-desktop -- bench/recording.sh build/release/ardeno
Exit status 1 when a target is missed. Needs: ffmpeg xterm wmctrl.'
set -u
[ $# -ge 1 ] || { echo "$usage" >&2; exit 2; }
program=$1 seconds=${2:-20}
folder=$(mktemp -d) || exit 2
export XDG_DATA_HOME=$folder/data XDG_CONFIG_HOME=$folder/config
library=$XDG_DATA_HOME/Ardeno
service= peer= scroll=
trap 'kill $service $peer $scroll 2>/dev/null; rm -rf "$folder"' EXIT

# ticks PID: processor time so far, in hundredths of a second. peak PID: kilobytes.
ticks() { awk '{ sub(/.*\) /, ""); print $12 + $13 }' "/proc/$1/stat"; }
peak() { awk '/^VmHWM/ { print $2 }' "/proc/$1/status"; }

appears() { for _ in {1..200}; do wmctrl -l | grep -q "$1" && return 0 || sleep .1; done; return 1; }

missed=0
# compare FIGURE OURS PEER TARGET
compare() {
    local met=yes
    awk "BEGIN { exit !($2 <= $4 * $3) }" || { met=no; missed=1; }
    awk "BEGIN { printf \"%-42s %9s %9s %7.3f %6.2f  %s\n\", \"$1\", \"$2\", \"$3\", $2 / ($3 > 0 ? $3 : 1), $4, \"$met\" }"
}

# measure NAME TARGET: both recordings side by side, from a moment when both are under way.
measure() {
    local ours theirs
    "$program" --background 2>/dev/null &
    service=$!
    "$program" record start --project Bench >/dev/null || exit 2
    ffmpeg -nostdin -loglevel error -y -f x11grab -framerate 10 -i "$DISPLAY" -c:v libx264 -preset veryfast \
        "$folder/peer.mp4" &
    peer=$!
    sleep 2
    ours=$(ticks "$service") theirs=$(ticks "$peer")
    sleep "$seconds"
    ours=$(($(ticks "$service") - ours)) theirs=$(($(ticks "$peer") - theirs))
    compare "$1: processor (1/100 s)" "$ours" "$theirs" "$2"
    compare "$1: peak memory (kB)" "$(peak "$service")" "$(peak "$peer")" 1.0
    "$program" record stop >/dev/null || exit 2
    kill "$peer" "$service"
    wait "$peer" "$service" 2>/dev/null
    service= peer=
    ls -l "$library"/*/session.mp4 "$folder/peer.mp4" | awk -v name="$1" '{ sum[$9 ~ /session/] = $5 }
        END { printf "%-42s %9d %9d\n", name ": bytes", sum[1], sum[0] }'
    rm -rf "$XDG_DATA_HOME"
}

printf '%-42s %9s %9s %7s %6s  %s\n' figure ours peer ratio target met
xterm -geometry 100x40+60+60 -T quiet -e sleep 1000 &
scroll=$!
appears quiet || exit 2
measure 'still desktop' 0.10
kill "$scroll"
xterm -geometry 150x60+100+100 -T scrolling -e sh -c 'while :; do ls -la /usr/bin | head -n 30; sleep .05; done' &
scroll=$!
appears scrolling || exit 2
measure 'scrolling terminal' 0.45
mkdir -p "$HOME/.local/share/applications"
printf '[Desktop Entry]\nType=Application\nName=Left Out\nExec=/bin/true\nStartupWMClass=leftout\n' \
    >"$HOME/.local/share/applications/org.example.LeftOut.desktop"
xterm -class leftout -geometry 60x20+900+500 -T hidden -e sleep 1000 &
scroll="$scroll $!"
appears hidden || exit 2
"$program" exclude app org.example.LeftOut >/dev/null || exit 2
measure 'scrolling, one application left out' 0.50
exit "$missed"
