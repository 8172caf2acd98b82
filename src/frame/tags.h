// The tags of all objects: the first 32-bit word of a state or specification, which tells its kind.
#pragma once

#include <algorithm>
#include <iterator>

#include "frame/check.h"

namespace zors {

namespace tags {

// The tag that four characters spell, most significant byte first.
consteval Tag spelled(const char (&text)[5]) {
  return Tag(Zor8u(text[0])) << 24 | Tag(Zor8u(text[1])) << 16 | Tag(Zor8u(text[2])) << 8 | Tag(Zor8u(text[3]));
}

// Every tag stands here, once, by family. A kind whose tag does not stand here does not compile.
inline constexpr Tag all[] = {
    // FFT specifications: 16sc, 16s, real 16s; 32fc, 32f, real 32f; 64fc, 64f, real 64f; 32sc, 32s, real 32s, 16s32s
    1, 2, 3, 4, 5, 6, 7, 8, 9, spelled("CMAL"), spelled("CMAM"), spelled("CMAN"), spelled("CMAO"),
    // DFT specifications: 16sc, 16s, real 16s; 32fc, 32f, real 32f; 64fc, 64f, real 64f; out of order 32fc, 64fc
    10, 11, 12, 13, 14, 15, 16, 17, 18, spelled("CMAJ"), spelled("CMAK"),
    // DCT specifications, forward and inverse: 16s, 32f, 64f
    19, 20, 21, 22, 23, 24,
    // Hilbert specifications: 32f32fc, 16s32fc, 16s16sc
    spelled("CMAE"), spelled("CMAF"), spelled("CMAG"),
    // FIR states: taps_samples, single rate and multi-rate, real and complex
    spelled("FI01"), spelled("FI02"), spelled("FI03"), spelled("FI04"),  // 32f, 32fc
    spelled("FI05"), spelled("FI06"), spelled("FI07"), spelled("FI08"),  // 32f_16s
    spelled("FI09"), spelled("FI10"), spelled("FI11"), spelled("FI12"),  // 32s_16s
    spelled("FI13"), spelled("FI14"), spelled("FI15"), spelled("FI16"),  // 64f
    spelled("FI17"), spelled("FI18"), spelled("FI19"), spelled("FI20"),  // 64f_32f
    spelled("FI21"), spelled("FI22"), spelled("FI23"), spelled("FI24"),  // 64f_32s
    spelled("FI25"), spelled("FI26"), spelled("FI27"), spelled("FI28"),  // 64f_16s
    spelled("FI29"), spelled("FI30"), spelled("FI31"), spelled("FI32"),  // 16s, its multi-rate and streams
    spelled("FI33"), spelled("FI34"),                                    // streams of 32f
    // wavelet states: forward from, and inverse to, 32f, 8u, 8s, 16u, 16s
    41, 42, 43, 44, 45, 50, 51, 52, 53, 54,
    // Adaptive filters: 32f, 32f_16s; integer multi-rate ones, 32s_16s, 32sc_16sc
    spelled("LMS1"), spelled("LMS\0"), spelled("LMSR"), spelled("LMSC"),
    // IIR states: taps_samples, of an order and in sections, real and complex
    spelled("II01"), spelled("II02"), spelled("II03"), spelled("II04"),  // 32f, 32fc
    spelled("II05"), spelled("II06"), spelled("II07"), spelled("II08"),  // 32f_16s
    spelled("II09"), spelled("II10"), spelled("II11"), spelled("II12"),  // 32s_16s
    spelled("II13"), spelled("II14"), spelled("II15"), spelled("II16"),  // 64f
    spelled("II17"), spelled("II18"), spelled("II19"), spelled("II20"),  // 64f_32f
    spelled("II21"), spelled("II22"), spelled("II23"), spelled("II24"),  // 64f_32s
    spelled("II25"), spelled("II26"), spelled("II27"), spelled("II28"),  // 64f_16s
    spelled("II29"), spelled("II30"),                                    // sections of the first form: 32f, 64f_32s
    // generators: uniform 8u, 16s, 32f; Gaussian 8u, 16s, 32f; tone, triangle
    35, 36, 37, 38, 39, 40, spelled("CMAH"), spelled("CMAI"),
};

consteval bool distinct() {
  for (auto i = std::begin(all); i != std::end(all); ++i)
    if (std::find(i + 1, std::end(all), *i) != std::end(all)) return false;
  return true;
}
static_assert(distinct(), "two kinds of object have one tag");

void tagIsNotListed();  // called at compile time, it stops the compiler

consteval Tag listed(Tag tag) {
  if (std::find(std::begin(all), std::end(all), tag) == std::end(all)) tagIsNotListed();
  return tag;
}

}  // namespace tags

consteval Tag tag(const char (&text)[5]) { return tags::listed(tags::spelled(text)); }
consteval Tag tag(Tag number) { return tags::listed(number); }

}  // namespace zors
