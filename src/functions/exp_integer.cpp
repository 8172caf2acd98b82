// zorsExp_* of integers: e^src[i] scaled, to nearest, ties to even, saturated. An exponential that overflows saturates,
// one that underflows gives 0, at every scale.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

#include "exports/functions.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// 2^-scaleFactor in two factors, neither of which overflows: beyond the limit every finite value but 0 ends the same.
struct TwoFactors {
  Zor64f first, second;
};
TwoFactors powerOfTwo(Zor32s scaleFactor, int limit) {
  const int exponent = -std::clamp(scaleFactor, -limit, limit);
  return {std::ldexp(1.0, exponent / 2), std::ldexp(1.0, exponent - exponent / 2)};
}

// ---- 16 bits ------------------------------------------------------------------------------------

constexpr int tableScales = 17;   // scales 0 to 16
constexpr int lastArgument = 24;  // above it every entry saturates

// round(e^x / 2^scale) for x from 0 to 24, then 32767, then the 0 of negative elements. Only e^0 / 2 is a tie.
consteval auto makeTable() {
  std::array<std::array<Zor16s, lastArgument + 3>, tableScales> table{};
  long double power = 1;
  for (std::size_t x = 0; x <= lastArgument; ++x, power *= 2.718281828459045235360287471352662498L) {
    long double value = power;
    for (auto& row : table) {
      row[x] = value >= 32767 ? Zor16s{32767} : value <= 0.5L ? Zor16s{0} : static_cast<Zor16s>(value + 0.5L);
      value /= 2;
    }
  }
  for (auto& row : table) row[lastArgument + 1] = 32767;
  return table;
}
constexpr auto expTable = makeTable();

void lookUp(const Zor16s* src, Zor16s* dst, Zor32s len, int scale) {
  const auto& row = expTable[static_cast<std::size_t>(scale)];
  for (Zor32s i = 0; i < len; ++i) {
    const int x = src[i];
    dst[i] = row[static_cast<std::size_t>(x < 0 ? lastArgument + 2 : std::min(x, lastArgument + 1))];
  }
}

ZorStatus exponentials16(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    if (scaleFactor >= tableScales) {
      std::memset(dst, 0, static_cast<std::size_t>(len) * sizeof *dst);
    } else if (scaleFactor >= 0) {
      lookUp(src, dst, len, scaleFactor);
    } else {
      const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
      const TwoFactors factor = powerOfTwo(scaleFactor, 1200);
      map<mapStep<Zor16s>>(
          [=](auto x) ZORS_INLINE_LAMBDA {
            const auto y = exponential(toDouble(x));
            const auto value = mul(mul(y, same(y, factor.first)), same(y, factor.second));
            return saturate<Zor16s>(toIntegerCurrent(min(value, same(value, 32767.0))));
          },
          len, dst, src);
    }
  });
}

// ---- 32 and 64 bits: the exponential of the standard library, since a 64-bit result shows all its bits.

template <class T> ZorStatus exponentials(const T* src, T* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    constexpr Zor64s highest = std::numeric_limits<T>::max();
    const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
    const TwoFactors factor = powerOfTwo(scaleFactor, 2000);
    for (Zor32s i = 0; i < len; ++i) {
      const Zor64f value = std::exp(static_cast<Zor64f>(src[i])) * factor.first * factor.second;
      dst[i] = static_cast<T>(value < 0x1p63 ? std::min<Zor64s>(_mm_cvtsd_si64(_mm_set_sd(value)), highest) : highest);
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsExp_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return exponentials16(src, dst, len, scaleFactor); }
ZorStatus zorsExp_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return exponentials(src, dst, len, scaleFactor); }
ZorStatus zorsExp_64s_Sfs(const Zor64s* src, Zor64s* dst, Zor32s len, Zor32s scaleFactor) { return exponentials(src, dst, len, scaleFactor); }
ZorStatus zorsExp_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return exponentials16(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsExp_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return exponentials(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsExp_64s_ISfs(Zor64s* srcDst, Zor32s len, Zor32s scaleFactor) { return exponentials(srcDst, srcDst, len, scaleFactor); }
// clang-format on

}  // namespace zors
