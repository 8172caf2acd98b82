// The transforms against the scalar model, bit for bit: every order of every path, both directions, all shapes and
// places.
#include "fft/fft_kinds.h"
#include "zors/fft.h"

namespace {

using namespace kinds;

template <class T> using Pair = std::conditional_t<sizeof(T) == 4, Zor32fc, Zor64fc>;

template <class T> struct Transforms;
template <> struct Transforms<Zor32f> {
  static constexpr auto& kind = kinds::c32fc;
  static constexpr auto& splitKind = kinds::c32f;
  static constexpr auto& realKind = kinds::r32f;
  static constexpr auto complex = std::array{zorsFFTFwd_CToC_32fc, zorsFFTInv_CToC_32fc};
  static constexpr auto complexI = std::array{zorsFFTFwd_CToC_32fc_I, zorsFFTInv_CToC_32fc_I};
  static constexpr auto split = std::array{zorsFFTFwd_CToC_32f, zorsFFTInv_CToC_32f};
  static constexpr auto splitI = std::array{zorsFFTFwd_CToC_32f_I, zorsFFTInv_CToC_32f_I};
  static constexpr auto real = std::array{zorsFFTFwd_RToPerm_32f, zorsFFTInv_PermToR_32f, zorsFFTFwd_RToPack_32f,
                                          zorsFFTInv_PackToR_32f, zorsFFTFwd_RToCCS_32f,  zorsFFTInv_CCSToR_32f};
  static constexpr auto realI = std::array{zorsFFTFwd_RToPerm_32f_I, zorsFFTInv_PermToR_32f_I, zorsFFTFwd_RToPack_32f_I,
                                           zorsFFTInv_PackToR_32f_I, zorsFFTFwd_RToCCS_32f_I,  zorsFFTInv_CCSToR_32f_I};
};
template <> struct Transforms<Zor64f> {
  static constexpr auto& kind = kinds::c64fc;
  static constexpr auto& splitKind = kinds::c64f;
  static constexpr auto& realKind = kinds::r64f;
  static constexpr auto complex = std::array{zorsFFTFwd_CToC_64fc, zorsFFTInv_CToC_64fc};
  static constexpr auto complexI = std::array{zorsFFTFwd_CToC_64fc_I, zorsFFTInv_CToC_64fc_I};
  static constexpr auto split = std::array{zorsFFTFwd_CToC_64f, zorsFFTInv_CToC_64f};
  static constexpr auto splitI = std::array{zorsFFTFwd_CToC_64f_I, zorsFFTInv_CToC_64f_I};
  static constexpr auto real = std::array{zorsFFTFwd_RToPerm_64f, zorsFFTInv_PermToR_64f, zorsFFTFwd_RToPack_64f,
                                          zorsFFTInv_PackToR_64f, zorsFFTFwd_RToCCS_64f,  zorsFFTInv_CCSToR_64f};
  static constexpr auto realI = std::array{zorsFFTFwd_RToPerm_64f_I, zorsFFTInv_PermToR_64f_I, zorsFFTFwd_RToPack_64f_I,
                                           zorsFFTInv_PackToR_64f_I, zorsFFTFwd_RToCCS_64f_I,  zorsFFTInv_CCSToR_64f_I};
};

// How many elements the arrays of a case lie off a vector boundary.
std::vector<std::size_t> offsets(int order) {
  return order <= 9    ? std::vector<std::size_t>{0, 1, 2, 3, 5}
         : order <= 14 ? std::vector<std::size_t>{0, 1}
                       : std::vector<std::size_t>{0};
}

template <class T> void complexCase(int order, int flag, bool inverse, const model::Twiddles<T>& twiddles) {
  using X = Transforms<T>;
  const std::size_t n = std::size_t{1} << order;
  kit::Random random(static_cast<unsigned>(order * 8 + flag));
  const auto x = kit::signal<Pair<T>>(n, random);
  model::Signal<T> points(n);
  for (std::size_t i = 0; i < n; ++i) points[i] = {x[i].re, x[i].im};
  const auto y =
      model::complexTransform(points, order, twiddles, inverse, scales(flag, inverse), scale<T>(flag, order));
  std::vector<Pair<T>> wanted(n);
  std::vector<T> re(n), im(n), wantedRe(n), wantedIm(n);
  for (std::size_t i = 0; i < n; ++i) {
    wanted[i] = {y[i].re, y[i].im};
    re[i] = x[i].re, im[i] = x[i].im, wantedRe[i] = y[i].re, wantedIm[i] = y[i].im;
  }
  const std::string what = std::string(X::kind.name) + " order " + std::to_string(order) + " flag " +
                           std::to_string(flag) + (inverse ? " inverse" : " forward");
  for (std::size_t off : offsets(order)) {
    const Built built(X::kind, order, flag, off * 4);
    const Built splitBuilt(X::splitKind, order, flag, off * 4);
    const kit::Guarded<Pair<T>> src(x, kit::Edge::end, off * sizeof(T)), dst(n, kit::Edge::end, off * sizeof(T));
    for (Zor8u* buffer : {built.work(), static_cast<Zor8u*>(nullptr)}) {
      ASSERT_EQ(X::complex[inverse](src.data(), dst.data(), built.spec(), buffer), zorStatusOk);
      ASSERT_EQ(kit::firstDifference<Pair<T>>(dst.span(), wanted), "") << what << " off " << off;
      ASSERT_EQ(kit::firstDifference<Pair<T>>(src.span(), x), "") << what << ": the source changed";
    }
    ASSERT_EQ(X::complex[inverse](src.data(), src.data(), built.spec(), built.work()), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Pair<T>>(src.span(), wanted), "")
        << what << ", source and destination equal, off " << off;
    const kit::Guarded<Pair<T>> both(x, kit::Edge::begin, off * sizeof(T));
    ASSERT_EQ(X::complexI[inverse](both.data(), built.spec(), nullptr), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Pair<T>>(both.span(), wanted), "") << what << " in place, off " << off;

    const kit::Guarded<T> srcRe(re, kit::Edge::end, off * sizeof(T)), srcIm(im, kit::Edge::end),
        dstRe(n, kit::Edge::begin), dstIm(n, kit::Edge::begin, off * sizeof(T));
    ASSERT_EQ(
        X::split[inverse](srcRe.data(), srcIm.data(), dstRe.data(), dstIm.data(), splitBuilt.spec(), splitBuilt.work()),
        zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(dstRe.span(), wantedRe), "") << what << " split, off " << off;
    ASSERT_EQ(kit::firstDifference<T>(dstIm.span(), wantedIm), "") << what << " split, off " << off;
    ASSERT_EQ(X::splitI[inverse](srcRe.data(), srcIm.data(), splitBuilt.spec(), splitBuilt.work()), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(srcRe.span(), wantedRe), "") << what << " split in place, off " << off;
    ASSERT_EQ(kit::firstDifference<T>(srcIm.span(), wantedIm), "") << what << " split in place, off " << off;
    ASSERT_TRUE(src.intact() && dst.intact() && both.intact() && built.intact()) << what << ": wrote outside";
    ASSERT_TRUE(srcRe.intact() && srcIm.intact() && dstRe.intact() && dstIm.intact() && splitBuilt.intact())
        << what << ": wrote outside";
  }
}

template <class T> void realCase(int order, int flag, const model::Twiddles<T>& twiddles) {
  using X = Transforms<T>;
  const std::size_t n = std::size_t{1} << order;
  kit::Random random(static_cast<unsigned>(order * 8 + flag));
  const auto x = kit::signal<T>(n, random);
  const auto spectrum = model::realForward(x, order, twiddles, scales(flag, false), scale<T>(flag, order));
  const auto values = model::realInverse(x, order, twiddles, scales(flag, true), scale<T>(flag, order));
  const std::string what =
      std::string(X::realKind.name) + " order " + std::to_string(order) + " flag " + std::to_string(flag);
  for (std::size_t off : offsets(order)) {
    const Built built(X::realKind, order, flag, off * 4);
    for (Format format : {perm, pack, ccs})
      for (bool inverse : {false, true}) {
        const auto input = inverse ? packed(x, format) : x, wanted = inverse ? values : packed(spectrum, format);
        const std::string where = what + " format " + std::to_string(format) + (inverse ? " inverse" : " forward") +
                                  " off " + std::to_string(off);
        const auto at = static_cast<std::size_t>(2 * format + inverse);
        const std::size_t room = std::max(input.size(), wanted.size());
        const kit::Guarded<T> src(input, kit::Edge::end, off * sizeof(T)),
            dst(std::max(wanted.size(), inverse ? n : wanted.size()), kit::Edge::end, off * sizeof(T));
        ASSERT_EQ(X::real[at](src.data(), dst.data(), built.spec(), built.work()), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<T>(dst.span(), wanted), "") << where;
        ASSERT_EQ(kit::firstDifference<T>(src.span(), input), "") << where << ": the source changed";
        const kit::Guarded<T> both(room, kit::Edge::begin, off * sizeof(T));
        std::copy(input.begin(), input.end(), both.data());
        ASSERT_EQ(X::realI[at](both.data(), built.spec(), nullptr), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<T>(both.span().first(wanted.size()), wanted), "") << where << " in place";
        ASSERT_TRUE(src.intact() && dst.intact() && both.intact() && built.intact()) << where << ": wrote outside";
      }
  }
}

template <class T> void everyComplexOrder(int last) {
  for (int order = 0; order <= last; ++order) {
    const model::Twiddles<T> twiddles(order < 6 ? 6 : order);
    for (int flag : kinds::flags)
      for (bool inverse : {false, true}) {
        if (order > 12 && scales(flag, inverse) == (order % 2 == 0)) continue;  // long ones: the flags by turns
        complexCase<T>(order, flag, inverse, twiddles);
        if (testing::Test::HasFatalFailure()) return;
      }
  }
}
template <class T> void everyRealOrder(int last) {
  for (int order = 0; order <= last; ++order) {
    const model::Twiddles<T> twiddles(order < 6 ? 6 : order);
    for (int flag : kinds::flags) {
      if (order > 12 && (flag == ZOR_FFT_DIVIDE_NONE) == (order % 2 == 0)) continue;
      realCase<T>(order, flag, twiddles);
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

// The longer tiles: radices 8, 8, 4.
TEST(FFTBits, TheFirstOrdersOfTheLongTilesEqualTheModel) {
  complexCase<Zor32f>(23, ZOR_FFT_DIVIDE_FORWARD, false, model::Twiddles<Zor32f>(23));
  complexCase<Zor64f>(22, ZOR_FFT_DIVIDE_BOTH_ROOT, true, model::Twiddles<Zor64f>(22));
}
TEST(FFTBits, ComplexTransformsOf32BitsEqualTheModel) { everyComplexOrder<Zor32f>(20); }
TEST(FFTBits, ComplexTransformsOf64BitsEqualTheModel) { everyComplexOrder<Zor64f>(19); }
TEST(FFTBits, RealTransformsOf32BitsEqualTheModel) { everyRealOrder<Zor32f>(20); }
TEST(FFTBits, RealTransformsOf64BitsEqualTheModel) { everyRealOrder<Zor64f>(19); }

// Where the direction tells -(c * d) from (-c) * d. Tables are made under rounding to nearest.
template <class T> void directedCase(int order) {
  using X = Transforms<T>;
  const model::Twiddles<T> twiddles(order < 6 ? 6 : order);
  const Built built(X::realKind, order, ZOR_FFT_DIVIDE_NONE, 0);
  kit::Random random(9);
  for (unsigned direction : kit::allDirections) {
    const auto x = kit::signal<T>(std::size_t{1} << order, random);
    std::vector<T> got(x.size()), wanted;
    {
      const kit::Direction scope(direction);
      wanted = model::realForward(x, order, twiddles, false, T(1));
      ASSERT_EQ(X::real[0](x.data(), got.data(), built.spec(), built.work()), zorStatusOk);
    }
    ASSERT_EQ(kit::firstDifference<T>(got, wanted), "") << "order " << order << " direction " << direction;
  }
}
TEST(FFTBits, RealTransformsRoundInTheCallersDirection) {
  for (int order : {5, 7}) {
    directedCase<Zor32f>(order);
    directedCase<Zor64f>(order);
  }
  directedCase<Zor32f>(19);
  directedCase<Zor64f>(17);
}

}  // namespace
