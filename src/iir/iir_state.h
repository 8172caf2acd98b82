// The IIR state: one record for all kinds, its layout and size, and what tells one kind from another.
#pragma once

#include <cstddef>
#include <type_traits>

#include "exports/iir.h"
#include "frame/by_type.h"
#include "frame/check.h"
#include "frame/object.h"
#include "frame/simd.h"

namespace zors {

enum class IirForm : Zor32s {
  polynomial,  // one quotient of polynomials, of order `count`
  cascade,     // `count` sections of order 2, in the transposed second form
  firstForm    // the same, in the first form
};

}  // namespace zors

// Pointers lead into the state's own block; their element type is that of the kind's arithmetic.
struct ZorIIRState {
  zors::Tag tag = 0;
  zors::IirForm form = zors::IirForm::polynomial;
  Zor32s count = 0;
  Zor32s dlyLen = 0;  // registers
  Zor8u* owned = nullptr;
  void* taps = nullptr;     // normalised: b[0..N], a[1..N], or b0, b1, b2, a1, a2 of each section
  void* dlyLine = nullptr;  // the transposed form's registers, of a polynomial a zero behind; x1, x2, y1, y2 of each
                            // section of the first form
  void* tables = nullptr;   // of the block kernels; null where they are built for each call
  void* scratch = nullptr;  // a chunk of samples on its way; or null
};

