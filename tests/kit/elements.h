// What the sweeps know of an element type, so that a loop over all of them is compiled once.
#pragma once

#include "kit/values.h"

namespace kit {

struct Element {
  std::size_t size;
  void (*fill)(void* to, std::size_t count, Random& random);                                   // with any values
  std::string (*difference)(const void* got, const void* wanted, std::size_t count, Nan nan);  // as firstDifference()
};

namespace detail {
template <class T> void fillElements(void* to, std::size_t count, Random& random) {
  fillAny<T>({static_cast<T*>(to), count}, random);
}
template <class T> std::string elementDifference(const void* got, const void* wanted, std::size_t count, Nan nan) {
  return firstDifference<T>({static_cast<const T*>(got), count}, {static_cast<const T*>(wanted), count}, nan);
}
}  // namespace detail

// One object per type, known by its address.
template <class T>
inline constexpr Element element = {sizeof(T), detail::fillElements<T>, detail::elementDifference<T>};

#define ELEMENT_TYPES(ROW)                                                                                   \
  ROW(Zor8u)                                                                                                 \
  ROW(Zor8s) ROW(Zor16u) ROW(Zor16s) ROW(Zor32u) ROW(Zor32s) ROW(Zor64u) ROW(Zor64s) ROW(Zor32f) ROW(Zor64f) \
      ROW(Zor16sc) ROW(Zor32sc) ROW(Zor64sc) ROW(Zor32fc) ROW(Zor64fc)
#define KNOWN(T)                                              \
  extern template void fillAny<T>(std::span<T> out, Random&); \
  extern template std::string firstDifference<T>(std::span<const T>, std::span<const T>, Nan);
ELEMENT_TYPES(KNOWN)
#undef KNOWN

}  // namespace kit
