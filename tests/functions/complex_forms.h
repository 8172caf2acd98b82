// Sweeps of families whose elements are complex, interleaved or as two planes: all forms against one model of an
// element.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kit/elementwise.h"
#include "zors/types.h"

namespace complexForms {

template <class C> using PartOf = decltype(C::re);

// call(src, dst, len, extra...).
template <class C, class D, class... Extra>
void interleaved(const char* name, ZorStatus (*call)(const C*, D*, Zor32s, Extra...), std::function<D(C)> model,
                 const std::vector<int>& lengths, std::type_identity_t<Extra>... extra) {
  std::function<ZorStatus(const C*, D*, Zor32s)> bound = [=](const C* src, D* dst, Zor32s len) {
    return call(src, dst, len, extra...);
  };
  kit::sweep<D, C>(name, bound, model, lengths);
}
// call(srcRe, srcIm, dst, len, extra...).
template <class C, class D, class... Extra>
void planes(const char* name, ZorStatus (*call)(const PartOf<C>*, const PartOf<C>*, D*, Zor32s, Extra...),
            std::function<D(C)> model, const std::vector<int>& lengths, std::type_identity_t<Extra>... extra) {
  using R = PartOf<C>;
  std::function<ZorStatus(const R*, const R*, D*, Zor32s)> bound = [=](const R* re, const R* im, D* dst, Zor32s len) {
    return call(re, im, dst, len, extra...);
  };
  std::function<D(R, R)> ofParts = [=](R re, R im) { return model({re, im}); };
  kit::sweep<D, R, R>(name, bound, ofParts, lengths);
}

template <class C, class D, class... Extra>
void contractInterleaved(const char* name, ZorStatus (*call)(const C*, D*, Zor32s, Extra...),
                         std::type_identity_t<Extra>... extra) {
  const std::vector<C> src(8);
  std::vector<D> dst(8);
  kit::Contract(call, src.data(), dst.data(), 8, extra...)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class R, class D, class... Extra>
void contractPlanes(const char* name, ZorStatus (*call)(const R*, const R*, D*, Zor32s, Extra...),
                    std::type_identity_t<Extra>... extra) {
  const std::vector<R> re(8), im(8);
  std::vector<D> dst(8);
  kit::Contract(call, re.data(), im.data(), dst.data(), 8, extra...)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}

}  // namespace complexForms
