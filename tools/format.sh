#!/usr/bin/env bash
# Applies clang-format to every C and C++ source; with --check, fails on any difference instead.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files -co --exclude-standard -- '*.c' '*.h' '*.cpp' '*.hpp')
[ ${#files[@]} -gt 0 ] || exit 0
if [ "${1:-}" = "--check" ]; then
  clang-format --dry-run --Werror "${files[@]}"
else
  clang-format -i "${files[@]}"
fi
