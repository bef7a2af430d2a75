# Compiler settings shared by every target: the AVX-512 target, warnings as errors, no fast-math
# and no implicit contraction (kernels use FMA where they choose to), optional sanitizers.
set(VEKS_TARGET_FLAGS -march=x86-64-v4 -mprefer-vector-width=512)
add_compile_options(
  "$<$<COMPILE_LANGUAGE:C,CXX>:${VEKS_TARGET_FLAGS}>"
  "$<$<COMPILE_LANGUAGE:C,CXX>:-ffp-contract=off;-Wall;-Wextra;-Werror;-Wshadow;-Wvla>"
  # g++ 12 misreports the deliberately undefined registers inside its own AVX-512 intrinsics.
  "$<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-maybe-uninitialized>")

if(VEKS_SANITIZE)
  add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-fsanitize=address,undefined;-fno-sanitize-recover=all;-fno-omit-frame-pointer>")
  add_link_options(-fsanitize=address,undefined)
endif()

# Library code only: hidden symbols, no exceptions or RTTI across the C boundary, stricter
# conversion warnings, nothing left undefined at link time.
add_library(veks_library_flags INTERFACE)
target_compile_options(veks_library_flags INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-fvisibility=hidden -fvisibility-inlines-hidden -fno-exceptions -fno-rtti -Wconversion -Wcast-align>)
if(NOT VEKS_SANITIZE)
  target_link_options(veks_library_flags INTERFACE "LINKER:--no-undefined")
endif()
