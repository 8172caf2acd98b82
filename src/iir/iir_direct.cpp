// zorsIIR_Direct_16s, zorsIIR_BiQuadDirect_16s and kin: 16-bit filters whose taps and registers come with each call.
// The tap in the place of a0 is no coefficient: it is the right shift of the sums.
#include <cmath>

#include "frame/memory.h"
#include "frame/power_of_two.h"
#include "iir/iir_run.h"

namespace zors {
namespace {

// ---- One sample, in integers --------------------------------------------------------------------

// v / 2^shift to nearest, ties to even; sums wrap in 32 bits, counts modulo 32: a shift of 0 adds 2^31 - 1.
Zor32s shifted(Zor32u v, Zor32s shift) {
  const auto count = static_cast<Zor32u>(shift) & 31;
  const Zor32u odd = static_cast<Zor32u>(static_cast<Zor32s>(v) >> count) & 1;
  const Zor32u half = Zor32u{1} << ((count + 31) & 31);
  return static_cast<Zor32s>(v + odd + half - 1) >> count;
}

// One filter of the transposed form: b[0..order], the shift, a[1..order]. The result is not saturated.
Zor32s step(Zor32s x, const Zor16s* taps, Zor32s order, Zor32s* dly) {
  const auto product = [](Zor16s tap, Zor32s value) { return static_cast<Zor32u>(tap) * static_cast<Zor32u>(value); };
  const Zor16s *b = taps, *a = taps + order + 1;
  const Zor32s y = shifted(product(b[0], x) + static_cast<Zor32u>(dly[0]), a[0]);
  for (Zor32s i = 0; i < order; ++i) {
    const Zor32u next = i + 1 < order ? static_cast<Zor32u>(dly[i + 1]) : 0;
    dly[i] = static_cast<Zor32s>(product(b[i + 1], x) - product(a[i + 1], y) + next);
  }
  return y;
}

Zor16s saturated(Zor32s y) { return static_cast<Zor16s>(std::clamp(y, -32768, 32767)); }

ZorStatus filterOne(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s order, Zor32s* dly, Checks checks) {
  return checks.then([&]() -> ZorStatus {
    if (taps[std::ptrdiff_t{order} + 1] < 0) return zorStatusNegativeTapShift;
    *dst = saturated(step(val, taps, order, dly));
    return zorStatusOk;
  });
}
// A negative shift leaves the sections before it updated.
ZorStatus filterOneSections(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s numBq, Zor32s* dly, Checks checks) {
  return checks.then([&]() -> ZorStatus {
    Zor32s x = val;
    for (Zor32s s = 0; s < numBq; ++s, taps += 6, dly += 2) {
      if (taps[3] < 0) return zorStatusNegativeTapShift;
      x = step(x, taps, 2, dly);
    }
    *dst = saturated(x);
    return zorStatusOk;
  });
}

// ---- Blocks, in single precision ----------------------------------------------------------------

using Kind = Iir32f_16s;

// 2^-shift, its exponent drawn in to those of normal numbers.
Zor32f scaleOf(Zor32s shift) { return exactPower<Zor32f>(shift, 0, 126); }

Zor32s halfAway(Zor64f x) { return static_cast<Zor32s>(std::trunc(x + std::copysign(0.5, x))); }
Zor32s halfEven(Zor64f x) {
  const Zor64f whole = std::floor(x), fraction = x - whole;
  const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2) != 0);
  return static_cast<Zor32s>(whole + up);
}
// A register times 2^shift as an integer; NaN goes to the lower bound.
template <Zor32s (*rounded)(Zor64f)> Zor32s asInteger(Zor32f x, Zor32s shift) {
  const Zor64f value = Zor64f{x} / scaleOf(shift);
  if (value >= 0x7FFFFFFF) return INT32_MAX;
  return value > INT32_MIN ? rounded(value) : INT32_MIN;
}

// A state of the call: registers and taps are handed over as floats, sections of `order` with their own shifts.
class CallState {
 public:
  CallState(IirForm form, Zor32s count)
      : form_(form),
        order_(form == IirForm::polynomial ? count : 2),
        sections_(form == IirForm::polynomial ? 1 : count),
        memory_(bytes(form, count)) {
    if (!memory_) return;
    const auto size = static_cast<std::size_t>(count);
    Layout block(iirAlignment, memory_.data());
    const IirParts parts = layIir<Zor32f>(block, form, size);
    state_ = parts.state;
    *state_ = {.tag = Kind::tags[static_cast<int>(form)],
               .form = form,
               .count = count,
               .dlyLen = static_cast<Zor32s>(iirDlyLen(form, size)),
               .taps = parts.taps,
               .dlyLine = parts.dlyLine,
               .tables = parts.tables,
               .scratch = parts.scratch};
    floats_ = reinterpret_cast<Zor32f*>(memory_.data() + stateBytes(form, count));
  }
  explicit operator bool() const { return state_ != nullptr; }
  ZorIIRState* state() const { return state_; }

