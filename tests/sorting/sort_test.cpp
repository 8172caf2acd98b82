// zorsSort*: sorts, index sorts, radix sorts.
#include <algorithm>
#include <numeric>

#include "zors/sorting.h"

namespace {

using kit::Edge;

// ---- Models -------------------------------------------------------------------------------------

// The complete order of elements, as an integer: floats by sign and magnitude.
template <class T> Zor64s completeKey(T x) {
  if constexpr (std::is_floating_point_v<T>) {
    const auto bits = std::bit_cast<kit::Unsigned<T>>(x);
    const auto magnitude = Zor64s(bits & std::numeric_limits<kit::Unsigned<T>>::max() >> 1);
    return std::signbit(x) ? -1 - magnitude : magnitude;
  } else {
    return x;
  }
}
template <class T> bool before(T a, T b, bool descending) {
  return descending ? completeKey(b) < completeKey(a) : completeKey(a) < completeKey(b);
}

// Up to 9 elements, to the letter: the first strictly greatest goes to the end.
template <class T> void selectionModel(std::vector<T>& x, std::vector<Zor32s>& index, bool descending) {
  for (std::size_t n = x.size(); n > 1; --n) {
    std::size_t best = 0;
    for (std::size_t i = 0; i < n; ++i)
      if (descending ? x[i] < x[best] : x[i] > x[best]) best = i;
    std::swap(x[best], x[n - 1]);
    std::swap(index[best], index[n - 1]);
  }
}

// ---- Members ------------------------------------------------------------------------------------

template <class T> struct Sorts {
  const char* name;
  bool descending;
  ZorStatus (*sort)(T*, Zor32s);
  ZorStatus (*sortIndex)(T*, Zor32s*, Zor32s);
};
template <class T> struct RadixSorts {
  const char* name;
  bool descending;
  ZorStatus (*sort)(T*, T*, Zor32s);
  ZorStatus (*sortIndex)(const T*, Zor32s, Zor32s*, Zor32s*, Zor32s);
};

// Calls f with both sorts of each type.
template <class F> void forEachSort(F f) {
  f(Sorts<Zor8u>{"zorsSortAscend_8u_I", false, zorsSortAscend_8u_I, zorsSortIndexAscend_8u_I});
  f(Sorts<Zor8u>{"zorsSortDescend_8u_I", true, zorsSortDescend_8u_I, zorsSortIndexDescend_8u_I});
  f(Sorts<Zor16s>{"zorsSortAscend_16s_I", false, zorsSortAscend_16s_I, zorsSortIndexAscend_16s_I});
  f(Sorts<Zor16s>{"zorsSortDescend_16s_I", true, zorsSortDescend_16s_I, zorsSortIndexDescend_16s_I});
  f(Sorts<Zor16u>{"zorsSortAscend_16u_I", false, zorsSortAscend_16u_I, zorsSortIndexAscend_16u_I});
  f(Sorts<Zor16u>{"zorsSortDescend_16u_I", true, zorsSortDescend_16u_I, zorsSortIndexDescend_16u_I});
  f(Sorts<Zor32s>{"zorsSortAscend_32s_I", false, zorsSortAscend_32s_I, zorsSortIndexAscend_32s_I});
  f(Sorts<Zor32s>{"zorsSortDescend_32s_I", true, zorsSortDescend_32s_I, zorsSortIndexDescend_32s_I});
  f(Sorts<Zor32f>{"zorsSortAscend_32f_I", false, zorsSortAscend_32f_I, zorsSortIndexAscend_32f_I});
  f(Sorts<Zor32f>{"zorsSortDescend_32f_I", true, zorsSortDescend_32f_I, zorsSortIndexDescend_32f_I});
  f(Sorts<Zor64f>{"zorsSortAscend_64f_I", false, zorsSortAscend_64f_I, zorsSortIndexAscend_64f_I});
  f(Sorts<Zor64f>{"zorsSortDescend_64f_I", true, zorsSortDescend_64f_I, zorsSortIndexDescend_64f_I});
}
template <class F> void forEachRadixSort(F f) {
  f(RadixSorts<Zor8u>{"zorsSortRadixAscend_8u_I", false, zorsSortRadixAscend_8u_I, zorsSortRadixIndexAscend_8u});
  f(RadixSorts<Zor8u>{"zorsSortRadixDescend_8u_I", true, zorsSortRadixDescend_8u_I, zorsSortRadixIndexDescend_8u});
  f(RadixSorts<Zor16s>{"zorsSortRadixAscend_16s_I", false, zorsSortRadixAscend_16s_I, zorsSortRadixIndexAscend_16s});
  f(RadixSorts<Zor16s>{"zorsSortRadixDescend_16s_I", true, zorsSortRadixDescend_16s_I, zorsSortRadixIndexDescend_16s});
  f(RadixSorts<Zor16u>{"zorsSortRadixAscend_16u_I", false, zorsSortRadixAscend_16u_I, zorsSortRadixIndexAscend_16u});
  f(RadixSorts<Zor16u>{"zorsSortRadixDescend_16u_I", true, zorsSortRadixDescend_16u_I, zorsSortRadixIndexDescend_16u});
  f(RadixSorts<Zor32s>{"zorsSortRadixAscend_32s_I", false, zorsSortRadixAscend_32s_I, zorsSortRadixIndexAscend_32s});
  f(RadixSorts<Zor32s>{"zorsSortRadixDescend_32s_I", true, zorsSortRadixDescend_32s_I, zorsSortRadixIndexDescend_32s});
  f(RadixSorts<Zor32u>{"zorsSortRadixAscend_32u_I", false, zorsSortRadixAscend_32u_I, zorsSortRadixIndexAscend_32u});
  f(RadixSorts<Zor32u>{"zorsSortRadixDescend_32u_I", true, zorsSortRadixDescend_32u_I, zorsSortRadixIndexDescend_32u});
  f(RadixSorts<Zor32f>{"zorsSortRadixAscend_32f_I", false, zorsSortRadixAscend_32f_I, zorsSortRadixIndexAscend_32f});
  f(RadixSorts<Zor32f>{"zorsSortRadixDescend_32f_I", true, zorsSortRadixDescend_32f_I, zorsSortRadixIndexDescend_32f});
  f(RadixSorts<Zor64f>{"zorsSortRadixAscend_64f_I", false, zorsSortRadixAscend_64f_I, nullptr});
  f(RadixSorts<Zor64f>{"zorsSortRadixDescend_64f_I", true, zorsSortRadixDescend_64f_I, nullptr});
}

// ---- Inputs -------------------------------------------------------------------------------------

enum class Kind { any, few, sorted, reversed, equal, sawTooth, organPipe, twoRuns, outliers, killer };
constexpr Kind allKinds[] = {Kind::any,      Kind::few,       Kind::sorted,  Kind::reversed, Kind::equal,
                             Kind::sawTooth, Kind::organPipe, Kind::twoRuns, Kind::outliers, Kind::killer};

template <class T> std::vector<T> input(Kind kind, std::size_t n, kit::Random& random) {
  std::vector<T> x = kit::anyValues<T>(n, random);
  if (kind == Kind::any) return x;
  for (std::size_t i = 0; i < n; ++i) {
    switch (kind) {
      case Kind::few:
        x[i] = T(random() % 3);
        break;
      case Kind::equal:
        x[i] = std::numeric_limits<T>::max();
        break;
      case Kind::sorted:
        x[i] = T(i);
        break;
      case Kind::reversed:
        x[i] = T(n - i);
        break;
      case Kind::sawTooth:
        x[i] = T(i % 17);
        break;
      case Kind::organPipe:
        x[i] = T(std::min(i, n - i));
        break;
      case Kind::twoRuns:
        x[i] = T(i < n / 2 ? 2 * i : 2 * (i - n / 2) + 1);
        break;
      case Kind::outliers:  // each key far above all before it
        x[i] = T(std::ldexp(1.0, int(i % (8 * sizeof(T) - 1))));
        break;
      default:  // defeats a median of the first, the middle and the last
        x[i] = T(i < n / 2 ? (i % 2 == 0 ? i + 1 : n / 2 + i + i % 2) : 2 * (i - n / 2 + 1));
    }
  }
  return x;
}

// ---- Checks -------------------------------------------------------------------------------------

// Both arrays hold the same elements, bit for bit.
template <class T> std::vector<Zor64s> completeKeys(std::span<const T> x) {
  std::vector<Zor64s> keys(x.size());
  for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = completeKey(x[i]);
  std::sort(keys.begin(), keys.end());
  return keys;
}
template <class T> bool inOrder(std::span<const T> x, bool descending) {
  for (std::size_t i = 1; i < x.size(); ++i)
    if (descending ? x[i] > x[i - 1] : x[i] < x[i - 1]) return false;
  return true;
}

template <class T> void checkSort(const Sorts<T>& member, const std::vector<T>& values, Edge edge, std::size_t away) {
  const auto n = values.size();
  const std::string where = std::string(member.name) + ", len " + std::to_string(n);
  const kit::Guarded<T> x(values, edge, away * sizeof(T)), y(values, edge, away * sizeof(T));
  const kit::Guarded<Zor32s> index(n, edge, away * sizeof(Zor32s));
  ASSERT_EQ(member.sort(x.data(), Zor32s(n)), zorStatusOk) << where;
  ASSERT_EQ(member.sortIndex(y.data(), index.data(), Zor32s(n)), zorStatusOk) << where;
  ASSERT_TRUE(x.intact() && y.intact() && index.intact()) << where << ": wrote outside";
  std::vector<bool> seen(n);
  for (std::size_t k = 0; k < n; ++k) {
    ASSERT_TRUE(index[k] >= 0 && std::size_t(index[k]) < n && !seen[std::size_t(index[k])]) << where << ", at " << k;
    seen[std::size_t(index[k])] = true;
    ASSERT_TRUE(kit::sameBits(y[k], values[std::size_t(index[k])], kit::Nan::samePayload)) << where << ", at " << k;
  }
  if (n <= 9) {
    std::vector<T> wanted = values;
    std::vector<Zor32s> wantedIndex(n);
    std::iota(wantedIndex.begin(), wantedIndex.end(), 0);
    selectionModel(wanted, wantedIndex, member.descending);
    ASSERT_EQ(kit::firstDifference<T>(x.span(), wanted, kit::Nan::samePayload), "") << where;
    ASSERT_EQ(kit::firstDifference<T>(y.span(), wanted, kit::Nan::samePayload), "") << where;
    ASSERT_EQ(index.values(), wantedIndex) << where;
  } else {
    ASSERT_EQ(completeKeys<T>(x.span()), completeKeys<T>(values)) << where << ": elements are lost";
    const bool noNan = std::none_of(values.begin(), values.end(), [](T v) { return v != v; });
    if (noNan) {
      ASSERT_TRUE(inOrder<T>(x.span(), member.descending)) << where;
      ASSERT_TRUE(inOrder<T>(y.span(), member.descending)) << where;
    }
  }
}

template <class T>
void checkRadixSort(const RadixSorts<T>& member, const std::vector<T>& values, Edge edge, std::size_t away,
                    Zor32s stride) {
  const auto n = values.size();
  const std::string where = std::string(member.name) + ", len " + std::to_string(n);
  const kit::Guarded<T> x(values, edge, away * sizeof(T)), tmp(n, edge, away * sizeof(T));
  ASSERT_EQ(member.sort(x.data(), tmp.data(), Zor32s(n)), zorStatusOk) << where;
  std::vector<Zor32s> order(n);
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](Zor32s a, Zor32s b) {
    return before(values[std::size_t(a)], values[std::size_t(b)], member.descending);
  });
  std::vector<T> wanted(n);
  for (std::size_t k = 0; k < n; ++k) wanted[k] = values[std::size_t(order[k])];
  ASSERT_EQ(kit::firstDifference<T>(x.span(), wanted, kit::Nan::samePayload), "") << where;
  ASSERT_TRUE(x.intact() && tmp.intact()) << where << ": wrote outside";
  if (member.sortIndex == nullptr) return;

  // The keys from the first or, with a negative stride, from the last one on; nothing lies behind the farthest key.
  const std::size_t step = std::size_t(std::abs(stride)), bytes = (n - 1) * step + sizeof(T);
  const kit::Guarded<Zor8u> src(bytes, edge, away);
  Zor8u* const first = stride < 0 ? src.data() + (n - 1) * step : src.data();
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t at = n - 1 - i;  // where keys overlap the first one wins
    std::memcpy(first + Zor64s(at) * stride, &values[at], sizeof(T));
  }
  std::vector<T> keys(n);
  for (std::size_t i = 0; i < n; ++i) std::memcpy(&keys[i], first + Zor64s(i) * stride, sizeof(T));
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](Zor32s a, Zor32s b) {
    return before(keys[std::size_t(a)], keys[std::size_t(b)], member.descending);
  });
  const auto untouched = src.values();
  const kit::Guarded<Zor32s> index(n, edge, 4 * away), spare(n, edge, 4 * away);
  ASSERT_EQ(member.sortIndex(reinterpret_cast<const T*>(first), stride, index.data(), spare.data(), Zor32s(n)),
            zorStatusOk);
  ASSERT_EQ(index.values(), order) << where << ", stride " << stride;
  ASSERT_EQ(src.values(), untouched) << where << ", stride " << stride;
  ASSERT_TRUE(index.intact() && spare.intact()) << where << ": wrote outside";
}

