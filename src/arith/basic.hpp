// Element-wise add, subtract and multiply: each written once over the lane types.
#pragma once

#include "frame/shapes.hpp"

namespace veks {

struct Add {  // x + y
  template <class L>
  static L apply(L x, L y) {
    return x + y;
  }
};
struct Sub {  // x - y: SubC
  template <class L>
  static L apply(L x, L y) {
    return x - y;
  }
};
struct SubRev {  // y - x: Sub (second vector minus the first) and SubCRev (constant minus x)
  template <class L>
  static L apply(L x, L y) {
    return y - x;
  }
};
struct Mul {  // x * y
  template <class L>
  static L apply(L x, L y) {
    return x * y;
  }
};

}  // namespace veks
