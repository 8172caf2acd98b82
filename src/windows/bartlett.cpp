// zorsWinBartlett_*: a triangle.
#include "exports/windows.h"
#include "frame/check.h"
#include "windows/window_pairs.h"

namespace zors {
namespace {

// n * step from n = 1 on: one rounding where a running sum has n.
template <class W, int L> class Ramp {
 public:
  static constexpr int lanes = L;
  explicit Ramp(W step) : step_(simd::splat<simd::Vec<W, L>>(step)) {
    alignas(64) static constexpr Zor32s ordinals[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    n_ = simd::load<L>(ordinals);
  }
  ZORS_INLINE simd::Vec<W, L> next() {
    const auto n = n_;
    n_ = add(n_, same(n_, L));
    if constexpr (std::is_same_v<W, Zor64f>)
      return mul(simd::toDouble(n), step_);
    else
      return mul(simd::toFloat(n), step_);
  }

 private:
  simd::Vec<Zor32s, L> n_;
  simd::Vec<W, L> step_;
};

template <class T> ZorStatus bartlett(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).require(len >= 3, zorStatusBadSize).then([&] {
    using W = Weight<T>;
    const Zor32s pairs = len / 2;
    const W step = isInteger<T> ? static_cast<W>(2.0 / (len - 1)) : W(2) / static_cast<W>(len - 1);
    if (len % 2 != 0) dst[pairs] = src[pairs];
    dst[0] = dst[len - 1] = T{};
    weighPairs(src, dst, len, 1, pairs - 1, Ramp<W, pairsAtOnce<T>>(step));
  });
}

}  // namespace

// clang-format off
#define WINDOW(name, inPlace, T)                                                                            \
  ZorStatus name(const T* src, T* dst, Zor32s len) { return bartlett(src, dst, len); }                      \
  ZorStatus inPlace(T* srcDst, Zor32s len) { return bartlett(srcDst, srcDst, len); }
WINDOW(zorsWinBartlett_16s,  zorsWinBartlett_16s_I,  Zor16s)
WINDOW(zorsWinBartlett_16sc, zorsWinBartlett_16sc_I, Zor16sc)
WINDOW(zorsWinBartlett_32f,  zorsWinBartlett_32f_I,  Zor32f)
WINDOW(zorsWinBartlett_32fc, zorsWinBartlett_32fc_I, Zor32fc)
WINDOW(zorsWinBartlett_64f,  zorsWinBartlett_64f_I,  Zor64f)
WINDOW(zorsWinBartlett_64fc, zorsWinBartlett_64fc_I, Zor64fc)
#undef WINDOW
// clang-format on

}  // namespace zors
