#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
usage='Usage: picture.sh BUILD [ROUNDS]
Compares whole processes that take one picture of a 1920×1080 desktop with a wallpaper and write it as PNG: the bench
program of the build folder BUILD against scrot and ffmpeg, and leaving an application out against itself; then the
whole command "ardeno save" against scrot. The runs are interleaved; the figures are medians. On a headless desktop:
  tests/desktop/headless-desktop -- bench/picture.sh build/release
Exit status 1 when a target is missed. Needs: scrot ffmpeg feh python3.'
set -u
[ $# -ge 1 ] || { echo "$usage" >&2; exit 2; }
program=$1/bench/bench_picture painter=$1/tests/test_painter ardeno=$1/ardeno rounds=${2:-25}
folder=$(mktemp -d) || exit 2
trap 'exec 4>&-; rm -rf "$folder"' EXIT

# A wallpaper like a photograph: smooth light, shapes, and the noise of a sensor.
python3 - "$folder/wallpaper.ppm" <<'PYTHON'
import math, random, sys
random.seed(7)
width, height = 1920, 1080
noise = [random.gauss(0, 2.2) for _ in range(65537)]
hills = [[620 + 90 * k + 70 * math.sin(x / (170 + 40 * k) + k) + 25 * math.sin(x / 37 + 2 * k) for x in range(width)]
         for k in range(4)]
colours = [(96, 120, 150), (70, 98, 110), (48, 74, 70), (30, 48, 40)]
rows = bytearray()
at = 0
for y in range(height):
    for x in range(width):
        layer = -1
        for k in range(4):
            if y > hills[k][x]:
                layer = k
        if layer < 0:
            glow = 120 * math.exp(-((x - 1300) ** 2 + (y - 380) ** 2) / 160000)
            colour = (90 + y / 9 + glow, 130 + y / 12 + glow * .8, 190 - y / 30 + glow * .4)
        else:
            depth = (y - hills[layer][x]) / 12
            colour = tuple(c - depth for c in colours[layer])
        at = (at * 75 + 74) % 65537
        grain = noise[at]
        rows += bytes(max(0, min(255, int(c + grain))) for c in colour)
open(sys.argv[1], 'wb').write(b'P6 %d %d 255\n' % (width, height) + rows)
PYTHON
feh --no-fehbg --bg-fill "$folder/wallpaper.ppm" || exit 2

# The application that is left out: its desktop file, and a window.
mkdir -p "$HOME/.local/share/applications"
printf '[Desktop Entry]\nType=Application\nName=Left Out\nExec=/bin/true\nStartupWMClass=leftout\n' \
    >"$HOME/.local/share/applications/org.example.LeftOut.desktop"
mkfifo "$folder/input" "$folder/output"
"$painter" class=leftout colour=ff00ff geometry=400,300,640,480 <"$folder/input" >"$folder/output" &
exec 4>"$folder/input"
read -r _ <"$folder/output"

run_plain() { "$program" "$folder/plain.png"; }
run_excluding() { "$program" "$folder/excluding.png" org.example.LeftOut; }
run_scrot() { scrot --overwrite "$folder/scrot.png"; }
run_ffmpeg() { ffmpeg -nostdin -loglevel error -y -f x11grab -i "$DISPLAY" -frames:v 1 "$folder/ffmpeg.png"; }
run_save() { "$ardeno" save --project Thesis --next 'Re-run the ablation' --no-tabs >/dev/null; }

kinds='plain excluding scrot ffmpeg save'
for round in $(seq 0 "$rounds"); do
    for kind in $kinds; do
        start=$EPOCHREALTIME
        "run_$kind" || { echo "$kind failed." >&2; exit 2; }
        end=$EPOCHREALTIME
        # The first round only warms up.
        [ "$round" = 0 ] || echo $((${end/./} - ${start/./})) >>"$folder/$kind"
    done
done

median() { sort -n "$folder/$1" | sed -n "$(((rounds + 1) / 2))p"; }
missed=0
printf '%-34s %9s %9s %7s %7s  %s\n' figure ours peer ratio target met
compare() {
    local ours peer met=yes
    ours=$(median "$2") peer=$(median "$3")
    awk "BEGIN { exit !($ours <= $4 * $peer) }" || { met=no; missed=1; }
    awk "BEGIN { printf \"%-34s %6.1f ms %6.1f ms %7.3f %7.2f  %s\n\", \"$1\", $ours / 1000, $peer / 1000, \
        $ours / $peer, $4, \"$met\" }"
}
compare 'picture to scrot' plain scrot 0.35
compare 'picture to ffmpeg x11grab' plain ffmpeg 0.2
compare 'leaving one application out' excluding plain 1.5
compare 'ardeno save to scrot' save scrot 1.0
ls -l "$folder"/*.png | awk '{ printf "bytes of %s: %d\n", $9, $5 }' | sed "s|$folder/||"
exit "$missed"