// ---- Tests --------------------------------------------------------------------------------------

TEST(Sort, EveryLengthTo300) {
  forEachSort([]<class T>(const Sorts<T>& member) {
    kit::Random random(1);
    for (std::size_t n = 1; n <= 300; ++n)
      for (int round = 0; round < (n < 12 ? 60 : n < 70 ? 6 : 3); ++round) {
        const Kind kind = round % 3 == 1 ? Kind::few : round % 3 == 2 ? allKinds[random() % 10] : Kind::any;
        checkSort(member, input<T>(kind, n, random), round % 2 ? Edge::begin : Edge::end, random() % 8);
        if (testing::Test::HasFatalFailure()) return;
      }
  });
}

TEST(Sort, AllKindsOfInput) {
  forEachSort([]<class T>(const Sorts<T>& member) {
    kit::Random random(2);
    for (std::size_t n : std::initializer_list<std::size_t>{1000, 2100, 5000})
      for (Kind kind : allKinds) {
        checkSort(member, input<T>(kind, n, random), n % 2 ? Edge::begin : Edge::end, n % 7);
        if (testing::Test::HasFatalFailure()) return;
      }
  });
}

TEST(RadixSort, EveryLengthTo300) {
  forEachRadixSort([]<class T>(const RadixSorts<T>& member) {
    kit::Random random(3);
    for (std::size_t n = 1; n <= 300; ++n)
      for (int round = 0; round < (n < 70 ? 4 : 2); ++round) {
        constexpr int size = sizeof(T);
        const Zor32s strides[] = {size, 2 * size, size + 1, 0, -size, 3, -13, 4096};
        const Kind kind = round % 2 ? Kind::few : Kind::any;
        checkRadixSort(member, input<T>(kind, n, random), round % 2 ? Edge::begin : Edge::end, random() % 8,
                       strides[random() % (n < 40 ? 8 : 7)]);
        if (testing::Test::HasFatalFailure()) return;
      }
  });
}

