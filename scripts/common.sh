# shellcheck shell=bash
# What the scripts share. To be sourced from the project's root, after `set -euo pipefail`.

say() { printf '%s\n' "==> $*"; }

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Names of all C++ sources, each ended by a NUL.
sources() { find src tests bench fuzz -name '*.cpp' -print0 -o -name '*.h' -print0; }

# Names of all shell scripts, each ended by a NUL.
shell_scripts() {
    printf 'scripts/common.sh\0'
    grep -rlZ -m 1 -E '^#!/bin/(ba)?sh' run test .ci bench scripts tests
}

# The packages of some groups of scripts/packages, one on each line.
packages_of() {
    local wanted=" $* " group name
    while read -r group name _; do
        [[ $wanted == *" $group "* ]] && printf '%s\n' "$name"
    done <scripts/packages
    return 0
}

is_installed() {
    [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
}

# Installs what is missing of some groups; does not ask the network for anything when nothing is.
install_packages() {
    local name missing=()
    command -v apt-get >/dev/null || {
        say "no apt-get here: install the packages of scripts/packages ($*) yourself"
        return 0
    }
    for name in $(packages_of "$@"); do
        is_installed "$name" || missing+=("$name")
    done
    ((${#missing[@]})) || return 0
    if ((EUID != 0)) && ! command -v sudo >/dev/null; then
        fail "Missing, and there is no sudo. As root: apt-get install --no-install-recommends ${missing[*]}"
    fi
    say "installing ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# Builds a preset, or only some of its targets, with or without the tests: build release ON [TARGET...]
build() {
    local preset=$1 tests=$2 target options=()
    shift 2
    for target; do
        options+=(--target "$target")
    done
    say "building (preset $preset)"
    cmake --preset "$preset" -DOVRANO_TESTS="$tests"
    cmake --build --preset "$preset" "${options[@]}"
}
