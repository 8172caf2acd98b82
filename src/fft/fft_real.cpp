// zorsFFTFwd_RToPack_*, zorsFFTFwd_RToPerm_*, zorsFFTFwd_RToCCS_*, zorsFFTInv_PackToR_*, zorsFFTInv_PermToR_*,
// zorsFFTInv_CCSToR_* of float values: a complex transform of half the length on pairs of values, and one sweep that
// parts the spectra of the even and the odd values.
#include "exports/fft.h"
#include "fft/fft_small.h"
#include "fft/fft_spec.h"
#include "fft/packed.h"

namespace zors {
namespace {

using namespace fft;

template <class T, int L> struct Mirrored { Points<T, L> low, high; };  // the terms k and N / 2 - k

// The spectrum of pairs of values to that of the values, at k = low and its mirror: with p = Z[k], q = conj Z[N/2 - k],
// d = p - q and t = (1/2 - sin/2 - i cos/2) d it is q + t and conj(p - t).
template <class T, int L> ZORS_INLINE Mirrored<T, L> partForward(Mirrored<T, L> z, Points<T, L> factor) {
  const auto halfCosine = factor.re, rest = factor.im;
  const auto p = z.low;
  const Points<T, L> q = {z.high.re, -z.high.im}, d = p - q;
  const Points<T, L> t = {fma(rest, d.re, halfCosine * d.im), fma(rest, d.im, negated(halfCosine) * d.re)};
  const auto mirror = p - t;
  return {q + t, {mirror.re, -mirror.im}};
}
// The way back, to twice the spectrum of pairs: with p = X[k], q = conj X[N/2 - k], u = p + q, d = p - q and
// t = i (cos + i sin) d it is u + t and conj(u - t).
template <class T, int L> ZORS_INLINE Mirrored<T, L> partInverse(Mirrored<T, L> x, Points<T, L> w) {
  const auto p = x.low;
  const Points<T, L> q = {x.high.re, -x.high.im}, u = p + q, d = p - q;
  const Points<T, L> t = {fma(w.im, d.re, -(w.re * d.im)), fma(w.im, d.im, w.re * d.re)};
  const auto mirror = u - t;
  return {u + t, {mirror.re, -mirror.im}};
}

// The same forward with (cos, -sin) for a factor: h + u and conj(h - u) with h = p/2 + q/2 and u = -i (cos - i sin)
// d/2.
template <class T, int L> ZORS_INLINE Mirrored<T, L> partForwardHalving(Mirrored<T, L> z, Points<T, L> w) {
  const auto half = allLanes<L>(T(0.5)), halfCosine = half * w.re, halfMinusSine = half * w.im;
  const auto p = z.low;
  const Points<T, L> q = {z.high.re, -z.high.im}, d = p - q;
  const Points<T, L> mean = {fma(half, p.re, half * q.re), fma(half, p.im, half * q.im)};
  const Points<T, L> u = {fma(halfMinusSine, d.re, halfCosine * d.im),
                          fma(halfMinusSine, d.im, negated(halfCosine) * d.re)};
  const auto mirror = mean - u;
  return {mean + u, {mirror.re, -mirror.im}};
}

// The sweep goes from both ends to the middle, L pairs at a time.
template <int L, class T, class Part>
ZORS_INLINE void partAt(const T* src, T* dst, std::size_t n, std::size_t k, Part part) {
  const std::size_t mirror = n / 2 - k - (L - 1);
  const auto back = loadInterleaved<L>(src + 2 * mirror);
  const Mirrored<T, L> out =
      part(Mirrored<T, L>{loadInterleaved<L>(src + 2 * k), {reversed(back.re), reversed(back.im)}});
  storeInterleaved<L>(dst + 2 * k, out.low);
  storeInterleaved<L>(dst + 2 * mirror, Points<T, L>{reversed(out.high.re), reversed(out.high.im)});
}
template <class T> ZORS_INLINE void sumAndDifference(const T* src, T* dst) {
  const T first = src[0], second = src[1];
  dst[0] = first + second;
  dst[1] = first - second;
}

// The same of the first point in a register; the second is not used.
ZORS_INLINE Lanes<Zor32f, 4> sumAndDifference(Lanes<Zor32f, 4> x) {
  const __m128 re = _mm_moveldup_ps(x.r), im = _mm_movehdup_ps(x.r);
  return {_mm_unpacklo_ps(_mm_add_ss(re, im), _mm_sub_ss(re, im))};
}
ZORS_INLINE Lanes<Zor64f, 4> sumAndDifference(Lanes<Zor64f, 4> x) {
  const __m128d re = _mm256_castpd256_pd128(x.r), im = _mm_permute_pd(re, 1);
  return {_mm256_castpd128_pd256(_mm_unpacklo_pd(_mm_add_sd(re, im), _mm_sub_sd(re, im)))};
}

// All pairs; the middle term meets itself and is written twice.
template <bool inverse, int L, class T>
[[gnu::flatten]] void part(const T* src, T* dst, std::size_t n, const T* factors) {
  sumAndDifference(src, dst);
  for (std::size_t k = 1; k <= n / 4; k += L, factors += 2 * L)
    partAt<L>(src, dst, n, k, [&](auto pair) ZORS_INLINE_LAMBDA {
      const auto factor = loadPoints<L>(factors);
      return inverse ? partInverse(pair, factor) : partForward(pair, factor);
    });
}
template <bool inverse, class T>
[[gnu::flatten]] void partTwoLevel(const T* src, T* dst, std::size_t n, const T* factors) {
  constexpr int L = fullLanes<T>;
  sumAndDifference(src, dst);
  const T* coarse = factors + 2 * fineFactors<T>;
  for (std::size_t base = 0; base < n / 4; base += fineFactors<T>, coarse += 2) {
    const Points<T, L> turn = {allLanes<L>(coarse[0]), allLanes<L>(coarse[1])};
    for (std::size_t fine = 0; fine < fineFactors<T>; fine += L)
      partAt<L>(src, dst, n, base + fine + 1, [&](auto pair) ZORS_INLINE_LAMBDA {
        const auto factor = twiddle<false>(turn, loadPoints<L>(factors + 2 * fine));
        return inverse ? partInverse(pair, factor) : partForwardHalving(pair, factor);
      });
  }
}

// Orders 3 and 4, and what they need of the tables.
template <int order, int L, class T>
constexpr auto smallFactors = [] {
  struct {
    std::array<T, factorValues<T>(order)> forward{}, inverse{};
  } tables;
  factorRecords<L>(order, staticSineTable<T>(order), tables.forward.data(), tables.inverse.data());
  return tables;
}();

// All values are read before the first is written.
template <int order, bool inverse, bool scaled, class T>
[[gnu::flatten]] void straightLine(const T* src, T* dst, T scale) {
  constexpr int n = 1 << order;
  T x[n], out[n];
  simd::unrolled<n>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = src[i]; });
  if constexpr (order == 0) {
    out[0] = x[0];
  } else if constexpr (order == 1) {
    out[0] = x[0] + x[1];
    out[1] = x[0] - x[1];
  } else if constexpr (order == 2 && !inverse) {
    const T even = x[0] + x[2], odd = x[3] + x[1];
    out[0] = even + odd;
    out[1] = even - odd;
    out[2] = x[0] - x[2];
    out[3] = x[3] - x[1];
  } else if constexpr (order == 2) {
    const T even = x[0] + x[1], odd = x[0] - x[1], twiceRe = x[2] + x[2], twiceIm = x[3] + x[3];
    out[0] = even + twiceRe;
    out[1] = odd - twiceIm;
    out[2] = even - twiceRe;
    out[3] = odd + twiceIm;
  } else {
    T pairs[n];
    const auto complexTransform = [&](const T* from, T* to) ZORS_INLINE_LAMBDA {
      const auto y = butterfly<n / 2, inverse, 1, T>([&](auto q) ZORS_INLINE_LAMBDA {
        return Points<T, 1>{{from[2 * q]}, {from[2 * q + 1]}};
      });
      simd::unrolled<n / 2>([&](auto q) ZORS_INLINE_LAMBDA { storeInterleaved<1>(to + 2 * q, y.at[q]); });
    };
    if constexpr (inverse) {
      part<inverse, 1>(x, pairs, n, smallFactors<order, 1, T>.inverse.data());
      complexTransform(pairs, out);
    } else {
      complexTransform(x, pairs);
      part<inverse, 1>(pairs, out, n, smallFactors<order, 1, T>.forward.data());
    }
  }
  simd::unrolled<n>([&](auto i) ZORS_INLINE_LAMBDA { dst[i] = scaled ? out[i] * scale : out[i]; });
}
// Order 4, the first to fill registers: one step of the sweep, of the pairs 1 to 4 and their mirrors 7 to 4, with the
// pairs in registers as eightPoints has them.
template <bool inverse, bool scaled, class T> [[gnu::flatten]] void sixteenValues(const T* src, T* dst, T scale) {
  constexpr int L = 4;
  const auto backwards = [](auto pair) ZORS_INLINE_LAMBDA { return joined<1, 0>(pair, pair); };
  const auto z = inverse ? loadEight(src) : eightPoints<false>(loadEight(src));
  const auto z12 = joined<1, 0>(z.at[0], z.at[1]), z34 = joined<1, 0>(z.at[1], z.at[2]);
  const Mirrored<T, L> pairs = {parted(z12, z34), parted(backwards(z.at[3]), backwards(z.at[2]))};
  const auto factor = loadPoints<L>((inverse ? smallFactors<4, L, T>.inverse : smallFactors<4, L, T>.forward).data());
  const auto y = inverse ? partInverse(pairs, factor) : partForward(pairs, factor);
  const auto low = interleaved(y.low), high = interleaved(y.high);
  const auto first = sumAndDifference(z.at[0]);
  const Group<Lanes<T, L>, 4> x = {{joined<0, 0>(first, low.at[0]), joined<1, 0>(low.at[0], low.at[1]),
                                    backwards(high.at[1]), backwards(high.at[0])}};
  storeEight<scaled>(dst, inverse ? eightPoints<true>(x) : x, scale);
}
template <bool inverse, bool scaled, class T> void smallReal(int order, const T* src, T* dst, T scale) {
  switch (order) {
    case 0:
      return straightLine<0, inverse, scaled>(src, dst, scale);
    case 1:
      return straightLine<1, inverse, scaled>(src, dst, scale);
    case 2:
      return straightLine<2, inverse, scaled>(src, dst, scale);
    case 3:
      return straightLine<3, inverse, scaled>(src, dst, scale);
    default:
      return sixteenValues<inverse, scaled>(src, dst, scale);
  }
}
template <bool inverse, class T> void smallReal(const Spec<T>& spec, const T* src, T* dst) {
  if (spec.scales(inverse))
    smallReal<inverse, true>(spec.order, src, dst, spec.scale);
  else
    smallReal<inverse, false>(spec.order, src, dst, spec.scale);
}