TEST(RadixSort, AllKindsOfInput) {
  forEachRadixSort([]<class T>(const RadixSorts<T>& member) {
    kit::Random random(4);
    for (std::size_t n : std::initializer_list<std::size_t>{499, 500, 3999, 4000, 9000})
      for (Kind kind : allKinds) {
        checkRadixSort(member, input<T>(kind, n, random), n % 2 ? Edge::begin : Edge::end, n % 7, Zor32s(sizeof(T)));
        if (testing::Test::HasFatalFailure()) return;
      }
  });
}

TEST(Sort, AMillionElementsOfEveryKindInTimeThatGrowsAsRandomOnesDo) {
  const auto check = []<class T>(const Sorts<T>& member) {
    kit::Random random(5);
    for (Kind kind : allKinds) {
      auto x = input<T>(kind, 1'000'000, random);
      const auto wanted = completeKeys<T>(x);
      ASSERT_EQ(member.sort(x.data(), Zor32s(x.size())), zorStatusOk);
      ASSERT_EQ(completeKeys<T>(x), wanted);
      if (std::is_integral_v<T>) {
        ASSERT_TRUE(inOrder<T>(x, member.descending)) << member.name << int(kind);
      }
    }
  };
  check(Sorts<Zor32f>{"zorsSortAscend_32f_I", false, zorsSortAscend_32f_I, nullptr});
  check(Sorts<Zor16s>{"zorsSortDescend_16s_I", true, zorsSortDescend_16s_I, nullptr});
}

