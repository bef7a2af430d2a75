#include "frame/memory.hpp"

namespace veks {

namespace {
// Static storage: the four padding bytes after targetCpu are zero-initialised.
constexpr VekVersionRecord kVersion = {9,
                                       0,
                                       2,
                                       49912,
                                       {'k', '0', '\0', '\0'},
                                       "vekSP AVX-512F/CD/BW/DQ/VL (k0 threaded)",
                                       "9.0.2 (r49912)",
                                       "Dec 29 2015"};
static_assert(sizeof(VekVersionRecord) == 48, "the version record is 48 bytes");
}  // namespace

const VekVersionRecord* lib_version() { return &kVersion; }

}  // namespace veks
