// The transforms of 32-bit points.
#include "fft/fft_transform.h"
#include "zors/types.h"

namespace zors::fft {

template <>
void transform(const Spec<Zor32f>& spec, int order, bool inverse, Interleaved<const Zor32f> src,
               Interleaved<Zor32f> dst, Zor8u* work) {
  if (inverse)
    transformOneWay<true, Zor32f>(spec, order, src, dst, work);
  else
    transformOneWay<false, Zor32f>(spec, order, src, dst, work);
}
template <>
void transform(const Spec<Zor32f>& spec, int order, bool inverse, SplitPoints<const Zor32f> src,
               SplitPoints<Zor32f> dst, Zor8u* work) {
  if (inverse)
    transformOneWay<true, Zor32f>(spec, order, src, dst, work);
  else
    transformOneWay<false, Zor32f>(spec, order, src, dst, work);
}

}  // namespace zors::fft