template <Packed format, class S, class T> ZorStatus realForward(const T* src, T* dst, const S* spec, Zor8u* buffer) {
  return withSpec(
      spec, buffer,
      [&](Zor8u* work) {
        const std::size_t n = std::size_t{1} << spec->order;
        if (spec->order <= largestSmallRealOrder) {
          smallReal<false, T>(*spec, src, dst);
        } else {
          transform<T>(*spec, spec->order - 1, false, Interleaved<const T>{src}, Interleaved<T>{dst}, work);
          if (spec->order < twoLevelOrder<T>)
            part<false, fullLanes<T>>(dst, dst, n, spec->realForward);
          else
            partTwoLevel<false>(dst, dst, n, spec->realForward);
        }
        fromPerm<format>(dst, n);
      },
      src, dst);
}

template <Packed format, class S, class T> ZorStatus realInverse(const T* src, T* dst, const S* spec, Zor8u* buffer) {
  return withSpec(
      spec, buffer,
      [&](Zor8u* work) {
        const std::size_t n = std::size_t{1} << spec->order;
        const T* perm = src;
        if constexpr (format != Packed::perm) {
          toPerm<format>(src, dst, n);
          perm = dst;
        }
        if (spec->order <= largestSmallRealOrder) {
          smallReal<true, T>(*spec, perm, dst);
        } else {
          if (spec->order < twoLevelOrder<T>)
            part<true, fullLanes<T>>(perm, dst, n, spec->realInverse);
          else
            partTwoLevel<true>(perm, dst, n, spec->realInverse);
          transform<T>(*spec, spec->order - 1, true, Interleaved<const T>{dst}, Interleaved<T>{dst}, work);
        }
      },
      src, dst);
}

}  // namespace

