#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# resume.sh BENCH ARDENO: what a resume costs and how exactly it places windows, on two window managers.
set -u
here=$(cd "$(dirname "$0")" && pwd)
bench=$(realpath "$1") program=$(realpath "$2") status=0
for manager in openbox xfwm4; do
    "$here/../tests/desktop/headless-desktop" --wm "$manager" -- "$bench" "$program" "$manager" || status=1
done
exit "$status"
