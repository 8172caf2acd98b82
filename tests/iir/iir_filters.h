// All IIR filters by one signature: taps, samples and registers as complex long doubles, and the model that they are
// compared with, the transposed second form in that precision.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "kit/values.h"
#include "zors/iir.h"

namespace iir {

struct Number {
  long double re = 0, im = 0;
  friend Number operator+(Number a, Number b) { return {a.re + b.re, a.im + b.im}; }
  friend Number operator-(Number a, Number b) { return {a.re - b.re, a.im - b.im}; }
  friend Number operator*(Number a, Number b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
  friend Number operator/(Number a, Number b) {
    const long double norm = b.re * b.re + b.im * b.im;
    return {(a.re * b.re + a.im * b.im) / norm, (a.im * b.re - a.re * b.im) / norm};
  }
  bool operator==(const Number&) const = default;
};
using Numbers = std::vector<Number>;

enum class Form { polynomial, cascade, firstForm };
inline int tapsLen(Form form, int count) { return form == Form::polynomial ? 2 * count + 2 : 6 * count; }
inline int dlyLen(Form form, int count) {
  return form == Form::polynomial ? count : form == Form::cascade ? 2 * count : 4 * count;
}

struct Filter {
  std::string name;  // of the size query
  Form form;
  Zor32u tag;
  bool complex, single;  // binary32 arithmetic
  bool integerTaps, integerDly;
  int sampleBits;  // of integer samples, else 0
  std::size_t valueBytes, dlyBytes;

  std::function<ZorStatus(Zor32s count, Zor32s* size)> size;
  // Null where a vector is null. factor is that of integer taps, of others unused.
  std::function<ZorStatus(ZorIIRState**, const Numbers* taps, Zor32s count, const Numbers* dly, Zor8u*, Zor32s factor)>
      init;
  std::function<ZorStatus(ZorIIRState**, const Numbers* taps, Zor32s count, const Numbers* dly, Zor32s factor)>
      initAlloc;
  ZorStatus (*free)(ZorIIRState*);
  std::function<ZorStatus(const Numbers* taps, ZorIIRState*, Zor32s factor)> setTaps;
  std::function<ZorStatus(const ZorIIRState*, Numbers* dly)> getDly;  // dly->size() registers
  std::function<ZorStatus(ZorIIRState*, const Numbers* dly)> setDly;
  // Samples at an unreadable page, `away` elements from an aligned end; results come back.
  std::function<Numbers(const Numbers&, ZorIIRState*, Zor32s scaleFactor, bool inPlace, std::size_t away)> run;
  std::function<Number(Number, ZorIIRState*, Zor32s scaleFactor)> one;
  // Bare calls: pointers to samples of the type, of 8 elements.
  std::function<ZorStatus(const void* src, void* dst, Zor32s len, ZorIIRState*)> call;
  std::function<ZorStatus(void* srcDst, Zor32s len, ZorIIRState*)> callInPlace;
  std::function<ZorStatus(void* dst, ZorIIRState*)> callOne;

  bool cutsFirst() const { return single && sampleBits == 16 && form == Form::cascade; }
};
const std::vector<Filter>& filters();

// The transposed form of any number of filters in a row, normalised, with exact registers.
class Model {
 public:
  Model(Form form, const Numbers& taps, int count) {
    const int order = form == Form::polynomial ? count : 2, sections = form == Form::polynomial ? 1 : count;
    for (int s = 0; s < sections; ++s) {
      const Number* t = taps.data() + s * (2 * order + 2);
      Section section;
      for (int i = 0; i <= order; ++i) section.b.push_back(t[i] / t[order + 1]);
      for (int i = 1; i <= order; ++i) section.a.push_back(t[order + 1 + i] / t[order + 1]);
      section.d.resize(std::size_t(order) + 1);
      section.past.resize(4);
      sections_.push_back(section);
    }
    form_ = form;
  }
  Number step(Number x) {
    for (Section& s : sections_) {
      const Number y = s.b[0] * x + s.d[0];
      for (std::size_t i = 0; i < s.a.size(); ++i) s.d[i] = s.d[i + 1] + s.b[i + 1] * x - s.a[i] * y;
      s.past = {x, s.past[0], y, s.past[2]};
      x = y;
    }
    return x;
  }
  Numbers registers() const {
    Numbers all;
    for (const Section& s : sections_)
      if (form_ == Form::firstForm)
        all.insert(all.end(), s.past.begin(), s.past.end());
      else
        all.insert(all.end(), s.d.begin(), s.d.end() - 1);
    return all;
  }
  void setRegisters(const Numbers& all) {
    auto at = all.begin();
    for (Section& s : sections_)
      if (form_ == Form::firstForm) {
        std::copy_n(at, 4, s.past.begin());
        at += 4;
        s.d[0] = s.b[1] * s.past[0] + s.b[2] * s.past[1] - s.a[0] * s.past[2] - s.a[1] * s.past[3];
        s.d[1] = s.b[2] * s.past[0] - s.a[1] * s.past[2];
      } else {
        std::copy_n(at, s.a.size(), s.d.begin());
        at += std::ptrdiff_t(s.a.size());
      }
  }

 private:
  struct Section {
    Numbers b, a, d, past;
  };
  Form form_;
  std::vector<Section> sections_;
};

// y / 2^scaleFactor as an integer of so many bits: to nearest, ties to even, or cut; saturated.
long double toSample(long double y, int bits, Zor32s scaleFactor, bool cut);

// A call of len samples: what it gives, sample by sample, as the model has it.
Numbers expected(const Filter& filter, Model& model, const Numbers& x, int count, Zor32s scaleFactor);

// Filters whose every value is a small integer: roots on the unit circle, all different. count sections, at most 4 of
// them recursive, or an order. a0 is 2, all taps twice as large.
Numbers integerTaps(const Filter& filter, int count, kit::Random& random);
Numbers integerSamples(const Filter& filter, std::size_t len, int largest, kit::Random& random);

// An InitAlloc-built state that goes with the scope.
class State {
 public:
  State(const Filter& filter, const Numbers& taps, int count, const Numbers* dly = nullptr, Zor32s factor = 0)
      : filter_(filter), status(filter.initAlloc(&state_, &taps, count, dly, factor)) {}
  ~State() {
    if (state_ != nullptr) filter_.free(state_);
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  operator ZorIIRState*() const { return state_; }

 private:
  const Filter& filter_;
  ZorIIRState* state_ = nullptr;

 public:
  const ZorStatus status;
};

}  // namespace iir