// clang-format off
#define FORWARD(name, T, Spec, format) ZorStatus name(const T* src, T* dst, const Spec* spec, Zor8u* buffer) { return realForward<format>(src, dst, spec, buffer); }
#define FORWARD_I(name, T, Spec, format) ZorStatus name(T* srcDst, const Spec* spec, Zor8u* buffer) { return realForward<format, Spec, T>(srcDst, srcDst, spec, buffer); }
FORWARD(zorsFFTFwd_RToPack_32f, Zor32f, ZorsFFTSpec_R_32f, Packed::pack)
FORWARD(zorsFFTFwd_RToPack_64f, Zor64f, ZorsFFTSpec_R_64f, Packed::pack)
FORWARD(zorsFFTFwd_RToPerm_32f, Zor32f, ZorsFFTSpec_R_32f, Packed::perm)
FORWARD(zorsFFTFwd_RToPerm_64f, Zor64f, ZorsFFTSpec_R_64f, Packed::perm)
FORWARD(zorsFFTFwd_RToCCS_32f, Zor32f, ZorsFFTSpec_R_32f, Packed::ccs)
FORWARD(zorsFFTFwd_RToCCS_64f, Zor64f, ZorsFFTSpec_R_64f, Packed::ccs)
FORWARD_I(zorsFFTFwd_RToPack_32f_I, Zor32f, ZorsFFTSpec_R_32f, Packed::pack)
FORWARD_I(zorsFFTFwd_RToPack_64f_I, Zor64f, ZorsFFTSpec_R_64f, Packed::pack)
FORWARD_I(zorsFFTFwd_RToPerm_32f_I, Zor32f, ZorsFFTSpec_R_32f, Packed::perm)
FORWARD_I(zorsFFTFwd_RToPerm_64f_I, Zor64f, ZorsFFTSpec_R_64f, Packed::perm)
FORWARD_I(zorsFFTFwd_RToCCS_32f_I, Zor32f, ZorsFFTSpec_R_32f, Packed::ccs)
FORWARD_I(zorsFFTFwd_RToCCS_64f_I, Zor64f, ZorsFFTSpec_R_64f, Packed::ccs)
#undef FORWARD
#undef FORWARD_I

