// zorsDCTFwdGetSize_*, zorsDCTFwdInit_*, zorsDCTFwdInitAlloc_*, zorsDCTFwdFree_*, zorsDCTFwdGetBufSize_*, and those of
// zorsDCTInv: specifications of the float kinds.
#include "dft/dct/dct_spec.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

namespace zors {
namespace {

using namespace dct;

// ---- Sizes: fixed formulas ----------------------------------------------------------------------

struct Sizes {
  Zor64s spec = 0, init = 0, work = 0;  // work without the slack for aligning
};

template <class Fft> Sizes fftSizes(Zor32s len) {  // within every limit
  Zor32s spec = 0, init = 0, work = 0;
  Fft::getSize(dft::orderOf(len), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &spec, &init, &work);
  return {spec, init, work};
}
template <class T> Sizes sizesOf(Zor32s len) {
  constexpr Zor64s bytes = sizeof(T);
  Sizes sizes;
  switch (methodOf<T>(len)) {
    case Method::kernel:
      return {sizeof(T) == 4 ? 160 : 168, 0, 0};
    case Method::fft:
      sizes = fftSizes<FftOf<T>>(len);
      sizes.spec += bytes * len;
      sizes.work += bytes * len;
      break;
    case Method::direct:
      sizes = {4 * bytes * len, 0, bytes * len};
      break;
    case Method::chirp: {
      const Zor64s length = convolutionOf(len);
      sizes = fftSizes<FftOf<ComplexOf<T>>>(convolutionOf(len));
      sizes.spec += (3 * Zor64s{pointsOf(len)} + length) * 2 * bytes;
      sizes.init = std::max(sizes.init, sizes.work);
      sizes.work += length * 2 * bytes;
      break;
    }
  }
  return {sizes.spec + 192, sizes.init > 0 ? sizes.init + 64 : 0, sizes.work};
}

// Init takes longer chirps than size queries do, by design.
enum class Asks { size, init };
template <class T> bool isLength(Zor32s len, Asks asks) {
  constexpr bool narrow = sizeof(T) == 4;
  if (methodOf<T>(len) == Method::fft) return len <= (narrow ? 0xFFFFFFF : 0x7FFFFFF);
  if (asks == Asks::init) return len <= (narrow ? 0x3FFFFFF : 0x1FFFFFF);
  return len <= (narrow ? 0x1FFFFFF : 0xFFFFFF);
}

template <class T> ZorStatus getSize(Zor32s len, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) {
  return check()
      .size(len)
      .pointers(specSize, initSize, workSize)
      .require(isLength<T>(len, Asks::size), zorStatusBadSize)
      .then([&]() -> ZorStatus {
        const Sizes sizes = sizesOf<T>(len);
        const Zor64s work = sizes.work > 0 ? sizes.work + 64 : 0;
        if (std::max({sizes.spec, sizes.init, work}) > INT32_MAX) return zorStatusNoMemory;
        *specSize = static_cast<Zor32s>(sizes.spec);
        *initSize = static_cast<Zor32s>(sizes.init);
        *workSize = static_cast<Zor32s>(work);
        return zorStatusOk;
      });
}

// ---- Tables -------------------------------------------------------------------------------------

constexpr double turn = 6.283185307179586;

template <class T> void fillCosines(Zor32s len, T* out) {
  const double quarterStep = turn / (4.0 * len);
  for (Zor32s i = 0; i < 4 * len; ++i) out[i] = static_cast<T>(std::cos(quarterStep * i));
}
// Of y[k] and y[N - k] from term k, for k from 1 to (N - 1) / 2; those of an inverse are halved.
template <class T> void fillFactors(Zor32s len, Direction direction, T* out) {
  const Zor32s terms = len / 2 + len % 2;
  const double step = turn / (4.0 * len), scale = std::sqrt((direction == Direction::forward ? 2.0 : 0.5) / len);
  for (Zor32s k = 0; k < terms; ++k) {
    out[k] = static_cast<T>(-scale * std::cos(step * k));
    out[k + terms] = static_cast<T>(scale * std::sin(step * k));
  }
}
template <class T> void fillUnpack(Zor32s len, Direction direction, T* out) {
  for (Zor32s k = 1; k <= len / 4; ++k, out += 2) {
    const double angle = turn / len * k, cosine = std::cos(angle), sine = std::sin(angle);
    out[0] = static_cast<T>(direction == Direction::forward ? 0.5 * cosine : cosine);
    out[1] = static_cast<T>(direction == Direction::forward ? 0.5 - 0.5 * sine : -sine);
  }
}
// exp(-pi i n^2 / M), and its conjugate, mirrored, over the convolution's length.
template <class T> void fillChirp(std::size_t points, std::size_t length, T* chirp, T* spectrum) {
  const double step = turn / (2.0 * static_cast<double>(points));
  std::memset(spectrum, 0, length * 2 * sizeof(T));
  for (std::size_t n = 0, square = 0; n < points; ++n) {  // n^2 modulo 2 M
    const double angle = step * static_cast<double>(square);
    const T re = static_cast<T>(std::cos(angle)), im = static_cast<T>(-std::sin(angle));
    chirp[2 * n] = re;
    chirp[2 * n + 1] = im;
    for (const std::size_t at : {n, (length - n) % length}) {
      spectrum[2 * at] = re;
      spectrum[2 * at + 1] = -im;
    }
    square += 2 * n + 1;
    if (square >= 2 * points) square -= 2 * points;
  }
}

template <class Fft, class T> ZorStatus buildFft(Layout& block, Spec<T>& spec, Zor32s len, Zor8u* initBuffer) {
  typename Fft::Spec* fft = nullptr;
  const auto bytes = static_cast<std::size_t>(fftSizes<Fft>(len).spec);
  const ZorStatus status =
      Fft::init(&fft, dft::orderOf(len), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, block.take<Zor8u>(bytes), initBuffer);
  spec.fft = fft;
  return status;
}
template <class T>
ZorStatus buildChirp(Layout& block, Spec<T>& spec, Direction direction, const T* tables, Zor8u* initBuffer) {
  using Fft = FftOf<ComplexOf<T>>;
  const auto m = static_cast<std::size_t>(pointsOf(spec.len)), l = static_cast<std::size_t>(spec.convolutionLength);
  T *const chirp = const_cast<T*>(tables), *const spectrum = chirp + 2 * m;
  spec.chirp = chirp;
  spec.chirpSpectrum = spectrum;
  fillChirp(m, l, chirp, spectrum);
  if (spec.len % 2 == 0) {
    spec.unpack = spectrum + 2 * l;
    fillUnpack(spec.len, direction, spectrum + 2 * l);
  }
  ZorStatus status = buildFft<Fft>(block, spec, spec.convolutionLength, initBuffer);
  if (status != zorStatusOk) return status;
  auto* const both = reinterpret_cast<ComplexOf<T>*>(spectrum);
  status = Fft::forward(both, both, static_cast<const typename Fft::Spec*>(spec.fft), initBuffer);
  return status == zorStatusOk
             ? by_type::multiplyBy(1 / static_cast<T>(spec.convolutionLength), both, spec.convolutionLength)
             : status;
}
template <class T> ZorStatus build(Layout& block, Spec<T>& spec, Direction direction, Zor8u* initBuffer) {
  const double n = spec.len;
  spec.firstScale = static_cast<T>(1 / std::sqrt(n));
  spec.otherScale = static_cast<T>(1.4142135623730951 / std::sqrt(n));
  spec.method = methodOf<T>(spec.len);
  if (spec.method == Method::kernel) return zorStatusOk;
  if (spec.method == Method::direct) {
    T* const cosines = block.take<T>(4 * static_cast<std::size_t>(spec.len));
    fillCosines(spec.len, cosines);
    spec.cosines = cosines;
    return zorStatusOk;
  }
  // One piece for all tables: the fixed size has no room for a line's rest behind each.
  const auto terms = 2 * static_cast<std::size_t>(spec.len / 2 + spec.len % 2);
  spec.convolutionLength = spec.method == Method::chirp ? convolutionOf(spec.len) : 0;
  const std::size_t chirps =
      spec.method == Method::chirp
          ? 2 * static_cast<std::size_t>(pointsOf(spec.len) + spec.convolutionLength + spec.len / 4)
          : 0;
  T* const factors = block.take<T>(terms + chirps);
  fillFactors(spec.len, direction, factors);
  spec.factors = factors;
  return spec.method == Method::fft ? buildFft<FftOf<T>>(block, spec, spec.len, initBuffer)
                                    : buildChirp(block, spec, direction, factors + terms, initBuffer);
}

// ---- The operations -----------------------------------------------------------------------------

template <class S> ZorStatus init(S** specOut, Zor32s len, Zor32s hint, Zor8u* specBlock, Zor8u* initBuffer) {
  using T = typename S::Element;
  return check()
      .size(len)
      .pointers(specOut, specBlock)
      .require(isLength<T>(len, Asks::init), zorStatusBadSize)
      .then([&]() -> ZorStatus {
        const Sizes sizes = sizesOf<T>(len);
        if (std::max({sizes.spec, sizes.init, sizes.work + 64}) > INT32_MAX) return zorStatusNoMemory;
        if (sizes.init > 0 && initBuffer == nullptr) return zorStatusNullPointer;
        static_assert(sizeof(S) <= (sizeof(T) == 4 ? 96 : 104));
        S& spec = *new (alignUp(specBlock, Scratch::alignment)) S{};
        Layout block(Scratch::alignment, specBlock);
        block.take<S>(1);
        spec.len = len;
        spec.hint = hint;
        spec.workSize = static_cast<Zor32s>(sizes.work);
        const ZorStatus status = build(block, spec, S::direction, initBuffer);
        if (status != zorStatusOk) return status;
        spec.tag = S::kind;
        *specOut = &spec;
        return zorStatusOk;
      });
}

template <class S> ZorStatus initAlloc(S** specOut, Zor32s len, Zor32s hint) {
  using T = typename S::Element;
  return check().size(len).pointers(specOut).then([&]() -> ZorStatus {
    Zor32s specSize = 0, initSize = 0, workSize = 0;
    if (const ZorStatus status = getSize<T>(len, &specSize, &initSize, &workSize); status != zorStatusOk) return status;
    return initAllocated(specOut, static_cast<std::size_t>(specSize), [&](Zor8u* block, S** spec) -> ZorStatus {
      const Scratch initBuffer(static_cast<std::size_t>(initSize));
      return initBuffer ? init(spec, len, hint, block, initBuffer.data()) : zorStatusNoMemory;
    });
  });
}

// A specification in a caller's block is only invalidated.
template <class S> ZorStatus release(S* spec) {
  return check().pointers(spec).state(spec, S::kind).then([&] {
    spec->tag = 0;
    releaseOwned(spec);
  });
}
template <class S> ZorStatus getBufSize(const S* spec, Zor32s* size) {
  return check().pointers(spec, size).state(spec, S::kind).then([&] {
    *size = spec->workSize > 0 ? spec->workSize + 64 : 0;
  });
}

}  // namespace

// clang-format off
#define GET_SIZE(name, T) ZorStatus name(Zor32s len, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<T>(len, specSize, initSize, workSize); }
#define INIT(name, Spec) ZorStatus name(Spec** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, len, hint, specBlock, initBuffer); }
#define INIT_ALLOC(name, Spec) ZorStatus name(Spec** specOut, Zor32s len, ZorHintAlgorithm hint) { return initAlloc(specOut, len, hint); }
#define FREE(name, Spec) ZorStatus name(Spec* spec) { return release(spec); }
#define GET_BUF_SIZE(name, Spec) ZorStatus name(const Spec* spec, Zor32s* size) { return getBufSize(spec, size); }
GET_SIZE(zorsDCTFwdGetSize_32f, Zor32f)
GET_SIZE(zorsDCTFwdGetSize_64f, Zor64f)
GET_SIZE(zorsDCTInvGetSize_32f, Zor32f)
GET_SIZE(zorsDCTInvGetSize_64f, Zor64f)
INIT(zorsDCTFwdInit_32f, ZorsDCTFwdSpec_32f)
INIT(zorsDCTFwdInit_64f, ZorsDCTFwdSpec_64f)
INIT(zorsDCTInvInit_32f, ZorsDCTInvSpec_32f)
INIT(zorsDCTInvInit_64f, ZorsDCTInvSpec_64f)
INIT_ALLOC(zorsDCTFwdInitAlloc_32f, ZorsDCTFwdSpec_32f)
INIT_ALLOC(zorsDCTFwdInitAlloc_64f, ZorsDCTFwdSpec_64f)
INIT_ALLOC(zorsDCTInvInitAlloc_32f, ZorsDCTInvSpec_32f)
INIT_ALLOC(zorsDCTInvInitAlloc_64f, ZorsDCTInvSpec_64f)
FREE(zorsDCTFwdFree_32f, ZorsDCTFwdSpec_32f)
FREE(zorsDCTFwdFree_64f, ZorsDCTFwdSpec_64f)
FREE(zorsDCTInvFree_32f, ZorsDCTInvSpec_32f)
FREE(zorsDCTInvFree_64f, ZorsDCTInvSpec_64f)
GET_BUF_SIZE(zorsDCTFwdGetBufSize_32f, ZorsDCTFwdSpec_32f)
GET_BUF_SIZE(zorsDCTFwdGetBufSize_64f, ZorsDCTFwdSpec_64f)
GET_BUF_SIZE(zorsDCTInvGetBufSize_32f, ZorsDCTInvSpec_32f)
GET_BUF_SIZE(zorsDCTInvGetBufSize_64f, ZorsDCTInvSpec_64f)
#undef GET_SIZE
#undef INIT
#undef INIT_ALLOC
#undef FREE
#undef GET_BUF_SIZE
// clang-format on

}  // namespace zors
