#include "kit/elements.h"

namespace kit {

#define KNOWN(T)                                       \
  template void fillAny<T>(std::span<T> out, Random&); \
  template std::string firstDifference<T>(std::span<const T>, std::span<const T>, Nan);
ELEMENT_TYPES(KNOWN)
#undef KNOWN

}  // namespace kit
