// Element-wise exports against a model of one element: all lengths, edges and alignments, in place and out of place.
#pragma once

#include <gtest/gtest.h>
#include <xmmintrin.h>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/types.h"

namespace kit {

// Lengths at which drivers change their path, and some that are just odd.
inline std::vector<int> sweepLengths() {
  std::vector<int> lengths;
  for (int len = 1; len <= 70; ++len) lengths.push_back(len);
  for (int len : {95, 96, 97, 127, 128, 129, 130, 191, 255, 256, 257, 511, 513, 1000, 1025}) lengths.push_back(len);
  return lengths;
}

// For a case beside others that sweep all lengths: another scale factor, another constant.
inline const std::vector<int>& fewLengths() {
  static const std::vector<int> lengths = {1, 7, 15, 33, 64, 203};
  return lengths;
}

// The caller's rounding direction for a scope, and further bits of the control word.
class Direction {
 public:
  explicit Direction(unsigned direction) : saved_(_mm_getcsr()) {
    _mm_setcsr((saved_ & ~unsigned{_MM_ROUND_MASK}) | direction);
  }
  ~Direction() { _mm_setcsr(saved_); }
  Direction(const Direction&) = delete;
  Direction& operator=(const Direction&) = delete;

 private:
  unsigned saved_;
};
inline constexpr unsigned allDirections[] = {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO};

namespace detail {

enum class Form { outOfPlace, inPlace };

// alias: the source that is the destination too, -1 for none, or the number of sources for all of its type.
template <Form form, class D, class... S, class Call, class Model>
void checkOnce(const std::string& name, Call call, Model model, int len, Edge edge, std::size_t steps, int alias,
               Random& random, Nan nan) {
  constexpr std::size_t n = sizeof...(S);
  std::tuple<Guarded<S>...> sources{Guarded<S>(std::size_t(len), edge, steps * sizeof(S) % 32)...};
  Guarded<D> target(std::size_t(len), edge, steps * sizeof(D) % 32);
  std::apply([&](auto&... source) { (fillAny(source.span(), random), ...); }, sources);
  const auto pick = [&]<std::size_t... k>(std::index_sequence<k...>) {
    const Guarded<D>* dst = &target;
    const auto consider = [&](int at, auto& source) {
      if constexpr (std::is_same_v<std::remove_cvref_t<decltype(source)>, Guarded<D>>) {
        if (at == alias || alias == int(n)) dst = &source;
      }
    };
    (consider(int(k), std::get<k>(sources)), ...);
    return dst;
  };
  const Guarded<D>& dst = *pick(std::make_index_sequence<n>{});
  const std::tuple<const S*...> from = std::apply(
      [&](auto&... source) {
        const auto shared = [&](auto& guarded) {
          if constexpr (std::is_same_v<std::remove_cvref_t<decltype(guarded)>, Guarded<D>>)
            return alias == int(n) ? dst.data() : guarded.data();
          else
            return guarded.data();
        };
        return std::tuple<const S*...>(shared(source)...);
      },
      sources);
  std::vector<D> wanted(static_cast<std::size_t>(len));
  for (std::size_t i = 0; i < wanted.size(); ++i)
    wanted[i] = std::apply([&](auto*... source) { return model(source[i]...); }, from);
  constexpr std::size_t passed = form == Form::inPlace ? n - 1 : n;
  const ZorStatus status = [&]<std::size_t... k>(std::index_sequence<k...>) {
    return call(std::get<k>(from)..., dst.data(), len);
  }
  (std::make_index_sequence<passed>{});
  const std::string where = name + ", len " + std::to_string(len) +
                            (edge == Edge::end ? ", at the end" : ", at the begin") + ", " + std::to_string(steps) +
                            " elements off, destination is source " + std::to_string(alias);
  ASSERT_EQ(status, zorStatusOk) << where;
  const auto difference = firstDifference<D>(dst.span(), wanted, nan);
  ASSERT_EQ(difference, "") << where;
  ASSERT_TRUE(dst.intact()) << where << ": wrote outside";
}

template <Form form, class D, class... S, class Call, class Model>
void sweep(const std::string& name, Call call, Model model, Nan nan, const std::vector<int>& lengths) {
  Random random(1);
  constexpr int n = sizeof...(S);
  constexpr int ofType = (0 + ... + int{std::is_same_v<S, D>});
  constexpr bool canAlias[] = {std::is_same_v<S, D>..., (ofType > 1)};
  for (int len : lengths)
    for (Edge edge : bothEdges)
      for (std::size_t steps = 0; steps < (len == 41 || len == 48 ? 32 : 2); ++steps)
        for (int alias = form == Form::inPlace ? n - 1 : -1; alias <= n; ++alias) {
          if (alias >= 0 && !canAlias[alias]) continue;
          checkOnce<form, D, S...>(name, call, model, len, edge, steps, alias, random, nan);
          if (testing::Test::HasFatalFailure()) return;
        }
}

}  // namespace detail

// call(const S*..., D* dst, len) against model(S...); each source of the destination's type is tried as the destination
// too, and all of them at once.
template <class D, class... S, class Call, class Model>
void sweep(const std::string& name, Call call, Model model, const std::vector<int>& lengths = sweepLengths(),
           Nan nan = Nan::anyPayload) {
  detail::sweep<detail::Form::outOfPlace, D, S...>(name, call, model, nan, lengths);
}
// call(const S*..., D* srcDst, len) against model(S..., D).
template <class D, class... S, class Call, class Model>
void sweepInPlace(const std::string& name, Call call, Model model, const std::vector<int>& lengths = sweepLengths(),
                  Nan nan = Nan::anyPayload) {
  detail::sweep<detail::Form::inPlace, D, S..., D>(name, call, model, nan, lengths);
}

}  // namespace kit
