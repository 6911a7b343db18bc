#!/bin/bash
# Builds vinora, installs it into a folder of yours and starts it from there.
#
#     ./run.sh          with a display: the program
#                       without one: a walk through its main job on a sample disc, on a virtual display;
#                       it leaves numbered pictures and the databases in a folder that it names
#     ./run.sh --walk   the walk, display or not
#
# The program and your data lie in $XDG_DATA_HOME/vinora (~/.local/share/vinora).
set -eu
cd "$(dirname "$0")"
. tools/packages.sh

walk=no
[ "${1:-}" = --walk ] && walk=yes
[ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && walk=yes

need $build_packages
log=$(mktemp)
trap 'rm -f "$log"' EXIT
build() {
    echo "Building (the first time takes some minutes) ..."
    if ! "$@" >"$log" 2>&1; then
        tail -n 40 "$log" >&2
        echo "The build failed; above are its last lines." >&2
        exit 1
    fi
}

if [ $walk = yes ]; then
    need $walk_packages
    build sh -c 'cmake --preset release -DVINORA_TESTS=ON && cmake --build --preset release --target vinora vinora_walk'
    exec tools/walk.sh build/release
fi

build sh -c 'cmake --preset release -DVINORA_TESTS=OFF && cmake --build --preset release --target vinora'
home=${XDG_DATA_HOME:-$HOME/.local/share}/vinora
build cmake --install build/release --prefix "$home"
rm -f "$log"
exec "$home/vinora"
