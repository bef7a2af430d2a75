// Test buffers that prove what the library touched.
//
// Guarded<T>: n elements at a chosen offset from a 64-byte boundary, with guard bytes on both
// sides filled with a known pattern; guards_intact() tells whether anything outside the n
// elements was written, unchanged() whether anything at all was. The allocation is exact at the
// end (no slack after the back guard), so AddressSanitizer also sees reads past it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace veks_test {

template <class T>
class Guarded {
 public:
  static constexpr size_t kGuard = 64;
  static constexpr unsigned char kGuardByte = 0xA7;

  // misalign: byte offset of the data from a 64-byte boundary.
  explicit Guarded(size_t n, size_t misalign = 0, unsigned char fill = 0x5C)
      : n_(n), total_(64 + kGuard + misalign + n * sizeof(T) + kGuard) {
    raw_.reset(new unsigned char[total_]);
    const auto base = reinterpret_cast<uintptr_t>(raw_.get());
    const size_t front = (64 - base % 64) % 64;  // bytes before the aligned start
    data_ = raw_.get() + front + kGuard + misalign;
    std::memset(raw_.get(), kGuardByte, total_);
    std::memset(data_, fill, n * sizeof(T));
    snapshot_ = bytes();
  }

  T* data() { return reinterpret_cast<T*>(data_); }
  const T* data() const { return reinterpret_cast<const T*>(data_); }
  unsigned char* bytes_ptr() { return data_; }
  size_t size() const { return n_; }
  T& operator[](size_t i) { return data()[i]; }

  // Nothing outside [data, data + n) changed.
  bool guards_intact() const {
    for (const unsigned char* p = raw_.get(); p < data_; ++p)
      if (*p != kGuardByte) return false;
    for (const unsigned char* p = data_ + n_ * sizeof(T); p < raw_.get() + total_; ++p)
      if (*p != kGuardByte) return false;
    return true;
  }
  // Nothing at all changed since construction or the last remember().
  bool unchanged() const { return bytes() == snapshot_; }
  void remember() { snapshot_ = bytes(); }

 private:
  std::vector<unsigned char> bytes() const { return {raw_.get(), raw_.get() + total_}; }

  size_t n_, total_;
  std::unique_ptr<unsigned char[]> raw_;
  unsigned char* data_ = nullptr;
  std::vector<unsigned char> snapshot_;
};

// A guarded copy of v starting `misalign` bytes past a 64-byte boundary.
template <class T>
Guarded<T> placed(const std::vector<T>& v, size_t misalign = 0) {
  Guarded<T> g(v.size(), misalign);
  std::copy(v.begin(), v.end(), g.data());
  return g;
}

}  // namespace veks_test
