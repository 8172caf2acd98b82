// The scale-factor rule in exact arithmetic, and the sweeps of scaled members against it.
#pragma once

#include <functional>

#include "kit/elementwise.h"
#include "zors/types.h"

namespace scale {

using Exact = __int128;
struct ExactPair {
  Exact re, im;
};

template <class D> D saturated(Exact t) {
  using L = std::numeric_limits<D>;
  return t > L::max() ? L::max() : t < L::min() ? L::min() : D(t);
}

// t / 2^scaleFactor to nearest, ties to even, saturated; |t| below 2^100.
template <class D> D scaled(Exact t, Zor32s scaleFactor) {
  if (scaleFactor > 100) return 0;
  if (scaleFactor > 0) {
    const Exact quotient = t >> scaleFactor, twice = (t - (quotient << scaleFactor)) * 2, one = Exact{1} << scaleFactor;
    return saturated<D>(quotient + (twice > one || (twice == one && (quotient & 1) != 0)));
  }
  using L = std::numeric_limits<D>;
  const int up = scaleFactor < -64 ? 64 : -scaleFactor;
  const Exact bound = (Exact{1} << 64) >> up;
  return t > bound ? L::max() : t < -bound ? L::min() : saturated<D>(t * (Exact{1} << up));
}
template <class D> D scaled(ExactPair t, Zor32s scaleFactor) {
  using P = decltype(D::re);
  return {scaled<P>(t.re, scaleFactor), scaled<P>(t.im, scaleFactor)};
}

struct Plus {
  template <class T> auto operator()(T a, T b) const {
    if constexpr (kit::ComplexPair<T>)
      return ExactPair{Exact{a.re} + b.re, Exact{a.im} + b.im};
    else
      return Exact{a} + b;
  }
};
struct Minus {
  template <class T> auto operator()(T a, T b) const {
    if constexpr (kit::ComplexPair<T>)
      return ExactPair{Exact{a.re} - b.re, Exact{a.im} - b.im};
    else
      return Exact{a} - b;
  }
};
struct SecondMinusFirst {
  auto operator()(auto a, auto b) const { return Minus{}(b, a); }
};
struct Times {
  template <class A, class B> auto operator()(A a, B b) const {
    if constexpr (kit::ComplexPair<A>)
      return ExactPair{Exact{a.re} * b.re - Exact{a.im} * b.im, Exact{a.re} * b.im + Exact{a.im} * b.re};
    else if constexpr (kit::ComplexPair<B>)
      return ExactPair{Exact{a} * b.re, Exact{a} * b.im};
    else
      return Exact{a} * b;
  }
};

// The rule for an exact operation, as a model of sweep().
template <class D, class Op> auto rule(Op op, Zor32s scaleFactor) {
  return [=](auto a, auto b) { return scaled<D>(op(a, b), scaleFactor); };
}

// Those that have kernels of their own in every family.
inline constexpr Zor32s mainScales[] = {0, 1, 2, 7, -2};
inline std::vector<Zor32s> allScales() {
  std::vector<Zor32s> scales = {INT32_MIN, INT32_MIN + 1, -1000, 127, 128, 1000, INT32_MAX};
  for (Zor32s s = -70; s <= 70; ++s) scales.push_back(s);
  return scales;
}

// run(scaleFactor, lengths): every scale factor at a few lengths, the main ones at all.
template <class Run> void forScales(Run run) {
  for (Zor32s s : allScales()) run(s, kit::fewLengths());
  for (Zor32s s : mainScales) run(s, kit::sweepLengths());
}
inline std::string at(const char* name, Zor32s scaleFactor) {
  return std::string(name).append(", scaleFactor ").append(std::to_string(scaleFactor));
}

// Calls and models by type alone: one instance of a sweep serves all families of the same element types.
template <class D, class... S> using Call = std::function<ZorStatus(const S*..., D*, Zor32s)>;
template <class D, class... S> using Model = std::function<D(S...)>;
template <class D, class S1, class S2>
void sweepOver(const std::string& what, const Call<D, S1, S2>& call, const Model<D, S1, S2>& model,
               const std::vector<int>& lengths) {
  kit::sweep<D, S1, S2>(what, call, model, lengths);
}
template <class D, class S>
void sweepOverInPlace(const std::string& what, const Call<D, S>& call, const Model<D, S, D>& model,
                      const std::vector<int>& lengths) {
  kit::sweepInPlace<D, S>(what, call, model, lengths);
}
template <class T>
void sweepOverOne(const std::string& what, const Call<T, T>& call, const Call<T>& inPlace, const Model<T, T>& model,
                  const std::vector<int>& lengths) {
  kit::sweep<T, T>(what, call, model, lengths);
  kit::sweepInPlace<T>(what, inPlace, model, lengths);
}

// modelAt(scaleFactor) gives the model of an element.
template <class D, class S1, class S2, class ModelAt>
void members(const char* name, ZorStatus (*f)(const S1*, const S2*, D*, Zor32s, Zor32s), ModelAt modelAt) {
  forScales([&](Zor32s s, const std::vector<int>& lengths) {
    sweepOver<D, S1, S2>(
        at(name, s), [=](const S1* a, const S2* b, D* d, Zor32s len) { return f(a, b, d, len, s); }, modelAt(s),
        lengths);
  });
}
template <class S, class D, class ModelAt>
void membersInPlace(const char* name, ZorStatus (*f)(const S*, D*, Zor32s, Zor32s), ModelAt modelAt) {
  forScales([&](Zor32s s, const std::vector<int>& lengths) {
    sweepOverInPlace<D, S>(
        at(name, s), [=](const S* a, D* d, Zor32s len) { return f(a, d, len, s); }, modelAt(s), lengths);
  });
}
template <class D, class Op> auto ruleAt(Op op) {
  return [=](Zor32s s) { return rule<D>(op, s); };
}

// Constants: extremes, small ones, and any.
template <class T> std::vector<T> constants() {
  kit::Random random(7);
  std::vector<T> values;
  if constexpr (kit::ComplexPair<T>) {
    using P = decltype(T::re);
    const P low = std::numeric_limits<P>::lowest(), high = std::numeric_limits<P>::max();
    values = {{0, 0}, {1, 0}, {low, low}, {high, low}};
  } else {
    values = {0, 1, T(-1), 3, std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max()};
  }
  values.push_back(kit::anyValue<T>(random));
  return values;
}
// modelAt(val)(scaleFactor) gives the model of an element.
template <class T, class ModelAt>
void membersWithConstant(const char* name, ZorStatus (*f)(const T*, T, T*, Zor32s, Zor32s),
                         ZorStatus (*inPlace)(T, T*, Zor32s, Zor32s), ModelAt modelAt) {
  const auto run = [&](T val, Zor32s s, const std::vector<int>& lengths) {
    sweepOverOne<T>(
        at(name, s), [=](const T* x, T* d, Zor32s len) { return f(x, val, d, len, s); },
        [=](T* x, Zor32s len) { return inPlace(val, x, len, s); }, modelAt(val)(s), lengths);
  };
  const auto values = constants<T>();
  int turn = 0;
  for (T val : values)  // a few lengths and alignments for some, one array of any values for each
    for (Zor32s s : allScales()) run(val, s, ++turn % 16 == 0 ? kit::fewLengths() : std::vector<int>{203});
  for (Zor32s s : mainScales) run(values[2], s, kit::sweepLengths());
}
template <class T, class Op> auto ruleWith(Op op) {
  return [=](T val) { return [=](Zor32s s) { return [=](T x) { return scaled<T>(op(x, val), s); }; }; };
}

// One long vector of random and extreme values for every scale factor: f(a, b, d, len, s) against model(s)(a, b).
template <class D, class S1, class S2, class Call, class ModelAt>
void longVectors(const char* name, Call call, ModelAt modelAt, std::size_t count) {
  kit::Random random(3);
  const auto a = kit::anyValues<S1>(count, random);
  const auto b = kit::anyValues<S2>(count, random);
  std::vector<D> got(count), wanted(count);
  for (Zor32s s : allScales()) {
    const auto model = modelAt(s);
    for (std::size_t i = 0; i < count; ++i) wanted[i] = model(a[i], b[i]);
    ASSERT_EQ(call(a.data(), b.data(), got.data(), Zor32s(count), s), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<D>(got, wanted), "") << at(name, s);
  }
}

// All pairs of 8-bit values at every scale factor.
template <class ModelAt>
void allPairs(const char* name, ZorStatus (*f)(const Zor8u*, const Zor8u*, Zor8u*, Zor32s, Zor32s), ModelAt modelAt) {
  std::vector<Zor8u> a(65536), b(65536), got(65536), wanted(65536);
  for (std::size_t i = 0; i < 65536; ++i) {
    a[i] = Zor8u(i);
    b[i] = Zor8u(i >> 8);
  }
  for (Zor32s s : allScales()) {
    const auto model = modelAt(s);
    for (std::size_t i = 0; i < 65536; ++i) wanted[i] = model(a[i], b[i]);
    ASSERT_EQ(f(a.data(), b.data(), got.data(), 65536, s), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Zor8u>(got, wanted), "") << at(name, s);
  }
}

// ---- Arguments ----------------------------------------------------------------------------------

enum class First { pointers, length };

// Pointer arguments come first or after a constant; the length follows the last pointer, a scale factor comes last.
template <class... P>
void contractAt(First first, const std::string& name, ZorStatus (*f)(P...), int constant, Zor32s scaleFactor) {
  std::vector<std::max_align_t> memory(64);
  constexpr std::size_t n = sizeof...(P);
  constexpr bool isPointer[] = {std::is_pointer_v<P>...};
  constexpr std::size_t lengthAt = [&] {
    std::size_t last = 0;
    for (std::size_t i = 0; i < n; ++i)
      if (isPointer[i]) last = i;
    return last + 1;
  }();
  const auto good = [&]<class T>(std::type_identity<T>, std::size_t at) -> T {
    if constexpr (std::is_pointer_v<T>)
      return reinterpret_cast<T>(memory.data());
    else if constexpr (kit::ComplexPair<T>)
      return T{decltype(T::re)(constant), decltype(T::im)(constant)};
    else
      return at == lengthAt ? T(8) : at < lengthAt ? T(constant) : at == n - 1 ? T(scaleFactor) : T(0);
  };
  [&]<std::size_t... i>(std::index_sequence<i...>) {
    kit::Contract test(f, good(std::type_identity<P>{}, i)...);
    const auto addLength = [&] {
      using Length = std::tuple_element_t<lengthAt, std::tuple<P...>>;
      if constexpr (std::is_signed_v<Length>)
        test.template bad<lengthAt>({0, -1, INT32_MIN}, zorStatusBadSize);
      else
        test.template bad<lengthAt>({0}, zorStatusBadSize);
    };
    const auto addPointer = [&]<std::size_t at>(std::integral_constant<std::size_t, at>) {
      if constexpr (isPointer[at]) test.template null<at>();
    };
    if (first == First::length) addLength();
    (addPointer(std::integral_constant<std::size_t, i>{}), ...);
    if (first == First::pointers) addLength();
    test.untouched(memory.data(), memory.size() * sizeof(std::max_align_t));
    test.verify(name.c_str());
  }
  (std::make_index_sequence<n>{});
}
// With the constants and scale factors that have short cuts of their own.
template <class... P> void contract(First first, const char* name, ZorStatus (*f)(P...)) {
  for (int constant : {0, 3})
    for (Zor32s scaleFactor : {0, 7, 100, -100}) contractAt(first, at(name, scaleFactor), f, constant, scaleFactor);
}

}  // namespace scale
