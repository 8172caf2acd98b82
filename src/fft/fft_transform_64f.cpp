// The transforms of 64-bit points.
#include "fft/fft_transform.h"
#include "zors/types.h"

namespace zors::fft {

template <>
void transform(const Spec<Zor64f>& spec, int order, bool inverse, Interleaved<const Zor64f> src,
               Interleaved<Zor64f> dst, Zor8u* work) {
  if (inverse)
    transformOneWay<true, Zor64f>(spec, order, src, dst, work);
  else
    transformOneWay<false, Zor64f>(spec, order, src, dst, work);
}
template <>
void transform(const Spec<Zor64f>& spec, int order, bool inverse, SplitPoints<const Zor64f> src,
               SplitPoints<Zor64f> dst, Zor8u* work) {
  if (inverse)
    transformOneWay<true, Zor64f>(spec, order, src, dst, work);
  else
    transformOneWay<false, Zor64f>(spec, order, src, dst, work);
}

}  // namespace zors::fft
