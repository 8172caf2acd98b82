// Holds no export: proves that every SHARED line of exports.def joins functions that are called alike.
#include <cstddef>
#include <type_traits>

#include "zors.h"

namespace zors {
namespace {

enum class Passed { pointer, integer, floating, integerPair, floatPair, nothing };

template <class T> consteval Passed passed() {
  if constexpr (std::is_void_v<T>)
    return Passed::nothing;
  else if constexpr (std::is_pointer_v<T>)
    return Passed::pointer;
  else if constexpr (std::is_integral_v<T>)
    return Passed::integer;
  else if constexpr (std::is_floating_point_v<T>)
    return Passed::floating;
  else
    return std::is_integral_v<decltype(T::re)> ? Passed::integerPair : Passed::floatPair;
}

// Parts of one 8-byte word travel in one register of their class, whatever they are inside.
template <class A, class B> consteval bool alike() {
  constexpr Passed a = passed<A>(), b = passed<B>();
  constexpr auto alone = [](Passed p) { return p == Passed::nothing || p == Passed::pointer; };
  if constexpr (alone(a) || alone(b))
    return a == b;
  else {
    constexpr bool floatA = a == Passed::floating || a == Passed::floatPair;
    constexpr bool floatB = b == Passed::floating || b == Passed::floatPair;
    return sizeof(A) == sizeof(B) && sizeof(A) <= 8 && floatA == floatB;
  }
}

template <class R1, class... A1, class R2, class... A2> consteval bool calledAlike(R1 (*)(A1...), R2 (*)(A2...)) {
  if constexpr (sizeof...(A1) != sizeof...(A2))
    return false;
  else
    return alike<R1, R2>() && (alike<A1, A2>() && ...);
}

#define EXPORT(name)
#define SHARED(name, as) \
  static_assert(calledAlike(static_cast<decltype(&::name)>(nullptr), static_cast<decltype(&::as)>(nullptr)));
#include "frame/exports.def"
#undef EXPORT
#undef SHARED

}  // namespace
}  // namespace zors