TEST(Sort, OfThreeTheFirstOfTwoGreatestGoesToTheEnd) {
  Zor32s x[] = {5, 5, 1}, index[] = {-1, -1, -1};
  ASSERT_EQ(zorsSortIndexAscend_32s_I(x, index, 3), zorStatusOk);
  EXPECT_EQ(std::vector(index, index + 3), (std::vector<Zor32s>{2, 1, 0}));
}

TEST(Sort, ANanAmongFewIsNeverTheGreatest) {
  const Zor32f nan = std::numeric_limits<Zor32f>::quiet_NaN();
  Zor32f x[] = {3, nan, 2};
  ASSERT_EQ(zorsSortAscend_32f_I(x, 3), zorStatusOk);
  EXPECT_EQ(x[2], 3);
  EXPECT_EQ(x[1], 2);  // of 2 and NaN neither is above the other: the first goes to the end
  Zor32f y[] = {nan, 3, 2};
  ASSERT_EQ(zorsSortAscend_32f_I(y, 3), zorStatusOk);
  EXPECT_TRUE(std::isnan(y[2]));
}

TEST(Sort, DenormalsStayThemselvesWhereTheyCountAsZero) {
  const unsigned saved = _mm_getcsr();
  for (std::size_t n : std::initializer_list<std::size_t>{5, 100, 3000}) {
    std::vector<Zor32f> x(n);
    std::vector<Zor64f> y(n);
    for (std::size_t i = 0; i < n; ++i) {
      x[i] = std::bit_cast<Zor32f>(Zor32u(i * 7919 % n + 1));
      y[i] = std::bit_cast<Zor64f>(Zor64u(i * 7919 % n + 1));
    }
    const auto wantedX = completeKeys<Zor32f>(x), wantedY = completeKeys<Zor64f>(y);
    _mm_setcsr(saved | _MM_DENORMALS_ZERO_ON | _MM_FLUSH_ZERO_ON);
    zorsSortAscend_32f_I(x.data(), Zor32s(n));
    zorsSortDescend_64f_I(y.data(), Zor32s(n));
    _mm_setcsr(saved);
    EXPECT_EQ(completeKeys<Zor32f>(x), wantedX) << n;
    EXPECT_EQ(completeKeys<Zor64f>(y), wantedY) << n;
  }
}

