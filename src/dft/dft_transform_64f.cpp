// Transforms of any length in binary64.
#include "dft/dft_transform.h"

namespace zors::dft {

template ZorStatus interleavedTransform(const Engine<Zor64f>&, bool, const Zor64f*, Zor64f*, Zor64f, Zor8u*);
template ZorStatus splitTransform(const Engine<Zor64f>&, bool, Split<const Zor64f>, Split<Zor64f>, Zor64f, Zor8u*);
template ZorStatus toPermSpectrum(const Spec<Zor64f>&, const Zor64f*, Zor64f*, Zor8u*);
template ZorStatus fromPermSpectrum(const Spec<Zor64f>&, const Zor64f*, Zor64f*, Zor8u*);
template ZorStatus innerTransform(const Engine<Zor64f>&, bool, Zor64f*, Zor8u*);

}  // namespace zors::dft
