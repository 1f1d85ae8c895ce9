# What the scripts share; sourced, never run.
# shellcheck shell=bash

# shellcheck disable=SC2034 # for the scripts that source this
project_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# One line per step, with the time since the first script of the run began.
say() {
    local now
    printf -v now '%(%s)T' -1
    export WENDLOW_SCRIPTS_STARTED=${WENDLOW_SCRIPTS_STARTED:-$now}
    local passed=$((now - WENDLOW_SCRIPTS_STARTED))
    printf '== %02d:%02d %s\n' $((passed / 60)) $((passed % 60)) "$*"
}

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# What configuring is told besides the preset; the checks of the tree set it.
configure_options=()

# Further arguments name the targets; without one everything is built.
configure_and_build() {
    local preset=$1
    shift
    say "Configuring $preset in build/$preset"
    cmake --preset "$preset" "${configure_options[@]}"
    say "Building $preset"
    cmake --build --preset "$preset" --parallel 2 ${1:+--target "$@"}
}
