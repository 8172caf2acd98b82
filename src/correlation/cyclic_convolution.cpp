// zorsConvCyclic*: cyclic convolutions of 8 and 4 elements, without checks.
#include <algorithm>

#include "exports/conversion.h"
#include "exports/correlation.h"
#include "frame/simd.h"

namespace zors {
namespace {

using namespace simd;

// A register of h twice in a row: h[(n - k) mod N] for all n is what starts N - k elements in.
template <class V> class Rotations {
 public:
  explicit Rotations(V h) {
    store(twice_, h);
    store(twice_ + V::lanes, h);
  }
  ZORS_INLINE V by(int k) const { return load<V::lanes>(twice_ + V::lanes - k); }

 private:
  typename V::Element twice_[2 * V::lanes];
};

}  // namespace

ZorStatus zorsConvCyclic8x8_32f(const Zor32f* x, const Zor32f* h, Zor32f* y) {
  using V = Vec<Zor32f, 8>;
  const Rotations<V> rotations(load<8>(h));
  V even = splat<V>(0), odd = even;
  unrolled<4>([&](auto i) ZORS_INLINE_LAMBDA {
    even = fma(splat<V>(x[2 * i]), rotations.by(2 * i), even);
    odd = fma(splat<V>(x[2 * i + 1]), rotations.by(2 * i + 1), odd);
  });
  store(y, add(even, odd));
  return zorStatusOk;
}

// Sums wrap in 32 bits.
ZorStatus zorsConvCyclic8x8_16s_Sfs(const Zor16s* x, const Zor16s* h, Zor16s* y, Zor32s scaleFactor) {
  using V = Vec<Zor32s, 8>;
  const auto wide = [](const Zor16s* p) ZORS_INLINE_LAMBDA {
    return V{{_mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)))}};
  };
  const Rotations<V> rotations(wide(h));
  V sum = splat<V>(0);
  unrolled<8>([&](auto k) ZORS_INLINE_LAMBDA { sum = add(sum, mul(splat<V>(x[k]), rotations.by(k))); });
  Zor32s sums[8];
  store(sums, sum);
  zors::zorsConvert_32s16s_Sfs(sums, y, 8, std::min(std::max(scaleFactor, -31), 31));
  return zorStatusOk;
}

ZorStatus zorsConvCyclic4x4_32f32fc(const Zor32f* x, const Zor32fc* h, Zor32fc* y) {
  using V = Vec<Zor32fc, 4>;
  const Rotations<V> rotations(load<4>(h));
  auto sum = splat<Vec<Zor32f, 8>>(0);
  unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA { sum = fma(same(sum, x[k]), as<Zor32f>(rotations.by(k)), sum); });
  store(y, as<Zor32fc>(sum));
  return zorStatusOk;
}

}  // namespace zors
