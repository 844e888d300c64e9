#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# resume.sh BENCH ARDENO [WINDOW MANAGER…]: what a resume costs and how exactly it places windows, on two window
# managers or those named.
set -u
here=$(cd "$(dirname "$0")" && pwd)
bench=$(realpath "$1") program=$(realpath "$2") status=0
shift 2
[ $# -gt 0 ] || set -- openbox xfwm4
for manager in "$@"; do
    "$here/../tests/desktop/headless-desktop" --wm "$manager" -- "$bench" "$program" "$manager" || status=1
done
exit "$status"
