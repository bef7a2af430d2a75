#!/usr/bin/env bash
# Builds and runs the whole test suite: formatting check, then the release build (g++), the
# AddressSanitizer + UndefinedBehaviorSanitizer build (g++) and the clang 14 build, each with
# its tests. Usage: tools/test.sh [preset ...]   (default: release sanitize clang)
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
tools/format.sh --check
presets=("$@")
[ ${#presets[@]} -gt 0 ] || presets=(release sanitize clang)
for p in "${presets[@]}"; do
  echo "==== $p ===="
  cmake --preset "$p" >/dev/null
  cmake --build --preset "$p"
  ctest --preset "$p"
done
