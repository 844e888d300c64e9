# Shared by run, test and .ci/run: installing what is missing and building.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# packages SECTION…: the names that packaging/debian-packages lists there.
packages() {
    awk -v wanted=" $* " '
        /^\[/ { section = substr($0, 2, length($0) - 2); next }
        /^[^#]/ && index(wanted, " " section " ") { print $1 }' "$root/packaging/debian-packages"
}

# install_missing SECTION…: says first what it installs; quick when nothing is missing.
install_missing() {
    local missing=() name sudo=()
    for name in $(packages "$@"); do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "These packages are missing, and there is no apt-get to install them: ${missing[*]}" >&2
        return 1
    fi
    [ "$(id -u)" = 0 ] || sudo=(sudo)
    echo "Installing missing packages: ${missing[*]}" >&2
    "${sudo[@]}" apt-get update -q >&2 &&
        "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}

# build PRESET [TARGET…]: silent when nothing changed; what the compiler says goes to standard error.
build() {
    local preset=$1
    shift
    [ -f "$root/build/$preset/build.ninja" ] ||
        (cd "$root" && cmake --preset "$preset" --log-level=WARNING >/dev/null) || return
    ninja -C "$root/build/$preset" --quiet "$@" >&2
}
