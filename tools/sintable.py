#!/usr/bin/env python3
"""Writes src/transform/fft_fixed.hpp: sin(2*pi*k/1024), k = 0..256, correctly rounded to
binary32 and binary64 from a 70-digit decimal evaluation. Run from the repository root."""
import math
import struct
from decimal import Decimal, getcontext

getcontext().prec = 70
PI = Decimal("3.14159265358979323846264338327950288419716939937510582097494459230781640628")


def sin(x):
    s, t, n = Decimal(0), x, 1
    while abs(t) > Decimal(10) ** -66:
        s += t
        t = -t * x * x / ((n + 1) * (n + 2))
        n += 2
    return s


def to_f32(d):
    f = struct.unpack("f", struct.pack("f", float(d)))[0]
    near = [f, math.nextafter(f, 2.0), math.nextafter(f, -2.0)]
    near = [struct.unpack("f", struct.pack("f", c))[0] for c in near]
    return min(near, key=lambda c: abs(Decimal(c) - d))


def lit32(x):
    r = repr(x)
    return (r if ("." in r or "e" in r) else r + ".0") + "f"


vals = [sin(2 * PI * k / 1024) for k in range(257)]
out = ["// sin(2*pi*k/1024) for k = 0..256, correctly rounded (written by tools/sintable.py from a",
       "// 70-digit decimal evaluation): the base of every twiddle factor up to 1024 points.",
       "#pragma once", "", "namespace veks::fft {", "",
       "alignas(64) inline constexpr float fft_fix_twiddle_table_32f[257] = {"]
out += ["    " + ", ".join(lit32(to_f32(v)) for v in vals[i:i + 4]) + "," for i in range(0, 257, 4)]
out += ["};", "", "alignas(64) inline constexpr double fft_fix_twiddle_table_64f[257] = {"]
out += ["    " + ", ".join(repr(float(v)) for v in vals[i:i + 4]) + "," for i in range(0, 257, 4)]
out += ["};", "", "}  // namespace veks::fft", ""]
with open("src/transform/fft_fixed.hpp", "w") as f:
    f.write("\n".join(out))