TEST(RadixSort, NegativeZeroStandsBeforePositiveZeroAndNanAtTheEnds) {
  const auto bits = [](Zor32u b) { return std::bit_cast<Zor32f>(b); };
  const std::vector<Zor32f> sorted = {
      bits(0xFFFFFFFF), bits(0xFFC00000), bits(0xFF800001), bits(0xFF800000), -1, -0.0f, 0.0f, 1,
      bits(0x7F800000), bits(0x7F800001), bits(0x7FC00000), bits(0x7FFFFFFF)};
  auto x = sorted;
  std::vector<Zor32f> tmp(x.size());
  std::reverse(x.begin(), x.end());
  ASSERT_EQ(zorsSortRadixAscend_32f_I(x.data(), tmp.data(), Zor32s(x.size())), zorStatusOk);
  EXPECT_EQ(kit::firstDifference<Zor32f>(x, sorted, kit::Nan::samePayload), "");
  ASSERT_EQ(zorsSortRadixDescend_32f_I(x.data(), tmp.data(), Zor32s(x.size())), zorStatusOk);
  std::reverse(x.begin(), x.end());
  EXPECT_EQ(kit::firstDifference<Zor32f>(x, sorted, kit::Nan::samePayload), "");
}

TEST(RadixSort, AStrideOfFourBytesSortsEverySecond16BitKey) {
  const Zor16s src[] = {3, -9, 1, -9, 2, -9, 1, -9};
  Zor32s index[4], tmp[4];
  ASSERT_EQ(zorsSortRadixIndexAscend_16s(src, 4, index, tmp, 4), zorStatusOk);
  EXPECT_EQ(std::vector(index, index + 4), (std::vector<Zor32s>{1, 3, 2, 0}));
  ASSERT_EQ(zorsSortRadixIndexDescend_16s(src, 4, index, tmp, 4), zorStatusOk);
  EXPECT_EQ(std::vector(index, index + 4), (std::vector<Zor32s>{0, 2, 1, 3}));
}