#define INVERSE(name, T, Spec, format) ZorStatus name(const T* src, T* dst, const Spec* spec, Zor8u* buffer) { return realInverse<format>(src, dst, spec, buffer); }
#define INVERSE_I(name, T, Spec, format) ZorStatus name(T* srcDst, const Spec* spec, Zor8u* buffer) { return realInverse<format, Spec, T>(srcDst, srcDst, spec, buffer); }
INVERSE(zorsFFTInv_PackToR_32f, Zor32f, ZorsFFTSpec_R_32f, Packed::pack)
INVERSE(zorsFFTInv_PackToR_64f, Zor64f, ZorsFFTSpec_R_64f, Packed::pack)
INVERSE(zorsFFTInv_PermToR_32f, Zor32f, ZorsFFTSpec_R_32f, Packed::perm)
INVERSE(zorsFFTInv_PermToR_64f, Zor64f, ZorsFFTSpec_R_64f, Packed::perm)
INVERSE(zorsFFTInv_CCSToR_32f, Zor32f, ZorsFFTSpec_R_32f, Packed::ccs)
INVERSE(zorsFFTInv_CCSToR_64f, Zor64f, ZorsFFTSpec_R_64f, Packed::ccs)
INVERSE_I(zorsFFTInv_PackToR_32f_I, Zor32f, ZorsFFTSpec_R_32f, Packed::pack)
INVERSE_I(zorsFFTInv_PackToR_64f_I, Zor64f, ZorsFFTSpec_R_64f, Packed::pack)
INVERSE_I(zorsFFTInv_PermToR_32f_I, Zor32f, ZorsFFTSpec_R_32f, Packed::perm)
INVERSE_I(zorsFFTInv_PermToR_64f_I, Zor64f, ZorsFFTSpec_R_64f, Packed::perm)
INVERSE_I(zorsFFTInv_CCSToR_32f_I, Zor32f, ZorsFFTSpec_R_32f, Packed::ccs)
INVERSE_I(zorsFFTInv_CCSToR_64f_I, Zor64f, ZorsFFTSpec_R_64f, Packed::ccs)
#undef INVERSE
#undef INVERSE_I
// clang-format on

}  // namespace zors
