// zorsWinHann_*, zorsWinHamming_*: raised cosines.
#include "exports/windows.h"
#include "windows/cosine_weights.h"

namespace zors {
namespace {

template <class Shape, class T> ZorStatus raisedCosine(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).require(len >= 3, zorStatusBadSize).then([&] {
    weighByCosine(src, dst, len, Shape{});
  });
}

}  // namespace

// clang-format off
#define WINDOW(name, inPlace, T, Shape)                                                                     \
  ZorStatus name(const T* src, T* dst, Zor32s len) { return raisedCosine<Shape>(src, dst, len); }           \
  ZorStatus inPlace(T* srcDst, Zor32s len) { return raisedCosine<Shape>(srcDst, srcDst, len); }
WINDOW(zorsWinHann_16s,     zorsWinHann_16s_I,     Zor16s,  Hann)
WINDOW(zorsWinHann_16sc,    zorsWinHann_16sc_I,    Zor16sc, Hann)
WINDOW(zorsWinHann_32f,     zorsWinHann_32f_I,     Zor32f,  Hann)
WINDOW(zorsWinHann_32fc,    zorsWinHann_32fc_I,    Zor32fc, Hann)
WINDOW(zorsWinHann_64f,     zorsWinHann_64f_I,     Zor64f,  Hann)
WINDOW(zorsWinHann_64fc,    zorsWinHann_64fc_I,    Zor64fc, Hann)
WINDOW(zorsWinHamming_16s,  zorsWinHamming_16s_I,  Zor16s,  Hamming)
WINDOW(zorsWinHamming_16sc, zorsWinHamming_16sc_I, Zor16sc, Hamming)
WINDOW(zorsWinHamming_32f,  zorsWinHamming_32f_I,  Zor32f,  Hamming)
WINDOW(zorsWinHamming_32fc, zorsWinHamming_32fc_I, Zor32fc, Hamming)
WINDOW(zorsWinHamming_64f,  zorsWinHamming_64f_I,  Zor64f,  Hamming)
WINDOW(zorsWinHamming_64fc, zorsWinHamming_64fc_I, Zor64fc, Hamming)
#undef WINDOW
// clang-format on

}  // namespace zors