TEST(RadixSort, AStrideOfNearlyTwoGigabytesIsNotWrapped) {
  constexpr std::size_t step = INT32_MAX - 3, bytes = 2 * step + 4096;
  void* const memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) FAIL() << "no address space";
  auto* const src = static_cast<char*>(memory);
  const Zor32s keys[] = {7, -2, 5};
  for (std::size_t i = 0; i < 3; ++i) std::memcpy(src + i * step, &keys[i], 4);
  Zor32s index[3], tmp[3];
  EXPECT_EQ(zorsSortRadixIndexAscend_32s(reinterpret_cast<Zor32s*>(src), Zor32s(step), index, tmp, 3), zorStatusOk);
  EXPECT_EQ(std::vector(index, index + 3), (std::vector<Zor32s>{1, 2, 0}));
  munmap(memory, bytes);
}

TEST(Sort, BadArguments) {
  forEachSort([]<class T>(const Sorts<T>& member) {
    const std::vector<T> values = {T(3), T(1), T(2)};
    auto x = values;
    std::vector<Zor32s> index(3, -7);
    kit::Contract(member.sort, x.data(), 3)
        .template null<0>()
        .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(x)
        .verify(member.name);
    kit::Contract(member.sortIndex, x.data(), index.data(), 3)
        .template null<0>()
        .template null<1>()
        .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(x)
        .untouched(index)
        .verify(member.name);
  });
  forEachRadixSort([]<class T>(const RadixSorts<T>& member) {
    std::vector<T> x = {T(3), T(1), T(2)}, tmp = x;
    std::vector<Zor32s> index(3, -7), spare(3, -8);
    kit::Contract(member.sort, x.data(), tmp.data(), 3)
        .template null<0>()
        .template null<1>()
        .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(x)
        .untouched(tmp)
        .verify(member.name);
    if (member.sortIndex == nullptr) return;
    kit::Contract(member.sortIndex, x.data(), Zor32s(sizeof(T)), index.data(), spare.data(), 3)
        .template null<0>()
        .template null<2>()
        .template null<3>()
        .template bad<4>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(index)
        .untouched(spare)
        .verify(member.name);
  });
}

}  // namespace
