#!/usr/bin/env bash
# Installs the build tree into a scratch prefix, then builds and runs a C consumer twice: through
# find_package(veks) and through pkg-config.
set -euo pipefail
build=$1 src=$2 work=$3
rm -rf "$work" && mkdir -p "$work"
cmake --install "$build" --prefix "$work/prefix" >/dev/null
mkdir -p "$work/consumer"
cp "$src/examples/demo.c" "$work/consumer/app.c"
cat >"$work/consumer/CMakeLists.txt" <<'CM'
cmake_minimum_required(VERSION 3.25)
project(consumer C)
find_package(veks 9.0 REQUIRED)
add_executable(app app.c)
target_link_libraries(app PRIVATE veks::veks m)
CM
cmake -S "$work/consumer" -B "$work/consumer/build" -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/consumer/build" >/dev/null
"$work/consumer/build/app" | grep -q "9.0.2 (r49912)"
export PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig"
cc "$work/consumer/app.c" $(pkg-config --cflags --libs veks) -lm -Wl,-rpath,"$work/prefix/lib" \
  -o "$work/app-pc"
"$work/app-pc" | grep -q "9.0.2 (r49912)"
readelf -d "$work/prefix/lib/libveksk0.so.9.0" | grep -q 'Library soname: \[libveksk0.so.9.0\]'
echo "install, find_package and pkg-config: ok"
