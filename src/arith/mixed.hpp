// Multiplications that mix element kinds: a real vector times a complex one, and floating-point
// constants applied to integers or floats stored as integers.
#pragma once

#include "veks.h"

namespace veks {

VekStatus mul_real_complex(const Vek32f* r, const Vek32fc* c, Vek32fc* d, int len);
VekStatus mul_real_complex_i(const Vek32f* r, Vek32fc* srcdst, int len);
VekStatus mulc_64f64s_isfs(Vek64f val, Vek64s* srcdst, int len, int sf);
VekStatus mulc_32f16s_sfs(const Vek32f* s, Vek32f val, Vek16s* d, int len, int sf);
VekStatus mulc_low_32f16s(const Vek32f* s, Vek32f val, Vek16s* d, int len);

}  // namespace veks
