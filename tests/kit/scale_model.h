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
const std::vector<Zor32s>& allScales();

// run(scaleFactor, lengths): every scale factor at a few lengths, the main ones at all.
void forScales(const std::function<void(Zor32s scaleFactor, const std::vector<int>& lengths)>& run);
inline std::string at(const char* name, Zor32s scaleFactor) {
  return std::string(name).append(", scaleFactor ").append(std::to_string(scaleFactor));
}

namespace detail {

using kit::detail::Argument;
using kit::detail::Function;

// A scaled member as one loop over all types sees it.
struct Member {
  const char* name;
  std::vector<const kit::Element*> sources;  // in place the last is the destination
  const kit::Element* destination;
  bool inPlace;
  void* callContext;
  ZorStatus (*call)(void* context, const void* const* src, void* dst, Zor32s len, Zor32s scaleFactor);
  void* modelContext;
  void (*model)(void* context, Zor32s scaleFactor, const void* const* src, void* wanted, std::size_t count);
};
void sweepScales(const Member& member);
void longVectors(const Member& member, std::size_t count);
void allPairs(const Member& member);

template <class Call, class D, class... S>
ZorStatus callOn(void* context, const void* const* src, void* dst, Zor32s len, Zor32s scaleFactor) {
  return [&]<std::size_t... k>(std::index_sequence<k...>) {
    return (*static_cast<Call*>(context))(static_cast<const S*>(src[k])..., static_cast<D*>(dst), len, scaleFactor);
  }
  (std::index_sequence_for<S...>{});
}
template <class ModelAt, class D, class... S>
void modelOf(void* context, Zor32s scaleFactor, const void* const* src, void* wanted, std::size_t count) {
  const auto model = (*static_cast<ModelAt*>(context))(scaleFactor);
  [&]<std::size_t... k>(std::index_sequence<k...>) {
    for (std::size_t i = 0; i < count; ++i) static_cast<D*>(wanted)[i] = model(static_cast<const S*>(src[k])[i]...);
  }
  (std::index_sequence_for<S...>{});
}
template <class D, class S1, class S2, class Call, class ModelAt>
Member member(const char* name, Call& call, ModelAt& modelAt) {
  return {name,
          {&kit::element<S1>, &kit::element<S2>},
          &kit::element<D>,
          false,
          &call,
          callOn<Call, D, S1, S2>,
          &modelAt,
          modelOf<ModelAt, D, S1, S2>};
}

// The same with a constant, out of place and in place.
struct ConstantMember {
  const char* name;
  const kit::Element* type;
  Function outOfPlace, inPlace;
  ZorStatus (*callOutOfPlace)(Function f, const void* val, const void* src, void* dst, Zor32s len, Zor32s scaleFactor);
  ZorStatus (*callInPlace)(Function f, const void* val, void* srcDst, Zor32s len, Zor32s scaleFactor);
  void* modelContext;
  void (*model)(void* context, const void* val, Zor32s scaleFactor, const void* src, void* wanted, std::size_t count);
};
void sweepConstants(const ConstantMember& member, const std::vector<Argument>& constants);

}  // namespace detail