namespace zors {

inline constexpr Zor32s iirChunk = 1024;         // samples that are filtered at a time
inline constexpr std::size_t iirAlignment = 32;  // a register

template <class Value> inline constexpr std::size_t iirRow = 32 / sizeof(Value);  // values a register
template <class Value> inline constexpr int iirParts = Complex<Value> ? 2 : 1;
template <class Value> inline constexpr int iirLanes = simd::lanesOf<simd::Part<Value>>;
inline constexpr int iirRun = 8;  // consecutive samples that sections filter in one lane

// ---- Kinds --------------------------------------------------------------------------------------

// The types of taps, samples and arithmetic, and the tags of the states.
template <class TapType, class SampleType, class ValueType, Tag polynomialTag, Tag cascadeTag,
          Tag firstFormTag = cascadeTag>
struct IirKind {
  using Tap = TapType;
  using Sample = SampleType;
  using Value = ValueType;
  static constexpr bool converts = !std::is_same_v<Sample, Value>;
  static constexpr bool integerTaps =
      std::is_integral_v<std::remove_pointer_t<decltype(components(static_cast<Tap*>(nullptr)))>>;
  static constexpr bool hasFirstForm = firstFormTag != cascadeTag;
  static constexpr Tag tags[] = {polynomialTag, cascadeTag, firstFormTag};  // by IirForm
};
// clang-format off
struct Iir32f           : IirKind<Zor32f,  Zor32f,  Zor32f,  tag("II01"), tag("II02"), tag("II29")> {};
struct Iir32fc          : IirKind<Zor32fc, Zor32fc, Zor32fc, tag("II03"), tag("II04")> {};
struct Iir32f_16s       : IirKind<Zor32f,  Zor16s,  Zor32f,  tag("II05"), tag("II06")> {};
struct Iir32fc_16sc     : IirKind<Zor32fc, Zor16sc, Zor32fc, tag("II07"), tag("II08")> {};
struct Iir32s_16s       : IirKind<Zor32s,  Zor16s,  Zor32f,  tag("II09"), tag("II10")> {};
struct Iir32s_16s32f    : IirKind<Zor32f,  Zor16s,  Zor32f,  tag("II09"), tag("II10")> {};
struct Iir32sc_16sc     : IirKind<Zor32sc, Zor16sc, Zor32fc, tag("II11"), tag("II12")> {};
struct Iir32sc_16sc32fc : IirKind<Zor32fc, Zor16sc, Zor32fc, tag("II11"), tag("II12")> {};
struct Iir64f           : IirKind<Zor64f,  Zor64f,  Zor64f,  tag("II13"), tag("II14")> {};
struct Iir64fc          : IirKind<Zor64fc, Zor64fc, Zor64fc, tag("II15"), tag("II16")> {};
struct Iir64f_32f       : IirKind<Zor64f,  Zor32f,  Zor64f,  tag("II17"), tag("II18")> {};
struct Iir64fc_32fc     : IirKind<Zor64fc, Zor32fc, Zor64fc, tag("II19"), tag("II20")> {};
struct Iir64f_32s       : IirKind<Zor64f,  Zor32s,  Zor64f,  tag("II21"), tag("II22"), tag("II30")> {};
struct Iir64fc_32sc     : IirKind<Zor64fc, Zor32sc, Zor64fc, tag("II23"), tag("II24")> {};
struct Iir64f_16s       : IirKind<Zor64f,  Zor16s,  Zor64f,  tag("II25"), tag("II26")> {};
struct Iir64fc_16sc     : IirKind<Zor64fc, Zor16sc, Zor64fc, tag("II27"), tag("II28")> {};
// clang-format on

template <class Kind> constexpr Checks iirState(Checks checks, const ZorIIRState* state) {
  return checks.state(state, Kind::tags[0], Kind::tags[1], Kind::tags[2]);
}

// ---- The block ----------------------------------------------------------------------------------

constexpr std::size_t iirTapsLen(IirForm form, std::size_t count) {
  return form == IirForm::polynomial ? 2 * count + 1 : 5 * count;
}
constexpr std::size_t iirDlyLen(IirForm form, std::size_t count) {
  return form == IirForm::polynomial ? count : form == IirForm::cascade ? 2 * count : 4 * count;
}
constexpr std::size_t iirRegistersLen(IirForm form, std::size_t count) {
  return iirDlyLen(form, count) + (form == IirForm::polynomial);
}
// A polynomial that is filtered as one section.
constexpr bool iirIsSection(std::size_t order) { return order <= 2; }
// Of a section its impulse response over a run, and what is left of it in the runs behind (iir_sections.h); of a
// polynomial a register for each past output, and two for the impulse response.
template <class Value> inline constexpr std::size_t iirSectionTable = iirRun + 3 * iirLanes<Value>;
template <class Value> constexpr std::size_t iirTablesLen(IirForm form, std::size_t count) {
  if (form != IirForm::polynomial) return iirSectionTable<Value> * count;
  return iirIsSection(count) ? iirSectionTable<Value> : (count + 2) * iirRow<Value>;
}
// Single-precision sections of the first form are filtered in memory of the call.
template <class Value> constexpr bool iirHasTables(IirForm form) {
  return form != IirForm::firstForm || sizeof(Value) > sizeof(Zor32f);
}

struct IirParts {
  ZorIIRState* state;
  void *scratch, *tables, *dlyLine, *taps;
};
// The one account of what a state holds. Taps and registers come last: no rounding follows them.
template <class Value> constexpr IirParts layIir(Layout& block, IirForm form, std::size_t count) {
  const bool tables = iirHasTables<Value>(form);
  ZorIIRState* state = block.take<ZorIIRState>(1);
  auto* scratch = block.take<Value>(tables ? iirChunk : 0);
  auto* table = block.take<Value>(tables ? iirTablesLen<Value>(form, count) : 0);
  const std::size_t registers = iirRegistersLen(form, count);
  auto* dlyLine = block.take<Value>(registers + iirTapsLen(form, count));
  if (state == nullptr) return {};
  return {state, tables ? scratch : nullptr, tables ? table : nullptr, dlyLine, dlyLine + registers};
}

// The stated sizes in bytes: n is the order or the number of sections.
constexpr std::size_t iirDown(std::size_t x, std::size_t multiple) { return x & ~(multiple - 1); }
template <class Kind> constexpr std::size_t iirStateSize(IirForm form, std::size_t n) {
  using Value = typename Kind::Value;
  const std::size_t scratch = Kind::converts ? 2048 : 1024;
  const bool polynomial = form == IirForm::polynomial;
  if constexpr (std::is_same_v<Value, Zor32f>) {
    if (form == IirForm::firstForm) return 16 * (n + ((20 * n + 15) >> 4)) + 128;
    if (!polynomial) return iirDown(20 * n + 15, 16) + iirDown(8 * n + 15, 16) + (scratch + 40 * n) * 4 + 168;
    const std::size_t rows = n == 2 && !Kind::converts ? 120 : 4 * n + 12;
    return iirDown(8 * n + 19, 16) + iirDown(4 * n + 19, 16) + (rows + 4 * n + 4 + scratch) * 4 + 168;
  } else if constexpr (std::is_same_v<Value, Zor32fc>) {
    if (!polynomial) return 32 * (((40 * n + 31) >> 5) + ((16 * n + 31) >> 5)) + (148 * n + scratch) * 8 + 160;
    const std::size_t rows = 8 * n + 24 + 4 * n + 8 + 2 * (4 * n + 4);
    return iirDown(16 * n + 39, 32) + iirDown(8 * n + 39, 32) + (rows + scratch) * 8 + 208;
  } else if constexpr (std::is_same_v<Value, Zor64f>) {
    if (polynomial) return iirDown(8 * n + 23, 16) + iirDown(16 * n + 23, 16) + 128 + (6 * n + 14 + scratch) * 8;
    if (std::is_same_v<typename Kind::Sample, Zor32s>) return iirDown(40 * n + 15, 16) + 256 * n + 16480 + 48 * n;
    return 16 * n + (32 * n + scratch) * 8 + iirDown(40 * n + 15, 16) + 96;
  } else {
    if (!polynomial) return 112 * n + 128 + (64 * n + scratch) * 16;
    return 48 * n + 160 + (14 * n + 10 + (n + 1024) * (Kind::converts ? 2 : 1)) * 16;
  }
}

}  // namespace zors
