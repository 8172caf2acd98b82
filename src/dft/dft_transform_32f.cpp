// Transforms of any length in binary32.
#include "dft/dft_transform.h"

namespace zors::dft {

template ZorStatus interleavedTransform(const Engine<Zor32f>&, bool, const Zor32f*, Zor32f*, Zor32f, Zor8u*);
template ZorStatus splitTransform(const Engine<Zor32f>&, bool, Split<const Zor32f>, Split<Zor32f>, Zor32f, Zor8u*);
template ZorStatus toPermSpectrum(const Spec<Zor32f>&, const Zor32f*, Zor32f*, Zor8u*);
template ZorStatus fromPermSpectrum(const Spec<Zor32f>&, const Zor32f*, Zor32f*, Zor8u*);
template ZorStatus innerTransform(const Engine<Zor32f>&, bool, Zor32f*, Zor8u*);

}  // namespace zors::dft
