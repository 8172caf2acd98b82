/** @file
 *  What all of zors.hpp stands on: errors, elements, owners, operations that choose a C function by their arguments. */
#ifndef ZORS_HPP_CORE_HPP
#define ZORS_HPP_CORE_HPP

#include <complex>
#include <concepts>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <ranges>
#include <span>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "zors.h"
#include "zors_status.h"

namespace zors {

/// What calls throw: the status of the C function, its name and its text.
class Error : public std::runtime_error {
 public:
  explicit Error(ZorStatus status, const char* why = nullptr)
      : std::runtime_error(std::string(zorsStatusName(status)) + ": " + (why ? why : zorsStatusText(status))),
        status_(status) {}
  ZorStatus status() const noexcept { return status_; }

 private:
  ZorStatus status_;
};

/// A status and what came with it: the answer of operations that are called with std::nothrow.
template <class T> struct Result {
  ZorStatus status;
  T value;
};

template <class T> using In = std::span<const T>;
template <class T> using Out = std::span<T>;

template <class T>
concept ComplexFloat = std::same_as<T, std::complex<float>> || std::same_as<T, std::complex<double>>;
template <class T>
concept ComplexInteger = std::same_as<T, Zor8sc> || std::same_as<T, Zor16sc> || std::same_as<T, Zor32sc>;
/// Elements whose results come under a scale factor.
template <class T>
concept Integer = std::integral<T> || ComplexInteger<T>;
template <class T>
concept Vector = std::ranges::contiguous_range<T> && std::ranges::sized_range<T>;

namespace detail {

/// A status, and a text of our own where the status alone does not tell.
struct Outcome {
  ZorStatus status;
  const char* why = nullptr;
  constexpr Outcome(ZorStatus s, const char* text = nullptr) noexcept : status(s), why(text) {}  // NOLINT: implicit
  constexpr bool failed() const noexcept { return status < 0; }
};

[[noreturn]] inline void fail([[maybe_unused]] Outcome outcome) {
#ifdef __cpp_exceptions
  throw Error(outcome.status, outcome.why);
#else
  std::abort();
#endif
}
inline ZorStatus check(Outcome outcome) {
  if (outcome.failed()) [[unlikely]]
    fail(outcome);
  return outcome.status;
}

constexpr Outcome different{zorStatusBadSize, "vectors of different lengths"};
constexpr Outcome tooLong{zorStatusBadSize, "a vector of 2^31 elements or more"};
constexpr Outcome notScaled{zorStatusBadArgument, "a scale factor is given, and the elements are no integers"};

/// One length for all, which the C functions can take.
template <class... Sizes> constexpr Outcome sameSizes(std::size_t size, Sizes... sizes) noexcept {
  if (((size != sizes) || ...)) return different;
  if (size == 0) return zorStatusBadSize;
  return size > std::size_t(std::numeric_limits<Zor32s>::max()) ? tooLong : Outcome{zorStatusOk};
}

// Elements as the C functions know them: std::complex has the layout of their pairs.
template <class T> constexpr T* raw(T* p) noexcept { return p; }
inline const Zor32fc* raw(const std::complex<float>* p) noexcept { return reinterpret_cast<const Zor32fc*>(p); }
inline const Zor64fc* raw(const std::complex<double>* p) noexcept { return reinterpret_cast<const Zor64fc*>(p); }
inline Zor32fc* raw(std::complex<float>* p) noexcept { return reinterpret_cast<Zor32fc*>(p); }
inline Zor64fc* raw(std::complex<double>* p) noexcept { return reinterpret_cast<Zor64fc*>(p); }
template <class T, std::size_t N> constexpr auto raw(std::span<T, N> s) noexcept { return raw(s.data()); }
template <class T> using Raw = std::remove_pointer_t<decltype(raw(std::declval<T*>()))>;

template <class T> constexpr T value(T v) noexcept { return v; }
inline Zor32fc value(std::complex<float> v) noexcept { return {v.real(), v.imag()}; }
inline Zor64fc value(std::complex<double> v) noexcept { return {v.real(), v.imag()}; }
// And back.
template <class T> constexpr T result(T v) noexcept { return v; }
inline std::complex<float> result(Zor32fc v) noexcept { return {v.re, v.im}; }
inline std::complex<double> result(Zor64fc v) noexcept { return {v.re, v.im}; }

/// The only pointer to what a C function built, released by another.
template <auto free> struct Release {
  void operator()(auto* object) const noexcept { free(object); }
};
template <class Object, auto free> using Owned = std::unique_ptr<Object, Release<free>>;

/// Fills an owner from an InitAlloc; what it held stays where that fails.
template <class Object, class Deleter, class InitAlloc, class... Arguments>
Outcome build(std::unique_ptr<Object, Deleter>& owner, InitAlloc initAlloc, Arguments... arguments) noexcept {
  Object* object = nullptr;
  const ZorStatus status = initAlloc(&object, arguments...);
  if (status >= 0) owner.reset(object);
  return status;
}

/// Memory for a state or for work, 64-byte aligned.
using Block = Owned<Zor8u, zorsFree>;
inline Outcome allocate(Block& block, Zor32s size) noexcept {
  Block made(zorsMalloc_8u(size > 0 ? size : 1));
  if (!made) return zorStatusNoMemory;
  block = std::move(made);
  return zorStatusOk;
}

template <class F> struct Signature;
template <class... Parameters> struct Signature<ZorStatus (*)(Parameters...)> {
  static constexpr std::size_t count = sizeof...(Parameters);
  template <std::size_t i> using At = std::tuple_element_t<i, std::tuple<Parameters...>>;
};

/// An argument as the C functions take it: a vector's pointer, a number, a pair.
template <class A> auto passed(A& argument) noexcept {
  if constexpr (Vector<A>) {
    return raw(std::ranges::data(argument));
  } else {
    return value(argument);
  }
}
template <class A> using Passed = decltype(passed(std::declval<A&>()));

/// Whether arguments, in order, fit the first parameters of a function: pointers as they are, numbers convert.
template <class F, class... Arguments> constexpr bool fits() {
  if constexpr (sizeof...(Arguments) > Signature<F>::count) {
    return false;
  } else {
    return []<std::size_t... i>(std::index_sequence<i...>) {
      return (std::is_convertible_v<Arguments, typename Signature<F>::template At<i>> && ...);
    }
    (std::index_sequence_for<Arguments...>());
  }
}
template <class F, class Arguments, std::size_t... i>
ZorStatus call(F f, const Arguments& arguments, std::index_sequence<i...>) noexcept {
  return f(static_cast<typename Signature<F>::template At<i>>(std::get<i>(arguments))...);
}

/// (length, argument) of the vectors among arguments, (0, ...) of others.
template <class A> constexpr std::size_t sizeOf(const A& argument) noexcept {
  if constexpr (Vector<const A>) {
    return std::ranges::size(argument);
  } else {
    return 0;
  }
}
template <class... A> constexpr Outcome lengthOf(Zor32s& len, const A&... arguments) noexcept {
  std::size_t size = 0;
  ((size = Vector<const A> ? sizeOf(arguments) : size), ...);
  if (((Vector<const A> && sizeOf(arguments) != size) || ...)) return different;
  len = Zor32s(size);
  return sameSizes(size);
}

/// Places of the length: behind the last vector.
template <class... A> constexpr std::size_t lengthPlace() {
  std::size_t place = 0, i = 0;
  ((place = (++i, Vector<A>) ? i : place), ...);
  return place;
}
/// The arguments of a C function: pointers and numbers, the length behind the last vector.
template <class... A> auto withLength(Zor32s len, A&... arguments) noexcept {
  constexpr std::size_t place = lengthPlace<A...>();
  const auto all = std::make_tuple(passed(arguments)...);
  return [&]<std::size_t... i, std::size_t... k>(std::index_sequence<i...>, std::index_sequence<k...>) {
    return std::make_tuple(std::get<i>(all)..., len, std::get<place + k>(all)...);
  }
  (std::make_index_sequence<place>(), std::make_index_sequence<sizeof...(A) - place>());
}

template <class Tuple> struct FitsTuple;
template <class... Arguments> struct FitsTuple<std::tuple<Arguments...>> {
  /// Nothing missing, or only a scale factor or hint, which then is 0.
  template <class F> static constexpr std::size_t missing() {
    constexpr std::size_t all = Signature<F>::count, given = sizeof...(Arguments);
    if constexpr (!fits<F, Arguments...>() || all > given + 1) {
      return 2;
    } else if constexpr (all == given) {
      return 0;
    } else {
      return std::integral<typename Signature<F>::template At<given>> ? 1 : 2;
    }
  }
};

}  // namespace detail

/// An operation on vectors: the first of the C functions that takes the elements of the arguments. The arguments are
/// those of the C function in their order, without the length; a scale factor left out is 0.
template <auto... functions> struct Operation {
  template <class... A> using Tuple = decltype(detail::withLength(Zor32s(), std::declval<A&>()...));
  template <class... A>
  static constexpr bool known = ((detail::FitsTuple<Tuple<A...>>::template missing<decltype(functions)>() < 2) || ...);

  template <class... A>
  requires known<std::remove_reference_t<A>...> ZorStatus operator()(A&&... arguments) const {
    return detail::check(run(arguments...));
  }
  template <class... A>
  requires known<std::remove_reference_t<A>...>
  [[nodiscard]] ZorStatus operator()(std::nothrow_t, A&&... arguments) const noexcept {
    return run(arguments...).status;
  }

 private:
  template <class... A> static detail::Outcome run(A&... arguments) noexcept {
    Zor32s len = 0;
    if (const auto outcome = detail::lengthOf(len, arguments...); outcome.failed()) return outcome;
    return pick<functions...>(detail::withLength(len, arguments...));
  }
  template <auto function, auto... others, class Arguments> static ZorStatus pick(const Arguments& given) noexcept {
    using F = decltype(function);
    constexpr std::size_t missing = detail::FitsTuple<Arguments>::template missing<F>();
    constexpr auto all = std::make_index_sequence<detail::Signature<F>::count>();
    if constexpr (missing == 0) {
      return detail::call(function, given, all);
    } else if constexpr (missing == 1) {
      return detail::call(function, std::tuple_cat(given, std::tuple(Zor32s(0))), all);
    } else {
      return pick<others...>(given);
    }
  }
};

/// A number, or several, of one vector or two: the first of the C functions that takes the elements. Several are a
/// std::tuple. A scale factor (integers) or hint (floats) is 0 where it is left out.
template <auto... functions> struct Reduction {
  template <Vector S> auto operator()(const S& src, int scaleOrHint = 0) const {
    return checked(run<functions...>(scaleOrHint, src));
  }
  template <Vector S1, Vector S2> auto operator()(const S1& src1, const S2& src2, int scaleOrHint = 0) const {
    return checked(run<functions...>(scaleOrHint, src1, src2));
  }
  template <Vector S> [[nodiscard]] auto operator()(std::nothrow_t, const S& src, int scaleOrHint = 0) const noexcept {
    return told(run<functions...>(scaleOrHint, src));
  }
  template <Vector S1, Vector S2>
  [[nodiscard]] auto operator()(std::nothrow_t, const S1& src1, const S2& src2, int scaleOrHint = 0) const noexcept {
    return told(run<functions...>(scaleOrHint, src1, src2));
  }

 private:
  template <class T> static T checked(std::pair<detail::Outcome, T> answer) {
    detail::check(answer.first);
    return answer.second;
  }
  template <class T> static Result<T> told(std::pair<detail::Outcome, T> answer) noexcept {
    return {answer.first.status, answer.second};
  }
  template <auto function, auto... others, class... V> static auto run(int scaleOrHint, const V&... vectors) noexcept {
    using F = detail::Signature<decltype(function)>;
    constexpr std::size_t sources = sizeof...(V) + 1;
    if constexpr (detail::fits<decltype(function), detail::Passed<const V>..., Zor32s>()) {
      constexpr bool scaled = std::integral<typename F::template At<F::count - 1>>;
      return call<function, scaled>(scaleOrHint, std::make_index_sequence<F::count - sources - scaled>(), vectors...);
    } else {
      static_assert(sizeof...(others) > 0, "no C function of the family takes these elements");
      return run<others...>(scaleOrHint, vectors...);
    }
  }
  // i: the results, which follow the vectors and their length.
  template <auto function, bool scaled, std::size_t... i, class... V>
  static auto call(int scaleOrHint, std::index_sequence<i...>, const V&... vectors) noexcept {
    using F = detail::Signature<decltype(function)>;
    std::tuple<std::remove_pointer_t<typename F::template At<sizeof...(V) + 1 + i>>...> values{};
    Zor32s len = 0;
    detail::Outcome outcome = detail::lengthOf(len, vectors...);
    if (!outcome.failed()) {
      if constexpr (scaled) {
        outcome = function(detail::passed(vectors)..., len, &std::get<i>(values)..., scaleOrHint);
      } else {
        outcome = scaleOrHint ? detail::notScaled : function(detail::passed(vectors)..., len, &std::get<i>(values)...);
      }
    }
    if constexpr (sizeof...(i) == 1) {
      return std::pair(outcome, detail::result(std::get<0>(values)));
    } else {
      return std::pair(outcome, std::tuple(detail::result(std::get<i>(values))...));
    }
  }
};

}  // namespace zors

#endif
