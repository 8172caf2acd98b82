// zorsWinKaiser_*, zorsWinKaiserQ15_*: Kaiser's window.
#include <cmath>

#include "exports/functions.h"
#include "exports/windows.h"
#include "frame/check.h"
#include "windows/bessel.h"
#include "windows/window_pairs.h"

namespace zors {
namespace {

// Weights are evaluated in the type of the elements, those of integers in 64 bits.
template <class T> using Evaluated = std::conditional_t<isInteger<T>, Zor64f, simd::Part<T>>;
template <class T>
using Bessel = std::conditional_t<std::is_same_v<simd::Part<T>, Zor64f>, simd::FineBessel, simd::CoarseBessel>;
// Beyond this argument I0 leaves the type that it is evaluated in.
template <class T> inline constexpr Zor64f largestArgument = sizeof(Evaluated<T>) == 4 ? 38.0 : 308.0;

template <class Fit> Zor64f besselOf(Zor64f x) {
  using namespace simd;
  using V = Vec<Zor64f, 4>;
  return _mm256_cvtsd_f64(besselI0<Fit>(splat<V>(x), [](V y) {
                            Zor64f e = _mm256_cvtsd_f64(y.r[0]);
                            zors::zorsExp_64f(&e, &e, 1);
                            return splat<V>(e);
                          }).r[0]);
}

// I0(alpha * sqrt(n * (last - n))) * scale from some n on.
template <class T> class KaiserWeights {
  using E = Evaluated<T>;

 public:
  static constexpr int lanes = pairsAtOnce<T>;
  KaiserWeights(Zor32s first, Zor32s last, E alpha, E scale)
      : last_(simd::splat<Ordinals>(last)), alpha_(simd::splat<V>(alpha)), scale_(simd::splat<V>(scale)) {
    alignas(64) static constexpr Zor32s ordinals[16] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    n_ = add(simd::load<lanes>(ordinals), simd::splat<Ordinals>(first));
  }
  [[gnu::noinline]] simd::Vec<Weight<T>, lanes> next() {
    const auto n = n_;
    n_ = add(n_, same(n_, lanes));
    const auto left = max(sub(last_, n), same(n, 0));  // idle lanes may be beyond the end
    const V argument = mul(alpha_, sqrt(mul(evaluated(n), evaluated(left))));
    const V w = mul(simd::besselI0<Bessel<T>>(argument, simd::ReducedExponential{}), scale_);
    if constexpr (std::is_same_v<E, Weight<T>>)
      return w;
    else
      return simd::toFloat(w);
  }

 private:
  using V = simd::Vec<E, lanes>;
  using Ordinals = simd::Vec<Zor32s, lanes>;
  static V evaluated(Ordinals n) {
    if constexpr (sizeof(E) == 4)
      return simd::toFloat(n);
    else
      return simd::toDouble(n);
  }
  Ordinals n_, last_;
  V alpha_, scale_;
};

// A is the type that alpha * (len - 1) is formed in.
template <class T, class A> ZorStatus kaiser(const T* src, T* dst, Zor32s len, A givenAlpha) {
  const A alpha = std::fabs(givenAlpha);
  return check()
      .pointers(src, dst)
      .size(len)
      .require(!(Zor64f{alpha} * (Zor64f(len) - 1) * 0.5 > largestArgument<T>), zorStatusBadAlpha)
      .then([&] {
        if (len == 1) {
          dst[0] = src[0];
          return;
        }
        using E = Evaluated<T>;
        const Zor64f inverse = 1 / besselOf<Bessel<T>>(Zor64f{alpha * static_cast<A>(len - 1)} * 0.5);
        const auto weightsFrom = [&](Zor32s n) {
          return KaiserWeights<T>(n, len - 1, static_cast<E>(alpha), static_cast<E>(inverse));
        };
        const Zor32s pairs = len / 2;
        weighPairs(src, dst, len, 0, pairs, weightsFrom(0));
        if (len % 2 != 0) {
          constexpr int L = KaiserWeights<T>::lanes;
          simd::storePart(dst + pairs, weighed(simd::loadPart<L>(src + pairs, 1), weightsFrom(pairs).next()), 1);
        }
      });
}

template <class T> ZorStatus kaiserQ15(const T* src, T* dst, Zor32s len, Zor32s alphaQ15) {
  return kaiser(src, dst, len, alphaQ15 * 0x1p-15);
}

}  // namespace

// clang-format off
#define WINDOW(name, inPlace, T, A, work)                                                                   \
  ZorStatus name(const T* src, T* dst, Zor32s len, A alpha) { return work(src, dst, len, alpha); }          \
  ZorStatus inPlace(T* srcDst, Zor32s len, A alpha) { return work(srcDst, srcDst, len, alpha); }
WINDOW(zorsWinKaiser_16s,     zorsWinKaiser_16s_I,     Zor16s,  Zor32f, kaiser)
WINDOW(zorsWinKaiser_16sc,    zorsWinKaiser_16sc_I,    Zor16sc, Zor32f, kaiser)
WINDOW(zorsWinKaiser_32f,     zorsWinKaiser_32f_I,     Zor32f,  Zor32f, kaiser)
WINDOW(zorsWinKaiser_32fc,    zorsWinKaiser_32fc_I,    Zor32fc, Zor32f, kaiser)
WINDOW(zorsWinKaiser_64f,     zorsWinKaiser_64f_I,     Zor64f,  Zor64f, kaiser)
WINDOW(zorsWinKaiser_64fc,    zorsWinKaiser_64fc_I,    Zor64fc, Zor64f, kaiser)
WINDOW(zorsWinKaiserQ15_16s,  zorsWinKaiserQ15_16s_I,  Zor16s,  Zor32s, kaiserQ15)
WINDOW(zorsWinKaiserQ15_16sc, zorsWinKaiserQ15_16sc_I, Zor16sc, Zor32s, kaiserQ15)
#undef WINDOW
// clang-format on

}  // namespace zors