  ZorStatus take(const Zor16s* taps, const Zor32s* dly) {
    Zor32f* to = floats_;
    for (Zor32s s = 0; s < sections_; ++s, taps += 2 * order_ + 2) {
      const Zor32s shift = taps[order_ + 1];
      if (shift < 0) return zorStatusNegativeTapShift;
      const Zor32f scale = scaleOf(shift);
      for (Zor32s i = 0; i < 2 * order_ + 2; ++i) *to++ = i == order_ + 1 ? 1.0f : static_cast<Zor32f>(taps[i]) * scale;
      for (Zor32s i = 0; i < order_; ++i) registers()[s * order_ + i] = static_cast<Zor32f>(*dly++) * scale;
    }
    if (form_ == IirForm::polynomial) registers()[order_] = 0;
    return iirStoreTaps(state_, static_cast<const Zor32f*>(floats_));
  }
  template <Zor32s (*rounded)(Zor64f)> void giveRegisters(const Zor16s* taps, Zor32s* dly) const {
    for (Zor32s s = 0; s < sections_; ++s, taps += 2 * order_ + 2)
      for (Zor32s i = 0; i < order_; ++i) *dly++ = asInteger<rounded>(registers()[s * order_ + i], taps[order_ + 1]);
  }

 private:
  static std::size_t stateBytes(IirForm form, Zor32s count) {
    return iirDown(iirStateSize<Kind>(form, static_cast<std::size_t>(count)) + 7, 8);
  }
  static std::size_t bytes(IirForm form, Zor32s count) {
    return stateBytes(form, count) + std::size_t{6} * static_cast<std::size_t>(count) * sizeof(Zor32f);
  }
  Zor32f* registers() const { return static_cast<Zor32f*>(state_->dlyLine); }

  IirForm form_;
  Zor32s order_, sections_;
  OwnMemory memory_;
  ZorIIRState* state_ = nullptr;
  Zor32f* floats_ = nullptr;  // the taps on their way
};

template <Zor32s (*rounded)(Zor64f)>
ZorStatus filterBlock(IirForm form, const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s count,
                      Zor32s* dly) {
  CallState call(form, count);
  if (!call) return zorStatusNoMemory;
  const ZorStatus status = call.take(taps, dly);
  if (status != zorStatusOk) return status;
  iirFilter<Kind>(src, dst, len, call.state());
  call.giveRegisters<rounded>(taps, dly);
  return zorStatusOk;
}

ZorStatus filter(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s order, Zor32s* dly) {
  const Checks pointers = check().require(order >= 1, zorStatusBadFilterOrder).pointers(src, dst, taps, dly);
  return pointers.then([&] {
    return check().require(taps[std::ptrdiff_t{order} + 1] >= 0, zorStatusNegativeTapShift).size(len).then([&] {
      return filterBlock<halfAway>(IirForm::polynomial, src, dst, len, taps, order, dly);
    });
  });
}
ZorStatus filterSections(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s numBq, Zor32s* dly) {
  return check().require(numBq >= 1, zorStatusBadFilterOrder).pointers(src, dst, taps, dly).size(len).then([&] {
    return filterBlock<halfEven>(IirForm::cascade, src, dst, len, taps, numBq, dly);
  });
}

template <class... P> Checks orderThenPointers(Zor32s order, const P*... pointers) {
  return check().require(order >= 1, zorStatusBadFilterOrder).pointers(pointers...);
}

}  // namespace

// clang-format off
ZorStatus zorsIIROne_Direct_16s(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s order, Zor32s* dly) { return filterOne(val, dst, taps, order, dly, orderThenPointers(order, dst, taps, dly)); }
ZorStatus zorsIIROne_Direct_16s_I(Zor16s* srcDst, const Zor16s* taps, Zor32s order, Zor32s* dly) { return filterOne(srcDst == nullptr ? Zor16s{0} : *srcDst, srcDst, taps, order, dly, orderThenPointers(order, srcDst, taps, dly)); }
ZorStatus zorsIIROne_BiQuadDirect_16s(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s numBq, Zor32s* dly) { return filterOneSections(val, dst, taps, numBq, dly, orderThenPointers(numBq, dst, taps, dly)); }
ZorStatus zorsIIROne_BiQuadDirect_16s_I(Zor16s* srcDst, const Zor16s* taps, Zor32s numBq, Zor32s* dly) { return filterOneSections(srcDst == nullptr ? Zor16s{0} : *srcDst, srcDst, taps, numBq, dly, orderThenPointers(numBq, srcDst, taps, dly)); }
ZorStatus zorsIIR_Direct_16s(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s order, Zor32s* dly) { return filter(src, dst, len, taps, order, dly); }
ZorStatus zorsIIR_Direct_16s_I(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s order, Zor32s* dly) { return filter(srcDst, srcDst, len, taps, order, dly); }
ZorStatus zorsIIR_BiQuadDirect_16s(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s numBq, Zor32s* dly) { return filterSections(src, dst, len, taps, numBq, dly); }
ZorStatus zorsIIR_BiQuadDirect_16s_I(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s numBq, Zor32s* dly) { return filterSections(srcDst, srcDst, len, taps, numBq, dly); }
// clang-format on

}  // namespace zors
