// Generators write a vector and read none: their elements at any address, at unreadable pages.
#pragma once

#include "kit/elementwise.h"
#include "kit/guarded.h"

namespace generators {

// call(dst, len) gives the first len elements of wanted.
template <class T>
void checkPlaces(const std::string& name, const std::function<ZorStatus(T*, Zor32s)>& call,
                 const std::vector<T>& wanted, const std::vector<int>& lengths = kit::sweepLengths()) {
  for (int len : lengths)
    for (kit::Edge edge : kit::bothEdges)
      for (std::size_t off = 0; off < (len == 41 || len == 130 ? 32 / sizeof(T) : 2); ++off) {
        if (std::size_t(len) > wanted.size()) continue;
        const kit::Guarded<T> dst(std::size_t(len), edge, off * sizeof(T));
        const std::string where = name + ", len " + std::to_string(len) + ", " + std::to_string(off) + " elements off";
        ASSERT_EQ(call(dst.data(), len), zorStatusOk) << where;
        ASSERT_EQ(kit::firstDifference<T>(dst.span(), std::span(wanted).first(std::size_t(len))), "") << where;
        ASSERT_TRUE(dst.intact()) << where << ": wrote outside";
      }
}

}  // namespace generators