// modelAt(scaleFactor) gives the model of an element.
template <class D, class S1, class S2, class ModelAt>
void members(const char* name, ZorStatus (*f)(const S1*, const S2*, D*, Zor32s, Zor32s), ModelAt modelAt) {
  detail::sweepScales(detail::member<D, S1, S2>(name, f, modelAt));
}
template <class S, class D, class ModelAt>
void membersInPlace(const char* name, ZorStatus (*f)(const S*, D*, Zor32s, Zor32s), ModelAt modelAt) {
  detail::sweepScales({name,
                       {&kit::element<S>, &kit::element<D>},
                       &kit::element<D>,
                       true,
                       &f,
                       detail::callOn<decltype(f), D, S>,
                       &modelAt,
                       detail::modelOf<ModelAt, D, S, D>});
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
  std::vector<detail::Argument> values;
  for (T val : constants<T>()) values.push_back(kit::detail::argument(val));
  detail::sweepConstants(
      {name, &kit::element<T>, reinterpret_cast<detail::Function>(f), reinterpret_cast<detail::Function>(inPlace),
       [](detail::Function call, const void* val, const void* src, void* dst, Zor32s len, Zor32s scaleFactor) {
         return reinterpret_cast<decltype(f)>(call)(static_cast<const T*>(src), *static_cast<const T*>(val),
                                                    static_cast<T*>(dst), len, scaleFactor);
       },
       [](detail::Function call, const void* val, void* srcDst, Zor32s len, Zor32s scaleFactor) {
         return reinterpret_cast<decltype(inPlace)>(call)(*static_cast<const T*>(val), static_cast<T*>(srcDst), len,
                                                          scaleFactor);
       },
       &modelAt,
       [](void* context, const void* val, Zor32s scaleFactor, const void* src, void* wanted, std::size_t count) {
         const auto model = (*static_cast<ModelAt*>(context))(*static_cast<const T*>(val))(scaleFactor);
         for (std::size_t i = 0; i < count; ++i) static_cast<T*>(wanted)[i] = model(static_cast<const T*>(src)[i]);
       }},
      values);
}
template <class T, class Op> auto ruleWith(Op op) {
  return [=](T val) { return [=](Zor32s s) { return [=](T x) { return scaled<T>(op(x, val), s); }; }; };
}
// Without a scale factor: f(src, val, dst, len) and inPlace(val, srcDst, len) with a constant inside.
template <class T, class Call, class InPlace, class Model>
void sweepOverOne(const std::string& what, Call call, InPlace inPlace, Model model, const std::vector<int>& lengths) {
  kit::sweep<T, T>(what, call, model, lengths);
  kit::sweepInPlace<T>(what, inPlace, model, lengths);
}

// One long vector of random and extreme values for every scale factor: f(a, b, d, len, s) against model(s)(a, b).
template <class D, class S1, class S2, class Call, class ModelAt>
void longVectors(const char* name, Call call, ModelAt modelAt, std::size_t count) {
  detail::longVectors(detail::member<D, S1, S2>(name, call, modelAt), count);
}

// All pairs of 8-bit values at every scale factor.
template <class ModelAt>
void allPairs(const char* name, ZorStatus (*f)(const Zor8u*, const Zor8u*, Zor8u*, Zor32s, Zor32s), ModelAt modelAt) {
  detail::allPairs(detail::member<Zor8u, Zor8u, Zor8u>(name, f, modelAt));
}

// ---- Arguments ----------------------------------------------------------------------------------

enum class First { pointers, length };

namespace detail {
struct Parameter {
  bool isPointer, isSigned;
  Argument (*number)(int value);  // both parts of a pair
};
template <class T> Argument number(int value) {
  if constexpr (kit::ComplexPair<T>)
    return kit::detail::argument(T{decltype(T::re)(value), decltype(T::re)(value)});
  else if constexpr (std::is_pointer_v<T>)
    return {};
  else
    return kit::detail::argument(T(value));
}
template <class T> inline constexpr Parameter parameter = {std::is_pointer_v<T>, std::is_signed_v<T>, number<T>};
void contract(First first, const char* name, Function f, kit::detail::Invoke invoke,
              const std::vector<Parameter>& parameters);
}  // namespace detail

// Pointer arguments come first or after a constant; the length follows the last pointer, a scale factor comes last.
// With the constants and scale factors that have short cuts of their own.
template <class... P> void contract(First first, const char* name, ZorStatus (*f)(P...)) {
  detail::contract(first, name, reinterpret_cast<detail::Function>(f), kit::detail::invoke<P...>,
                   {detail::parameter<P>...});
}

}  // namespace scale
