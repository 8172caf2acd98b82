// zorsWinBlackman_*, zorsWinBlackmanStd_*, zorsWinBlackmanOpt_*, zorsWinBlackmanQ15_*: two cosines.
#include <algorithm>

#include "exports/windows.h"
#include "windows/cosine_weights.h"

namespace zors {
namespace {

template <class T> using Alpha = std::conditional_t<std::is_same_v<simd::Part<T>, Zor64f>, Zor64f, Zor32f>;

template <class T> ZorStatus blackman(const T* src, T* dst, Zor32s len, Alpha<T> alpha) {
  return check().pointers(src, dst).require(len >= 3, zorStatusBadSize).then([&] {
    if (len == 3) {
      const T centre = src[1];
      dst[0] = T{};
      dst[1] = centre;
      dst[2] = T{};
    } else {
      weighByCosine(src, dst, len, Blackman{alpha});
    }
  });
}

template <class T> ZorStatus blackmanStd(const T* src, T* dst, Zor32s len) {
  return blackman(src, dst, len, Alpha<T>(-0.16));
}

// The alpha that makes the elements next to the ends zero too. The length comes before all other checks: it makes
// alpha.
template <class T> ZorStatus blackmanOpt(const T* src, T* dst, Zor32s len) {
  return check().require(len >= 4, zorStatusBadSize).then([&] {
    const Zor64f root = 0.5 / std::cos(std::numbers::pi / (len - 1));
    return blackman(src, dst, len, static_cast<Alpha<T>>(-(root * root)));
  });
}

Zor32f fromQ15(Zor32s alphaQ15) { return static_cast<Zor32f>(alphaQ15) * 3.0517578e-5f; }

template <class T> ZorStatus blackmanQ15(const T* src, T* dst, Zor32s len, Zor32s alphaQ15) {
  return blackman(src, dst, len, fromQ15(alphaQ15));
}

}  // namespace

// The power of two goes into the weights, which it rounds no other way than the products. From 2^100 on every product
// saturates, and a zero must stay one.
ZorStatus zorsWinBlackmanQ15_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s alphaQ15, Zor32s scaleFactor) {
  const auto scale = static_cast<Zor32f>(std::min(std::pow(2.0, -Zor64f(scaleFactor)), 0x1p100));
  return check().pointers(srcDst).require(len >= 3, zorStatusBadSize).then([&] {
    weighByCosine(srcDst, srcDst, len, Blackman{fromQ15(alphaQ15), scale});
    if (len % 2 == 0) return;
    using namespace simd;
    Zor16s* centre = srcDst + len / 2;
    storePart(centre, weighed(splat<Vec<Zor16s, 16>>(*centre), splat<Vec<Zor32f, 16>>(scale)), 1);
  });
}

// clang-format off
#define WINDOW(name, inPlace, T, work)                                                                      \
  ZorStatus name(const T* src, T* dst, Zor32s len) { return work(src, dst, len); }                          \
  ZorStatus inPlace(T* srcDst, Zor32s len) { return work(srcDst, srcDst, len); }
WINDOW(zorsWinBlackmanStd_16s,  zorsWinBlackmanStd_16s_I,  Zor16s,  blackmanStd)
WINDOW(zorsWinBlackmanStd_16sc, zorsWinBlackmanStd_16sc_I, Zor16sc, blackmanStd)
WINDOW(zorsWinBlackmanStd_32f,  zorsWinBlackmanStd_32f_I,  Zor32f,  blackmanStd)
WINDOW(zorsWinBlackmanStd_32fc, zorsWinBlackmanStd_32fc_I, Zor32fc, blackmanStd)
WINDOW(zorsWinBlackmanStd_64f,  zorsWinBlackmanStd_64f_I,  Zor64f,  blackmanStd)
WINDOW(zorsWinBlackmanStd_64fc, zorsWinBlackmanStd_64fc_I, Zor64fc, blackmanStd)
WINDOW(zorsWinBlackmanOpt_16s,  zorsWinBlackmanOpt_16s_I,  Zor16s,  blackmanOpt)
WINDOW(zorsWinBlackmanOpt_16sc, zorsWinBlackmanOpt_16sc_I, Zor16sc, blackmanOpt)
WINDOW(zorsWinBlackmanOpt_32f,  zorsWinBlackmanOpt_32f_I,  Zor32f,  blackmanOpt)
WINDOW(zorsWinBlackmanOpt_32fc, zorsWinBlackmanOpt_32fc_I, Zor32fc, blackmanOpt)
WINDOW(zorsWinBlackmanOpt_64f,  zorsWinBlackmanOpt_64f_I,  Zor64f,  blackmanOpt)
WINDOW(zorsWinBlackmanOpt_64fc, zorsWinBlackmanOpt_64fc_I, Zor64fc, blackmanOpt)
#undef WINDOW

#define WINDOW(name, inPlace, T, A, work)                                                                   \
  ZorStatus name(const T* src, T* dst, Zor32s len, A alpha) { return work(src, dst, len, alpha); }          \
  ZorStatus inPlace(T* srcDst, Zor32s len, A alpha) { return work(srcDst, srcDst, len, alpha); }
WINDOW(zorsWinBlackman_16s,     zorsWinBlackman_16s_I,     Zor16s,  Zor32f, blackman)
WINDOW(zorsWinBlackman_16sc,    zorsWinBlackman_16sc_I,    Zor16sc, Zor32f, blackman)
WINDOW(zorsWinBlackman_32f,     zorsWinBlackman_32f_I,     Zor32f,  Zor32f, blackman)
WINDOW(zorsWinBlackman_32fc,    zorsWinBlackman_32fc_I,    Zor32fc, Zor32f, blackman)
WINDOW(zorsWinBlackman_64f,     zorsWinBlackman_64f_I,     Zor64f,  Zor64f, blackman)
WINDOW(zorsWinBlackman_64fc,    zorsWinBlackman_64fc_I,    Zor64fc, Zor64f, blackman)
WINDOW(zorsWinBlackmanQ15_16s,  zorsWinBlackmanQ15_16s_I,  Zor16s,  Zor32s, blackmanQ15)
WINDOW(zorsWinBlackmanQ15_16sc, zorsWinBlackmanQ15_16sc_I, Zor16sc, Zor32s, blackmanQ15)
#undef WINDOW
// clang-format on

}  // namespace zors
