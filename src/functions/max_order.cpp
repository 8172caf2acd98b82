// zorsMaxOrder_*: how many significant bits the greatest magnitude has.
#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>

#include "exports/functions.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// Magnitudes joined by or have the width of the greatest one.
template <class T> struct Widths {
  using Bits = T;
  template <int L> ZORS_INLINE static auto read(Vec<T, L> x) { return abs(x); }
  template <class V> ZORS_INLINE static V join(V a, V b) { return either(a, b); }
  static Bits join(Bits a, Bits b) { return Bits(a | b); }
  static Zor32s order(Bits all) { return Zor32s(std::bit_width(std::make_unsigned_t<Bits>(all))); }
  static bool isNan(Bits) { return false; }
};
// The patterns of floats without sign are ordered as their magnitudes are, NaN above all numbers.
template <class T> struct Patterns {
  using Bits = std::conditional_t<sizeof(T) == 4, Zor32s, Zor64s>;
  using Limits = std::numeric_limits<T>;
  static constexpr int fractionBits = Limits::digits - 1;

  template <int L> ZORS_INLINE static auto read(Vec<T, L> x) { return as<Bits>(magnitude(x)); }
  template <class V> ZORS_INLINE static V join(V a, V b) { return select(above(a, b), b, a); }
  static Bits join(Bits a, Bits b) { return std::max(a, b); }
  static Zor32s order(Bits greatest) {
    if (greatest == 0) return 0;
    const int exponent = int(greatest >> fractionBits);
    if (exponent == 0)  // a denormal: an integer times the least one
      return int(std::bit_width(std::make_unsigned_t<Bits>(greatest))) + Limits::min_exponent - Limits::digits;
    return exponent + Limits::min_exponent - 1;
  }
  static bool isNan(Bits greatest) { return greatest > std::bit_cast<Bits>(Limits::infinity()); }
};

// Elements may be joined twice, so the rest is one more block that overlaps.
template <class Kind, class T> [[gnu::flatten]] typename Kind::Bits joined(const T* src, std::ptrdiff_t len) {
  constexpr int step = lanesOf<T>, round = 4 * step;
  using One = Vec<typename Kind::Bits, step>;
  auto all = Kind::read(loadPart<round>(src, int(std::min<std::ptrdiff_t>(len, round))));
  for (std::ptrdiff_t i = round; i + round <= len; i += round) all = Kind::join(all, Kind::read(load<round>(src + i)));
  if (len > round) all = Kind::join(all, Kind::read(load<round>(src + len - round)));
  const One half1 = Kind::join(One{{all.r[0]}}, One{{all.r[1]}}), half2 = Kind::join(One{{all.r[2]}}, One{{all.r[3]}});
  typename Kind::Bits lane[step];
  store(lane, Kind::join(half1, half2));
  return std::accumulate(lane + 1, lane + step, lane[0], [](auto a, auto b) { return Kind::join(a, b); });
}

template <class Kind, class T> ZorStatus maxOrder(const T* src, Zor32s len, Zor32s* order) {
  return check().size(len).pointers(src, order).then([&] {
    const auto greatest = joined<Kind>(src, len);
    *order = Kind::order(greatest);
    return Kind::isNan(greatest) ? zorWarningNotANumber : zorStatusOk;
  });
}

}  // namespace

// clang-format off
ZorStatus zorsMaxOrder_16s(const Zor16s* src, Zor32s len, Zor32s* order) { return maxOrder<Widths<Zor16s>>(src, len, order); }
ZorStatus zorsMaxOrder_32s(const Zor32s* src, Zor32s len, Zor32s* order) { return maxOrder<Widths<Zor32s>>(src, len, order); }
ZorStatus zorsMaxOrder_32f(const Zor32f* src, Zor32s len, Zor32s* order) { return maxOrder<Patterns<Zor32f>>(src, len, order); }
ZorStatus zorsMaxOrder_64f(const Zor64f* src, Zor32s len, Zor32s* order) { return maxOrder<Patterns<Zor64f>>(src, len, order); }
// clang-format on

}  // namespace zors
