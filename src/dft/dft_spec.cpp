// zorsDFTGetSize_*, zorsDFTInit_*, zorsDFTInitAlloc_*, zorsDFTFree_*, zorsDFTGetBufSize_*: specifications of the float
// kinds.
#include "dft/dft_spec.h"

#include <cmath>
#include <new>

#include "dft/dft_sizes.h"
#include "dft/dft_tables.h"
#include "frame/by_type.h"

namespace zors {
namespace {

using namespace dft;

// ---- Sizes --------------------------------------------------------------------------------------

template <class S> constexpr bool halved(Zor32s len) {
  return S::field == Field::real && len > largestSmall && len % 2 == 0 && !isPowerOfTwo(len);
}
template <class S> Zor32s pointsOf(Zor32s len) { return halved<S>(len) ? len / 2 : len; }

template <class S> ZorStatus sizesOf(const Plan& plan, Zor32s len, Zor32s flag, Zor32s hint, Sizes& sizes) {
  using T = typename S::Element;
  if (!isFlag(flag)) return zorStatusBadFlag;
  if (plan.method == Method::none) return zorStatusBadSize;
  if (plan.method == Method::fft) {
    if (const ZorStatus status = fftSizes<typename S::Fft>(len, flag, hint, sizes); status != zorStatusOk)
      return status;
  } else {
    sizes = engineSizes<T>(plan, pointsOf<S>(len), !halved<S>(len));
    if (halved<S>(len)) {
      sizes.spec += 2 * up64(pairBytes<T> * (len / 4));
      sizes.init += up64(pairBytes<T> * len);
    }
  }
  sizes = reported(sizes);
  return std::max({sizes.spec, sizes.init, sizes.work, sizes.stored}) > INT32_MAX ? zorStatusNoMemory : zorStatusOk;
}

template <class S>
ZorStatus getSize(Zor32s len, Zor32s flag, Zor32s hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) {
  return check().pointers(specSize, initSize, workSize).size(len).then([&] {
    Sizes sizes;
    const Plan plan = planOf(pointsOf<S>(len));
    const ZorStatus status = sizesOf<S>(plan, len, flag, hint, sizes);
    if (status == zorStatusOk) {
      *specSize = static_cast<Zor32s>(sizes.spec);
      *initSize = static_cast<Zor32s>(sizes.init);
      *workSize = static_cast<Zor32s>(sizes.work);
    }
    return status;
  });
}

// ---- What a specification holds -----------------------------------------------------------------

template <class T> void layChain(Layout& block, Engine<T>& engine, const Factors& factors) {
  const auto rootsOf = [&](Zor32s radix) -> const T* {
    if (hasKernel(radix)) return nullptr;
    for (int i = 0; i < engine.stages; ++i)
      if (engine.stage[i].radix == radix && engine.stage[i].roots != nullptr) return engine.stage[i].roots;
    return block.take<T>(2 * static_cast<std::size_t>(radix));
  };
  engine.stages = factors.stages();
  engine.leaf = factors.leaf();
  Zor32s rest = engine.leaf;
  for (int i = engine.stages - 1; i >= 0; --i) {
    engine.stage[i] = {factors.f[i], rest, nullptr, nullptr};
    rest *= factors.f[i];
  }
  for (int i = 0; i < engine.stages; ++i) {
    auto& stage = engine.stage[i];
    stage.twiddles =
        block.take<T>(2 * static_cast<std::size_t>(stage.radix - 1) * static_cast<std::size_t>(stage.rest));
    stage.roots = rootsOf(stage.radix);
  }
  engine.leafRoots = rootsOf(engine.leaf);
  engine.leaves = engine.points / engine.leaf;
  if (engine.points <= stageBlock) engine.places = block.take<Zor32u>(static_cast<std::size_t>(engine.leaves));
  engine.workBytes = 2 * sizeof(T) * static_cast<std::size_t>(engine.points);
}
template <class T> void layEngine(Layout& block, Engine<T>& engine, const Plan& plan, Zor32s points) {
  const auto n = static_cast<std::size_t>(points), length = static_cast<std::size_t>(plan.convolutionLength);
  engine.method = plan.method;
  engine.points = points;
  if (plan.method == Method::chain) {
    layChain(block, engine, plan.factors);
  } else if (plan.method == Method::direct) {
    engine.directRoots = block.take<T>(2 * directRow<T>(points / 2));
    engine.workBytes = 2 * sizeof(T) * n;
  } else if (plan.method == Method::chirp) {
    engine.convolutionLength = plan.convolutionLength;
    engine.chirp = block.take<T>(2 * n);
    engine.chirpSpectrum = block.take<T>(2 * length);
    engine.inner = new (block.take<Engine<T>>(1)) Engine<T>{};
    engine.inner->method = isPowerOfTwo(plan.convolutionLength) ? Method::fft : Method::chain;
    engine.inner->points = plan.convolutionLength;
    if (engine.inner->method == Method::chain) layChain(block, *engine.inner, chainOf(plan.convolutionLength));
    engine.workBytes = 2 * sizeof(T) * length + engine.inner->workBytes;
  }
}

// The transform of a power of two, behind everything else.
template <class Fft>
ZorStatus buildFft(Layout& block, void** fft, Zor32s len, Zor32s flag, Zor32s hint, Zor8u* initBuffer) {
  Sizes sizes;
  typename Fft::Spec* spec = nullptr;
  ZorStatus status = fftSizes<Fft>(len, flag, hint, sizes);
  if (status == zorStatusOk)
    status = Fft::init(&spec, orderOf(len), flag, static_cast<ZorHintAlgorithm>(hint),
                       block.take<Zor8u>(static_cast<std::size_t>(sizes.spec)), initBuffer);
  *fft = spec;
  return status;
}

template <class T> ZorStatus fillEngine(Layout& block, Engine<T>& engine, const Roots<T>& roots, Zor8u* initBuffer) {
  switch (engine.method) {
    case Method::chain:
      fillChain(engine, roots);
      return zorStatusOk;
    case Method::direct:
      fillDirect(engine, roots, const_cast<T*>(engine.directRoots));
      return zorStatusOk;
    case Method::chirp: {
      auto& inner = *engine.inner;
      Layout init(Scratch::alignment, initBuffer);
      if (inner.method == Method::fft) {
        Sizes sizes;
        static_cast<void>(fftSizes<FftOf<ComplexOf<T>>>(inner.points, ZOR_FFT_DIVIDE_NONE, 0, sizes));
        inner.workBytes = static_cast<std::size_t>(sizes.work);
        engine.workBytes += inner.workBytes;
        const ZorStatus status = buildFft<FftOf<ComplexOf<T>>>(block, &inner.fft, inner.points, ZOR_FFT_DIVIDE_NONE, 0,
                                                               init.take<Zor8u>(static_cast<std::size_t>(sizes.init)));
        if (status != zorStatusOk) return status;
      } else {
        const auto length = static_cast<std::size_t>(inner.points);
        fillChain(inner, fillRoots(length, init.take<T>(2 * length)));
      }
      T* const spectrum = const_cast<T*>(engine.chirpSpectrum);
      fillChirp(engine, roots, const_cast<T*>(engine.chirp), spectrum);
      if (const ZorStatus status = innerTransform(inner, false, spectrum, init.take<Zor8u>(inner.workBytes));
          status != zorStatusOk)
        return status;
      return by_type::multiplyBy(1 / static_cast<T>(inner.points), reinterpret_cast<ComplexOf<T>*>(spectrum),
                                 inner.points);
    }
    default:
      return zorStatusOk;
  }
}

// Division by N or by its root, in the precision of the kind.
template <class T> void setScale(Spec<T>& spec, Zor32s flag) {
  spec.scaleForward = flag == ZOR_FFT_DIVIDE_FORWARD || flag == ZOR_FFT_DIVIDE_BOTH_ROOT;
  spec.scaleInverse = flag == ZOR_FFT_DIVIDE_INVERSE || flag == ZOR_FFT_DIVIDE_BOTH_ROOT;
  if (flag == ZOR_FFT_DIVIDE_BOTH_ROOT)
    spec.scale = static_cast<T>(1 / std::sqrt(static_cast<double>(spec.len)));
  else
    spec.scale = 1 / static_cast<T>(spec.len);
}

template <class S>
ZorStatus build(S& spec, const Plan& plan, const Sizes& sizes, Zor8u* specBlock, Zor32s flag, Zor8u* initBuffer) {
  using T = typename S::Element;
  if (sizes.init > 0 && initBuffer == nullptr) return zorStatusNullPointer;
  const Zor32s points = pointsOf<S>(spec.len);
  spec.workSize = static_cast<Zor32s>(sizes.stored);
  setScale(spec, flag);
  Layout block(Scratch::alignment, specBlock), init(Scratch::alignment, initBuffer);
  static_assert(sizeof(S) <= recordBytes && sizeof(Engine<T>) <= recordBytes);
  block.take<S>(1);
  if (plan.method == Method::fft) {
    spec.engine.method = Method::fft;
    return buildFft<typename S::Fft>(block, &spec.engine.fft, spec.len, flag, spec.hint, initBuffer);
  }
  layEngine(block, spec.engine, plan, points);
  if (sizes.init == 0) return zorStatusOk;
  // The roots of all points, or of twice as many for a chirp. A halved length has a table for the parting, which serves
  // a chirp of half of it too.
  const auto tableOf = [&](std::size_t turn) { return fillRoots(turn, init.take<T>(2 * turn)); };
  const auto turn = static_cast<std::size_t>(plan.method == Method::chirp ? 2 * points : points);
  auto roots = tableOf(halved<S>(spec.len) ? static_cast<std::size_t>(spec.len) : turn);
  if (halved<S>(spec.len)) {
    const std::size_t factors = 2 * static_cast<std::size_t>(spec.len / 4);
    T *const forward = block.take<T>(factors), *const inverse = block.take<T>(factors);
    fillFactors(roots, forward, inverse);
    spec.realForward = forward;
    spec.realInverse = inverse;
    if (plan.method == Method::chain || plan.method == Method::direct) roots = tableOf(turn);
  }
  return fillEngine(block, spec.engine, roots, init.take<Zor8u>(1));
}

// ---- The operations -----------------------------------------------------------------------------

template <class S>
ZorStatus init(const Plan& plan, Zor32s len, Zor32s flag, Zor32s hint, Zor8u* specBlock, Zor8u* initBuffer) {
  S& spec = *new (alignUp(specBlock, Scratch::alignment)) S{};
  spec.tag = S::kind;
  spec.len = len;
  spec.hint = hint;
  Sizes sizes;
  ZorStatus status = sizesOf<S>(plan, len, flag, hint, sizes);
  if (status == zorStatusOk) status = build(spec, plan, sizes, specBlock, flag, initBuffer);
  if (status != zorStatusOk && status != zorStatusBadFlag) spec.tag = 0;
  return status;
}
template <class S> ZorStatus initInBlock(Zor32s len, Zor32s flag, Zor32s hint, Zor8u* specBlock, Zor8u* initBuffer) {
  return check().pointers(specBlock).size(len).then(
      [&] { return init<S>(planOf(pointsOf<S>(len)), len, flag, hint, specBlock, initBuffer); });
}

template <class S> ZorStatus initAlloc(S** specOut, const Plan& plan, Zor32s len, Zor32s flag, Zor32s hint) {
  Sizes sizes;
  if (const ZorStatus status = sizesOf<S>(plan, len, flag, hint, sizes); status != zorStatusOk) return status;
  return initAllocated(specOut, static_cast<std::size_t>(sizes.spec), [&](Zor8u* block, S** spec) -> ZorStatus {
    const Scratch initBuffer(static_cast<std::size_t>(sizes.init));
    if (!initBuffer) return zorStatusNoMemory;
    *spec = alignUp(reinterpret_cast<S*>(block), Scratch::alignment);
    return init<S>(plan, len, flag, hint, block, initBuffer.data());
  });
}
template <class S> ZorStatus initAllocPlanned(S** specOut, Zor32s len, Zor32s flag, Zor32s hint) {
  return check().pointers(specOut).size(len).then(
      [&] { return initAlloc(specOut, planOf(pointsOf<S>(len)), len, flag, hint); });
}

template <class S> ZorStatus release(S* spec) { return freeObject(aligned(spec), S::kind); }

template <class S> ZorStatus getBufSize(const S* given, Zor32s* size) {
  const S* const spec = aligned(given);
  return check().pointers(spec, size).state(spec, S::kind).then([&] { *size = spec->workSize; });
}

}  // namespace

template <class S> ZorStatus dft::initAllocConvolved(S** specOut, Zor32s len, Zor32s flag, Zor32s hint) {
  return initAlloc(specOut, convolutionOf(len), len, flag, hint);
}
template ZorStatus dft::initAllocConvolved(ZorsDFTSpec_C_32fc**, Zor32s, Zor32s, Zor32s);
template ZorStatus dft::initAllocConvolved(ZorsDFTSpec_C_64fc**, Zor32s, Zor32s, Zor32s);

// clang-format off
#define GET_SIZE(name, Spec) ZorStatus name(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<Spec>(len, flag, hint, specSize, initSize, workSize); }
#define INIT(name, Spec) ZorStatus name(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return initInBlock<Spec>(len, flag, hint, specBlock, initBuffer); }
#define INIT_ALLOC(name, Spec) ZorStatus name(Spec** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) { return initAllocPlanned(specOut, len, flag, hint); }
#define FREE(name, Spec) ZorStatus name(Spec* spec) { return release(spec); }
#define GET_BUF_SIZE(name, Spec) ZorStatus name(const Spec* spec, Zor32s* size) { return getBufSize(spec, size); }
GET_SIZE(zorsDFTGetSize_C_32f, ZorsDFTSpec_C_32f)
GET_SIZE(zorsDFTGetSize_C_32fc, ZorsDFTSpec_C_32fc)
GET_SIZE(zorsDFTGetSize_C_64f, ZorsDFTSpec_C_64f)
GET_SIZE(zorsDFTGetSize_C_64fc, ZorsDFTSpec_C_64fc)
GET_SIZE(zorsDFTGetSize_R_32f, ZorsDFTSpec_R_32f)
GET_SIZE(zorsDFTGetSize_R_64f, ZorsDFTSpec_R_64f)
INIT(zorsDFTInit_C_32f, ZorsDFTSpec_C_32f)
INIT(zorsDFTInit_C_32fc, ZorsDFTSpec_C_32fc)
INIT(zorsDFTInit_C_64f, ZorsDFTSpec_C_64f)
INIT(zorsDFTInit_C_64fc, ZorsDFTSpec_C_64fc)
INIT(zorsDFTInit_R_32f, ZorsDFTSpec_R_32f)
INIT(zorsDFTInit_R_64f, ZorsDFTSpec_R_64f)
INIT_ALLOC(zorsDFTInitAlloc_C_32f, ZorsDFTSpec_C_32f)
INIT_ALLOC(zorsDFTInitAlloc_C_32fc, ZorsDFTSpec_C_32fc)
INIT_ALLOC(zorsDFTInitAlloc_C_64f, ZorsDFTSpec_C_64f)
INIT_ALLOC(zorsDFTInitAlloc_C_64fc, ZorsDFTSpec_C_64fc)
INIT_ALLOC(zorsDFTInitAlloc_R_32f, ZorsDFTSpec_R_32f)
INIT_ALLOC(zorsDFTInitAlloc_R_64f, ZorsDFTSpec_R_64f)
FREE(zorsDFTFree_C_32f, ZorsDFTSpec_C_32f)
FREE(zorsDFTFree_C_32fc, ZorsDFTSpec_C_32fc)
FREE(zorsDFTFree_C_64f, ZorsDFTSpec_C_64f)
FREE(zorsDFTFree_C_64fc, ZorsDFTSpec_C_64fc)
FREE(zorsDFTFree_R_32f, ZorsDFTSpec_R_32f)
FREE(zorsDFTFree_R_64f, ZorsDFTSpec_R_64f)
GET_BUF_SIZE(zorsDFTGetBufSize_C_32f, ZorsDFTSpec_C_32f)
GET_BUF_SIZE(zorsDFTGetBufSize_C_32fc, ZorsDFTSpec_C_32fc)
GET_BUF_SIZE(zorsDFTGetBufSize_C_64f, ZorsDFTSpec_C_64f)
GET_BUF_SIZE(zorsDFTGetBufSize_C_64fc, ZorsDFTSpec_C_64fc)
GET_BUF_SIZE(zorsDFTGetBufSize_R_32f, ZorsDFTSpec_R_32f)
GET_BUF_SIZE(zorsDFTGetBufSize_R_64f, ZorsDFTSpec_R_64f)
#undef GET_SIZE
#undef INIT
#undef INIT_ALLOC
#undef FREE
#undef GET_BUF_SIZE
// clang-format on

}  // namespace zors
