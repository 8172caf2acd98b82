// The generator behind all random vectors: a congruential word is added to one of a subtract-with-borrow sequence with
// lags 2 and 3 and modulus 2^32 - 18. The borrow makes that sequence a serial chain; the congruential words have none,
// they are made a vector at a time and added where the words are used.
#pragma once

#include <algorithm>
#include <array>

#include "frame/simd.h"

namespace zors::generators {

// The congruential sequence: one step, and n steps at once, x * factor[n] + term[n].
constexpr Zor32u congruentialStep(Zor32u x) { return x * 69069 + 1013904243; }
template <std::size_t most> struct CongruentialSteps {
  std::array<Zor32u, most + 1> factor{1}, term{};
  constexpr CongruentialSteps() {
    for (std::size_t n = 1; n <= most; ++n) {
      factor[n] = factor[n - 1] * 69069;
      term[n] = congruentialStep(term[n - 1]);
    }
  }
};

class RandomWords {
 public:
  static constexpr int chunk = 96;  // words of one draw at most

  RandomWords() = default;
  explicit RandomWords(Zor32u seed) : a_(seed), b_(congruentialStep(a_)), c_(congruentialStep(b_)) {}

  Zor32u newest() const { return a_; }

  // count words, L at a time: use(i, words), i from 0 on in steps of L; lanes beyond count hold anything.
  template <int L, class Use> ZORS_INLINE void draw(int count, Use use) {
    using namespace simd;
    static_assert(chunk % L == 0);
    alignas(32) Zor32u chain[chunk];
    subtract(chain, count);
    for (int i = count; i % L != 0; ++i) chain[i] = 0;
    const auto &factors = steps.factor, &terms = steps.term;
    auto congruential = add(mul(splat<Vec<Zor32u, L>>(lcg_), load<L>(&factors[1])), load<L>(&terms[1]));
    for (int i = 0; i < count; i += L) {
      use(i, as<Zor32s>(add(load<L>(chain + i), congruential)));
      congruential = add(mul(congruential, same(congruential, factors[L])), same(congruential, terms[L]));
    }
    lcg_ = lcg_ * factors[std::size_t(count)] + terms[std::size_t(count)];
  }

 private:
  static constexpr CongruentialSteps<chunk> steps{};

  ZORS_INLINE Zor32u difference(Zor32u b, Zor32u c) {
    Zor32u t = b - c;
    __asm__("" : "+r"(t));  // or g++ adds the borrow first, and the chain from borrow to borrow is a step longer
    t += borrow_;
    borrow_ = static_cast<Zor32u>(static_cast<Zor32s>(t) >> 31);
    return t - (borrow_ & 18);
  }
  ZORS_INLINE void subtract(Zor32u* words, int count) {
    RandomWords g = *this;  // in registers
    int i = 0;
    for (; i <= count - 3; i += 3) {  // each word takes the place of the oldest one
      words[i] = g.c_ = g.difference(g.b_, g.c_);
      words[i + 1] = g.b_ = g.difference(g.a_, g.b_);
      words[i + 2] = g.a_ = g.difference(g.c_, g.a_);
    }
    for (; i < count; ++i) {
      const Zor32u t = words[i] = g.difference(g.b_, g.c_);
      g.c_ = g.b_;
      g.b_ = g.a_;
      g.a_ = t;
    }
    *this = g;
  }

  Zor32u lcg_ = 1131199209, a_ = 0, b_ = 0, c_ = 0, borrow_ = ~Zor32u{0};
};

// Elements of one step of a form that writes type D: whole registers.
template <class D> inline constexpr int randomStep = std::max(simd::lanesOf<D>, 8);

}  // namespace zors::generators
