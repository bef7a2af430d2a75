#!/usr/bin/env bash
# Installs what building, testing and benchmarking veks needs, when it is missing (Debian).
set -euo pipefail
need=()
have() { command -v "$1" >/dev/null 2>&1; }
have cmake || need+=(cmake)
have ninja || need+=(ninja-build)
have g++ || need+=(g++)
have clang++ || need+=(clang)
have clang-format || need+=(clang-format)
have python3 || need+=(python3)
have pkg-config || need+=(pkg-config)
[ -f /usr/lib/x86_64-linux-gnu/cmake/GTest/GTestConfig.cmake ] || need+=(libgtest-dev)
[ -d /usr/lib/x86_64-linux-gnu/cmake/benchmark ] || need+=(libbenchmark-dev)
[ -f /usr/include/omp.h ] || [ -n "$(ls /usr/lib/llvm-*/lib/clang/*/include/omp.h 2>/dev/null)" ] || need+=(libomp-dev)
[ -f /usr/include/fftw3.h ] || need+=(libfftw3-dev)
if [ ${#need[@]} -gt 0 ]; then
  echo "installing: ${need[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${need[@]}"
fi
