// The float kinds of specifications with their functions, for tests that run over all of them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "fft/fft_model.h"
#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/object.h"
#include "kit/services.h"
#include "kit/values.h"
#include "zors/fft.h"

namespace kinds {

inline constexpr int flags[] = {ZOR_FFT_DIVIDE_FORWARD, ZOR_FFT_DIVIDE_INVERSE, ZOR_FFT_DIVIDE_BOTH_ROOT,
                                ZOR_FFT_DIVIDE_NONE};
inline bool scales(int flag, bool inverse) {
  return flag == ZOR_FFT_DIVIDE_BOTH_ROOT || flag == (inverse ? ZOR_FFT_DIVIDE_INVERSE : ZOR_FFT_DIVIDE_FORWARD);
}
template <class T> T scale(int flag, int order) {
  const double n = std::ldexp(1.0, order);
  return static_cast<T>(flag == ZOR_FFT_DIVIDE_BOTH_ROOT ? 1 / std::sqrt(n) : 1 / n);
}

template <class S, class E> struct Kind {
  using Spec = S;
  using Element = E;
  const char* name;
  int largestOrder;
  bool real;
  ZorStatus (*getSize)(Zor32s, Zor32s, ZorHintAlgorithm, Zor32s*, Zor32s*, Zor32s*);
  ZorStatus (*init)(S**, Zor32s, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*);
  ZorStatus (*initAlloc)(S**, Zor32s, Zor32s, ZorHintAlgorithm);
  ZorStatus (*free)(S*);
  ZorStatus (*getBufSize)(const S*, Zor32s*);
};

inline constexpr Kind<ZorsFFTSpec_C_32fc, Zor32f> c32fc = {"C_32fc",
                                                           28,
                                                           false,
                                                           zorsFFTGetSize_C_32fc,
                                                           zorsFFTInit_C_32fc,
                                                           zorsFFTInitAlloc_C_32fc,
                                                           zorsFFTFree_C_32fc,
                                                           zorsFFTGetBufSize_C_32fc};
inline constexpr Kind<ZorsFFTSpec_C_32f, Zor32f> c32f = {"C_32f",
                                                         28,
                                                         false,
                                                         zorsFFTGetSize_C_32f,
                                                         zorsFFTInit_C_32f,
                                                         zorsFFTInitAlloc_C_32f,
                                                         zorsFFTFree_C_32f,
                                                         zorsFFTGetBufSize_C_32f};
inline constexpr Kind<ZorsFFTSpec_R_32f, Zor32f> r32f = {"R_32f",
                                                         29,
                                                         true,
                                                         zorsFFTGetSize_R_32f,
                                                         zorsFFTInit_R_32f,
                                                         zorsFFTInitAlloc_R_32f,
                                                         zorsFFTFree_R_32f,
                                                         zorsFFTGetBufSize_R_32f};
inline constexpr Kind<ZorsFFTSpec_C_64fc, Zor64f> c64fc = {"C_64fc",
                                                           27,
                                                           false,
                                                           zorsFFTGetSize_C_64fc,
                                                           zorsFFTInit_C_64fc,
                                                           zorsFFTInitAlloc_C_64fc,
                                                           zorsFFTFree_C_64fc,
                                                           zorsFFTGetBufSize_C_64fc};
inline constexpr Kind<ZorsFFTSpec_C_64f, Zor64f> c64f = {"C_64f",
                                                         27,
                                                         false,
                                                         zorsFFTGetSize_C_64f,
                                                         zorsFFTInit_C_64f,
                                                         zorsFFTInitAlloc_C_64f,
                                                         zorsFFTFree_C_64f,
                                                         zorsFFTGetBufSize_C_64f};
inline constexpr Kind<ZorsFFTSpec_R_64f, Zor64f> r64f = {"R_64f",
                                                         28,
                                                         true,
                                                         zorsFFTGetSize_R_64f,
                                                         zorsFFTInit_R_64f,
                                                         zorsFFTInitAlloc_R_64f,
                                                         zorsFFTFree_R_64f,
                                                         zorsFFTGetBufSize_R_64f};

template <class F> void forEachKind(F f) { f(c32fc), f(c32f), f(r32f), f(c64fc), f(c64f), f(r64f); }

// A spectrum in one of the packed formats, from Perm.
enum Format { perm, pack, ccs };
template <class T> std::vector<T> packed(const std::vector<T>& spectrum, Format format) {
  const std::size_t n = spectrum.size();
  std::vector<T> out = {spectrum[0]};
  if (format == ccs) out.push_back(0);
  if (format == perm && n > 1) out.push_back(spectrum[1]);
  for (std::size_t i = 2; i < n; ++i) out.push_back(spectrum[i]);
  if (format != perm && n > 1) out.push_back(spectrum[1]);
  if (format == ccs && n > 1) out.push_back(0);
  return out;
}

// A specification in memory of exactly the reported sizes, at unreadable pages, `off` bytes from alignment; and its
// work buffer.
template <class S, class T> class Built {
 public:
  Built(const Kind<S, T>& kind, int order, int flag, std::size_t off = 0) {
    Zor32s specSize = 0, initSize = 0, workSize = 0;
    EXPECT_EQ(kind.getSize(order, flag, zorAlgHintNone, &specSize, &initSize, &workSize), zorStatusOk);
    block_.emplace(static_cast<std::size_t>(specSize), kit::Edge::end, off);
    const kit::Guarded<Zor8u> init(static_cast<std::size_t>(initSize), kit::Edge::end, off);
    EXPECT_EQ(kind.init(&spec_, order, flag, zorAlgHintNone, block_->data(), initSize == 0 ? nullptr : init.data()),
              zorStatusOk);
    EXPECT_TRUE(init.intact() && block_->intact()) << kind.name << " order " << order << ": Init wrote outside";
    work_.emplace(static_cast<std::size_t>(workSize), kit::Edge::end, off);
  }
  const S* spec() const { return spec_; }
  Zor8u* work() const { return work_->data(); }
  bool intact() const { return block_->intact() && work_->intact(); }

 private:
  std::optional<kit::Guarded<Zor8u>> block_, work_;
  S* spec_ = nullptr;
};

// A specification as the object that all objects are; forward(input, out, spec, work) is a transform of its kind.
template <class In, class K, class Forward>
kit::Object<typename K::Spec> asObject(const K& kind, int order, int flag, ZorHintAlgorithm hint, Forward forward) {
  using Spec = typename K::Spec;
  kit::Random random(16);
  const auto input = kit::anyValues<In>(std::size_t{4} << order, random);
  const auto getSize = kind.getSize;
  const auto init = kind.init;
  const auto initAlloc = kind.initAlloc;
  const auto getBufSize = kind.getBufSize;
  return {
      .name = std::string(kind.name) + ", order " + std::to_string(order),
      .getSize = [=](Zor32s* block, Zor32s* start,
                     Zor32s* work) { return getSize(order, flag, hint, block, start, work); },
      .init = [=](Spec** spec, Zor8u* block, Zor8u* start) { return init(spec, order, flag, hint, block, start); },
      .initAlloc = [=](Spec** spec) { return initAlloc(spec, order, flag, hint); },
      .free = kind.free,
      .outBytes = 2 * sizeof(In) << order,
      .run = [=](Spec* spec, Zor8u* work, Zor8u* out) { return forward(input.data(), kit::as<In>(out), spec, work); },
      .operations = {{"GetBufSize",
                      [=](Spec* spec) {
                        Zor32s size = 0;
                        return getBufSize(spec, &size);
                      }}},
      .immutable = true,
      .freeInCallersBlock = kit::FreeInCallersBlock::clearsTheTag,
  };
}

// ---- Checks -------------------------------------------------------------------------------------

// A transform tests the specification, its kind, then the data pointers, which stand before it; a null buffer is none.
template <class S, class... P>
void contract(const char* name, ZorStatus (*transform)(P...), const S* good, const S* foreign) {
  std::vector<std::max_align_t> data(32);
  const auto argument = [&]<class T>(std::type_identity<T>) -> T {
    if constexpr (std::is_same_v<T, const S*>)
      return good;
    else if constexpr (std::is_pointer_v<T> && !std::is_same_v<T, Zor8u*>)
      return reinterpret_cast<T>(data.data());
    else
      return T{};
  };
  constexpr std::size_t specAt = [] {
    constexpr bool isSpec[] = {std::is_same_v<P, const S*>...};
    return static_cast<std::size_t>(std::find(std::begin(isSpec), std::end(isSpec), true) - std::begin(isSpec));
  }();
  kit::Contract test(transform, argument(std::type_identity<P>{})...);
  test.template null<specAt>().template bad<specAt>({foreign}, zorStatusBadContext);
  [&]<std::size_t... at>(std::index_sequence<at...>) { (test.template null<at>(), ...); }
  (std::make_index_sequence<specAt>{});
  test.untouched(data).verify(name);
}
template <class K, class... F> void contracts(const K& kind, F... transforms) {
  typename K::Spec *good = nullptr, *foreign = nullptr;
  ASSERT_EQ(kind.initAlloc(&good, 4, 8, 0), zorStatusOk);
  ASSERT_EQ(kind.initAlloc(&foreign, 4, 8, 0), zorStatusOk);
  ++*reinterpret_cast<Zor32u*>(foreign);
  (contract<typename K::Spec>(kind.name, transforms, good, foreign), ...);
  --*reinterpret_cast<Zor32u*>(foreign);
  EXPECT_EQ(kind.free(good), zorStatusOk);
  EXPECT_EQ(kind.free(foreign), zorStatusOk);
}

}  // namespace kinds
