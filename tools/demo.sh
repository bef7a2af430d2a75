#!/usr/bin/env bash
# Builds the library, tests, benchmarks and examples (release, g++) and runs the demonstration.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
cmake --preset release >/dev/null
cmake --build --preset release
build/release/examples/veks_demo
