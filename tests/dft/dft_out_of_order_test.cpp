// Out-of-order transforms: the order of reversed digits, natural order elsewhere, and back.
#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "kit/services.h"

namespace {

using namespace kit;

template <class C> struct Exports;
template <> struct Exports<Zor32fc> {
  using Spec = ZorsDFTOutOrdSpec_C_32fc;
  using Ordered = ZorsDFTSpec_C_32fc;
  static constexpr auto init = zorsDFTOutOrdInitAlloc_C_32fc;
  static constexpr auto free = zorsDFTOutOrdFree_C_32fc;
  static constexpr auto size = zorsDFTOutOrdGetBufSize_C_32fc;
  static constexpr auto forward = zorsDFTOutOrdFwd_CToC_32fc, inverse = zorsDFTOutOrdInv_CToC_32fc;
  static constexpr auto initOrdered = zorsDFTInitAlloc_C_32fc;
  static constexpr auto freeOrdered = zorsDFTFree_C_32fc;
  static constexpr auto ordered = zorsDFTFwd_CToC_32fc;
  static constexpr Zor32u tag = 0x434D414A;
  static constexpr double epsilon = 0x1p-24;
};
template <> struct Exports<Zor64fc> {
  using Spec = ZorsDFTOutOrdSpec_C_64fc;
  using Ordered = ZorsDFTSpec_C_64fc;
  static constexpr auto init = zorsDFTOutOrdInitAlloc_C_64fc;
  static constexpr auto free = zorsDFTOutOrdFree_C_64fc;
  static constexpr auto size = zorsDFTOutOrdGetBufSize_C_64fc;
  static constexpr auto forward = zorsDFTOutOrdFwd_CToC_64fc, inverse = zorsDFTOutOrdInv_CToC_64fc;
  static constexpr auto initOrdered = zorsDFTInitAlloc_C_64fc;
  static constexpr auto freeOrdered = zorsDFTFree_C_64fc;
  static constexpr auto ordered = zorsDFTFwd_CToC_64fc;
  static constexpr Zor32u tag = 0x434D414B;
  static constexpr double epsilon = 0x1p-53;
};

struct Order {
  std::size_t n;
  std::vector<std::size_t> factors;  // empty: natural order
  std::size_t generic = 0;           // the largest prime above 13
};
const Order orders[] = {{1, {}},
                        {16, {}},
                        {17, {}},
                        {1998, {}},
                        {1999, {}},
                        {2048, {}},
                        {2000, {4, 4, 5, 5, 5}},
                        {2001, {3, 23, 29}, 29},
                        {2002, {2, 7, 11, 13}},
                        {2009, {7, 7, 41}, 41},
                        {2016, {2, 4, 4, 3, 3, 7}},
                        {2120, {}},
                        {2187, {3, 3, 3, 3, 3, 3, 3}},
                        {4800, {4, 4, 4, 3, 5, 5}},
                        {9282, {2, 3, 7, 13, 17}, 17},
                        {30000, {4, 4, 3, 5, 5, 5, 5}}};

// Where the term k stands.
std::size_t placeOf(std::size_t k, const Order& order) {
  if (order.factors.empty()) return k;
  std::size_t place = 0, block = order.n;
  for (auto f = order.factors.rbegin(); f != order.factors.rend(); ++f) {
    block /= *f;
    place += k % *f * block;
    k /= *f;
  }
  return place;
}

template <class C> void checkOrder(const Order& order) {
  using E = Exports<C>;
  using T = decltype(C::re);
  Random random(order.n);
  const std::size_t n = order.n;
  const auto x = signal<C>(n, random);
  typename E::Spec* spec = nullptr;
  typename E::Ordered* ordered = nullptr;
  ASSERT_EQ(E::init(&spec, Zor32s(n), ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone), zorStatusOk);
  ASSERT_EQ(E::initOrdered(&ordered, Zor32s(n), ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone), zorStatusOk);
  Zor32s size = -1;
  ASSERT_EQ(E::size(spec, &size), zorStatusOk);
  if (!order.factors.empty()) {
    EXPECT_EQ(size, order.generic == 0 ? 0 : Zor32s(sizeof(C) * order.generic + 128)) << n;
  }
  const Guarded<Zor8u> work(static_cast<std::size_t>(size), Edge::end, 1);
  const Guarded<C> src(x, Edge::end, 8), dst(n, Edge::begin, 3), back(n, Edge::end, 5);
  std::vector<C> wanted(n);
  ASSERT_EQ(E::ordered(x.data(), wanted.data(), ordered, nullptr), zorStatusOk);
  ASSERT_EQ(E::forward(src.data(), dst.data(), spec, work.data()), zorStatusOk);
  double errors = 0, squares = 0;
  for (std::size_t k = 0; k < n; ++k) {
    const C found = dst[placeOf(k, order)];
    errors += std::pow(double(found.re - wanted[k].re), 2) + std::pow(double(found.im - wanted[k].im), 2);
    squares += std::pow(double(wanted[k].re), 2) + std::pow(double(wanted[k].im), 2);
  }
  ASSERT_LE(std::sqrt(errors), E::epsilon * 24 * std::sqrt(squares)) << n;
  for (std::size_t k = 0; k < n && order.factors.empty() && n != 2120; ++k)
    ASSERT_TRUE(sameBits(dst[k], wanted[k])) << n;
  ASSERT_EQ(E::inverse(dst.data(), back.data(), spec, nullptr), zorStatusOk);
  for (std::size_t i = 0; i < n; ++i) {
    ASSERT_NEAR(back[i].re, x[i].re, E::epsilon * 64) << n << " at " << i;
    ASSERT_NEAR(back[i].im, x[i].im, E::epsilon * 64) << n << " at " << i;
  }
  const auto spectrum = dst.values();
  ASSERT_EQ(E::inverse(dst.data(), dst.data(), spec, work.data()), zorStatusOk);
  for (std::size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(dst[i], back[i])) << n << ", in place";
  ASSERT_EQ(E::forward(src.data(), src.data(), spec, nullptr), zorStatusOk);
  for (std::size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(src[i], spectrum[i])) << n << ", in place";
  ASSERT_TRUE(src.intact() && dst.intact() && back.intact() && work.intact());
  static_cast<void>(T{});
  EXPECT_EQ(E::free(spec), zorStatusOk);
  E::freeOrdered(ordered);
}
TEST(DFTOutOfOrder, DigitsAreReversedFromTwoThousandPointsOnAndComeBack) {
  for (const auto& order : orders) {
    checkOrder<Zor32fc>(order);
    checkOrder<Zor64fc>(order);
  }
}
template <class C> void checkScale() {
  using E = Exports<C>;
  Random random(81);
  const auto x = signal<C>(2016, random);
  typename E::Spec *plain = nullptr, *scaled = nullptr;
  ASSERT_EQ(E::init(&plain, 2016, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone), zorStatusOk);
  ASSERT_EQ(E::init(&scaled, 2016, ZOR_FFT_DIVIDE_BOTH_ROOT, zorAlgHintNone), zorStatusOk);
  using T = decltype(C::re);
  const T factor = static_cast<T>(1 / std::sqrt(2016.0));
  for (auto f : {E::forward, E::inverse}) {
    std::vector<C> a(2016), b(2016);
    f(x.data(), a.data(), plain, nullptr);
    f(x.data(), b.data(), scaled, nullptr);
    for (std::size_t i = 0; i < a.size(); ++i) {
      ASSERT_EQ(b[i].re, a[i].re * factor);
      ASSERT_EQ(b[i].im, a[i].im * factor);
    }
  }
  E::free(plain);
  E::free(scaled);
}
TEST(DFTOutOfOrder, ScaleIsAppliedOnceAtTheEnd) {
  checkScale<Zor32fc>();
  checkScale<Zor64fc>();
}
template <class C> void checkFaults() {
  using E = Exports<C>;
  using S = typename E::Spec;
  S* const untouched = reinterpret_cast<S*>(0x40);
  S* spec = untouched;
  EXPECT_EQ(E::init(nullptr, 0, 3, zorAlgHintNone), zorStatusNullPointer);
  EXPECT_EQ(E::init(&spec, 0, 3, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(E::init(&spec, 0x8000001, 3, zorAlgHintNone), zorStatusBadFlag);
  EXPECT_EQ(E::init(&spec, 0x8000001, 1, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(E::init(&spec, INT32_MAX, 1, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(E::init(&spec, 1 << 30, 1, zorAlgHintNone), zorStatusBadOrder);
  for (Zor32s len : {1, 17, 53, 2048, 2001, 2016, 2120})
    failEachAllocation(
        [&] {
          spec = untouched;
          const ZorStatus status = E::init(&spec, len, 1, zorAlgHintNone);
          if (status == zorStatusOk) {
            EXPECT_EQ(E::free(spec), zorStatusOk);
          } else {
            EXPECT_EQ(spec, untouched);
          }
          EXPECT_EQ(services().live, 0);
          return status;
        },
        [&](int n, ZorStatus status) { EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory) << len; });
  for (Zor32u tag : {13u, 16u, E::tag ^ 1u}) {
    alignas(64) Zor32u foreign[192] = {tag};
    const auto* foreignSpec = reinterpret_cast<const S*>(foreign);
    C x[2] = {}, y[2] = {{3, 3}, {3, 3}};
    Zor32s size = -7;
    EXPECT_EQ(E::free(reinterpret_cast<S*>(foreign)), zorStatusBadContext);
    EXPECT_EQ(E::size(foreignSpec, nullptr), zorStatusNullPointer);
    EXPECT_EQ(E::size(foreignSpec, &size), zorStatusBadContext);
    EXPECT_EQ(size, -7);
    for (auto f : {E::forward, E::inverse}) {
      EXPECT_EQ(f(nullptr, nullptr, nullptr, nullptr), zorStatusNullPointer);
      EXPECT_EQ(f(nullptr, nullptr, foreignSpec, nullptr), zorStatusBadContext);
      EXPECT_EQ(f(x, y, foreignSpec, nullptr), zorStatusBadContext);
    }
    EXPECT_EQ(y[0].re, 3);
  }
  EXPECT_EQ(E::free(nullptr), zorStatusNullPointer);
  for (Zor32s len : {16, 2016, 2001}) {
    ASSERT_EQ(E::init(&spec, len, 1, zorAlgHintNone), zorStatusOk);
    EXPECT_EQ(*reinterpret_cast<Zor32u*>(spec), E::tag);
    std::vector<C> x(std::size_t(len), C{1, 1}), y(std::size_t(len), C{2, 2});
    ServicesScope scope;
    scope->failAt = 0;
    for (auto f : {E::forward, E::inverse}) {
      EXPECT_EQ(f(nullptr, y.data(), spec, nullptr), zorStatusNullPointer);
      EXPECT_EQ(f(x.data(), nullptr, spec, nullptr), zorStatusNullPointer);
    }
    EXPECT_EQ(E::forward(x.data(), y.data(), spec, nullptr), len == 2001 ? zorStatusNoMemory : zorStatusOk);
    if (len == 2001) {
      EXPECT_EQ(y[0].re, 2);
    }
    if (len != 2001) {
      EXPECT_EQ(scope->allocations, 0);
    }
    scope->failAt = -1;
    EXPECT_EQ(E::free(spec), zorStatusOk);
  }
}
TEST(DFTOutOfOrder, EveryFaultIsToldAndNothingLeaks) {
  checkFaults<Zor32fc>();
  checkFaults<Zor64fc>();
}

}  // namespace
