// Random values with extremes mixed in, repeatable by seed, and comparison by bits.
#pragma once

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "zors/types.h"

namespace kit {

using Random = std::mt19937_64;

template <class T>
concept ComplexPair = requires(T z) {
  z.re, z.im;
};

template <class T> struct UnsignedOf { using type = std::make_unsigned_t<T>; };
template <> struct UnsignedOf<float> { using type = std::uint32_t; };
template <> struct UnsignedOf<double> { using type = std::uint64_t; };
template <class T> using Unsigned = typename UnsignedOf<T>::type;

// A value of any bits, or an extreme one, or a small one.
template <std::integral T> T anyValue(Random& random) {
  using L = std::numeric_limits<T>;
  const auto bits = random();
  const T extremes[] = {L::min(), T(L::min() + 1), L::max(),           T(L::max() - 1), T(-1), 0, 1,
                        2,        T(L::max() / 2), T(L::max() / 2 + 1)};
  switch (bits >> 62) {
    case 0:
      return extremes[bits % std::size(extremes)];
    case 1:
      return T(bits % 16 - (std::is_signed_v<T> ? 8 : 0));
    default:
      return T(bits);
  }
}
// Ordinary values, all exponents, zeros of both signs, denormals, infinities, NaN.
template <std::floating_point T> T anyValue(Random& random) {
  using L = std::numeric_limits<T>;
  const auto bits = random();
  const T sign = bits & 1 ? T(-1) : T(1);
  const T extremes[] = {0, L::denorm_min(), L::min(),   L::max(),       L::infinity(), L::quiet_NaN(),
                        1, T(0.5),          T(32767.5), T(2147483648.0)};
  switch (bits >> 61) {
    case 0:
      return sign * extremes[(bits >> 8) % std::size(extremes)];
    case 1:
      return std::bit_cast<T>(Unsigned<T>(random()));  // all exponents and payloads
    default:
      return sign * std::ldexp(T(bits >> 11 & 0xFFFFFF) / T(1 << 24), int(bits >> 40 & 31) - 12);
  }
}
template <ComplexPair T> T anyValue(Random& random) {
  using Part = decltype(T::re);
  return {anyValue<Part>(random), anyValue<Part>(random)};
}
template <class T>
concept ByteRecord = std::is_class_v<T> && !ComplexPair<T>;  // a packed element of bytes
template <ByteRecord T> T anyValue(Random& random) {
  T x;
  for (auto& byte : x.bytes) byte = static_cast<Zor8u>(anyValue<Zor8u>(random));
  return x;
}
template <class T> void fillAny(std::span<T> out, Random& random) {
  for (T& x : out) x = anyValue<T>(random);
}
template <class T> std::vector<T> anyValues(std::size_t count, Random& random) {
  std::vector<T> out(count);
  fillAny<T>(out, random);
  return out;
}

// Uniform in [-1, 1): what a signal looks like.
template <class T> std::vector<T> signal(std::size_t count, Random& random) {
  const auto part = [&] { return static_cast<double>(static_cast<std::int64_t>(random() >> 10)) / 0x1p53 - 1; };
  std::vector<T> out(count);
  for (T& x : out) {
    if constexpr (ComplexPair<T>)
      x = {decltype(T::re)(part()), decltype(T::re)(part())};
    else
      x = T(part());
  }
  return out;
}

// Equal bit for bit; any NaN equals any other unless payloads are asked for.
enum class Nan { anyPayload, samePayload };
template <class T> bool sameBits(T a, T b, Nan nan = Nan::anyPayload) {
  if constexpr (ComplexPair<T>) {
    return sameBits(a.re, b.re, nan) && sameBits(a.im, b.im, nan);
  } else if constexpr (std::floating_point<T>) {
    if (nan == Nan::anyPayload && std::isnan(a) && std::isnan(b)) return true;
    return std::bit_cast<Unsigned<T>>(a) == std::bit_cast<Unsigned<T>>(b);
  } else {
    return a == b;
  }
}
template <class T> std::string text(T x) {
  if constexpr (ComplexPair<T>)
    return std::string("(").append(text(x.re)).append(", ").append(text(x.im)).append(")");
  else if constexpr (std::floating_point<T>) {
    char out[64];
    std::snprintf(out, sizeof out, "%a", double(x));
    return out;
  } else if constexpr (ByteRecord<T>) {
    std::string out;
    for (auto byte : x.bytes) out += std::to_string(byte) + " ";
    return out;
  } else
    return std::to_string(x);
}
// "" where all are equal, else the first difference.
template <class T>
std::string firstDifference(std::span<const T> got, std::span<const T> wanted, Nan nan = Nan::anyPayload) {
  if (got.size() != wanted.size())
    return "sizes " + std::to_string(got.size()) + " and " + std::to_string(wanted.size());
  for (std::size_t i = 0; i < got.size(); ++i)
    if (!sameBits(got[i], wanted[i], nan))
      return std::string("[")
          .append(std::to_string(i))
          .append("]: got ")
          .append(text(got[i]))
          .append(", wanted ")
          .append(text(wanted[i]));
  return "";
}

// Distance in units in the last place of T between a value and an exact one; infinite where only one is not finite.
template <std::floating_point T> double ulps(T got, long double exact) {
  if (std::isnan(got) && std::isnan(exact)) return 0;
  if (!std::isfinite(got) || !std::isfinite(exact))
    return T(exact) == got ? 0 : std::numeric_limits<double>::infinity();
  int exponent = std::numeric_limits<T>::min_exponent;
  if (exact != 0) exponent = std::max(exponent, std::ilogb(exact) + 1);
  return double(std::fabs(static_cast<long double>(got) - exact) /
                std::ldexp(1.0L, exponent - std::numeric_limits<T>::digits));
}

}  // namespace kit
