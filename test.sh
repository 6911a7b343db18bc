#!/bin/bash
# Builds the program with its tests and runs every test.
set -eu
cd "$(dirname "$0")"
. tools/packages.sh

need $build_packages $test_packages
cmake --preset dev >/dev/null
cmake --build --preset dev
ctest --preset dev "$@"
