// zorsRandGauss_*, zorsRandGauss_Direct_* and their states: Gaussian random vectors by the polar method.
#include <cmath>

#include "exports/generators.h"
#include "generators/indexed.h"
#include "generators/random.h"
#include "generators/record.h"

struct ZorRandGaussState {
  zors::Tag tag;
};

namespace zors {
namespace {

using namespace simd;
using namespace generators;

template <class T>
inline constexpr Tag tagOf = std::is_same_v<T, Zor8u>    ? tag(38)
                             : std::is_same_v<T, Zor16s> ? tag(39)
                                                         : tag(40);

// A point inside the unit circle gives two normal variates, second * factor and then first * factor.
struct Pair {
  Zor64f factor = 0, first = 0, second = 0;
};
Zor64f factorOf(Zor64f s) { return std::sqrt(-2.0 * std::log(s) / s); }

// Points of the square [-1, 1) in pairs of words, those outside the unit circle and its centre dropped.
class Points {
 public:
  static constexpr int capacity = 48;
  int count() const { return count_; }

  // The points of so many further pairs of words, at most room() of them. No word is drawn that is not used.
  ZORS_INLINE void draw(RandomWords& words, int pairs) {
    words.draw<8>(2 * pairs, [&](int i, Vec<Zor32s, 8> r) ZORS_INLINE_LAMBDA {
      const __m256i parts = _mm256_permutevar8x32_epi32(r.r[0], _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7));
      const auto coordinates = toDouble(Vec<Zor32s, 8>{{parts}});
      const auto u = mul(coordinates, same(coordinates, 4.656612873077e-10));
      const V u1{{u.r[0]}}, u2{{u.r[1]}}, s = fma(u1, u1, mul(u2, u2));
      const auto inside = both(below(s, same(s, 1.0)), unequal(s, same(s, 0.0)));
      const int valid = std::min(pairs - i / 2, 4);
      const int kept = _mm256_movemask_pd(inside.r[0]) & ((1 << valid) - 1);
      append(u1_, u1, kept);
      append(u2_, u2, kept);
      append(s_, s, kept);
      count_ += __builtin_popcount(unsigned(kept));
    });
  }
  static constexpr int room = 24;  // where count() is at most capacity - room

  // use(i, u1, u2, s) for the first `points`, L at a time, in the last step with points of no use behind them; then
  // they are gone.
  template <int L, class Use> ZORS_INLINE void take(int points, Use use) {
    if (points == count_)
      for (int i = points; i % L != 0; ++i) {
        u1_[i] = u2_[i] = 0;
        s_[i] = 0.5;
      }
    for (int i = 0; i < points; i += L) use(i, load<L>(u1_ + i), load<L>(u2_ + i), load<L>(s_ + i));
    count_ -= points;
    for (auto* values : {u1_, u2_, s_}) std::copy_n(values + points, count_, values);
  }
  Pair pairAt(int i) const { return {factorOf(s_[i]), u1_[i], u2_[i]}; }

 private:
  using V = Vec<Zor64f, 4>;

  // The lanes that the bits of `kept` name, moved together.
  ZORS_INLINE void append(Zor64f* values, V x, int kept) {
    alignas(32) static constexpr auto lanes = [] {
      std::array<std::array<Zor32s, 8>, 16> table{};
      for (std::size_t bits = 0; bits < 16; ++bits) {
        std::size_t at = 0;
        for (std::size_t lane = 0; lane < 4; ++lane)
          if ((bits >> lane & 1) != 0) {
            table[bits][at++] = Zor32s(2 * lane);
            table[bits][at++] = Zor32s(2 * lane + 1);
          }
      }
      return table;
    }();
    const auto order = load<8>(lanes[std::size_t(kept)].data());
    store(values + count_, as<Zor64f>(Vec<Zor32s, 8>{{_mm256_permutevar8x32_epi32(bits(x.r[0]), order.r[0])}}));
  }

  int count_ = 0;
  alignas(32) Zor64f u1_[capacity + 4], u2_[capacity + 4], s_[capacity + 4];
};

// ---- Elements -----------------------------------------------------------------------------------

// The order of the products, which differs between states and direct calls.
enum class Order { deviationTimesFactor, deviationTimesPoint };

template <class T, Order order> struct Normal {
  T mean, stdDev;

  // An element before it is narrowed: in integer forms with the mean, in floating ones without.
  template <class V> ZORS_INLINE V value(V u, V factor) const {
    const auto deviation = same(u, static_cast<Zor64f>(stdDev));
    const auto known = order == Order::deviationTimesFactor ? factor : u;
    const auto other = order == Order::deviationTimesFactor ? u : factor;
    if constexpr (std::is_floating_point_v<T>)
      return mul(mul(deviation, known), other);
    else
      return fma(other, mul(deviation, known), same(u, static_cast<Zor64f>(mean)));
  }
  template <int L> ZORS_INLINE Vec<T, L> element(Vec<Zor64f, L> v) const {
    if constexpr (std::is_same_v<T, Zor64f>)
      return add(same(v, mean), v);
    else if constexpr (std::is_same_v<T, Zor32f>)
      return add(splat<Vec<T, L>>(mean), toFloat(v));
    else
      return saturate<T>(toIntegerTowardZero(v));
  }
  // All ones where some units in the last place of the factor decide the element. Products are below 2^19.
  template <class V> ZORS_INLINE V open(V v) const {
    if constexpr (std::is_same_v<T, Zor32f>)
      return nearNarrowing(v);
    else
      return nearInteger(v, same(v, stdDev == 0 ? 0.0 : 0x1p-26));
  }
  // The second coordinates' elements and the first ones', in turn.
  template <int L> ZORS_INLINE Vec<T, 2 * L> elements(Vec<Zor64f, L> u1, Vec<Zor64f, L> u2, Vec<Zor64f, L> s) const {
    const auto in = [](auto a, auto b) ZORS_INLINE_LAMBDA { return as<Zor64f>(toComplex(a, b)); };
    Vec<Zor64f, L> factor;
    if constexpr (std::is_same_v<T, Zor64f>) {
      factor = replaceLanes(s, same(s, -1.0), factorOf, s);
    } else {
      LogArguments arguments;
      factor = sqrt(div(mul(same(s, -2.0), logarithm(s, arguments)), s));
      const auto undecided = either(open(value(u2, factor)), open(value(u1, factor)));
      if (any(undecided)) [[unlikely]]
        factor = replaceLanes(factor, undecided, factorOf, s);
    }
    return element(in(value(u2, factor), value(u1, factor)));
  }
  // The element of a first coordinate that was held back.
  void storeHeld(const Pair& held, T* dst) const {
    using V = Vec<Zor64f, randomStep<T>>;
    storePart(dst, element(value(splat<V>(held.first), splat<V>(held.factor))), 1);
  }
};

// len elements; where len is odd the last pair gives one, and is returned.
template <class N, class T>
[[gnu::flatten]] Pair fill(RandomWords& words, const N& normal, T* dst, std::ptrdiff_t len) {
  constexpr int L = randomStep<T> / 2;
  RandomWords local = words;  // in registers
  Points points;
  Pair last;
  for (std::ptrdiff_t pairs = (len + 1) / 2; pairs > 0;) {
    while (points.count() < pairs && points.count() <= Points::capacity - Points::room)
      points.draw(local, int(std::min<std::ptrdiff_t>(Points::room, pairs - points.count())));
    const bool end = points.count() == pairs;
    const int taken = end ? points.count() : points.count() / L * L;
    if (end && len % 2 != 0) last = points.pairAt(taken - 1);
    const int elements = end && len % 2 != 0 ? 2 * taken - 1 : 2 * taken;
    points.take<L>(taken, [&](int i, auto u1, auto u2, auto s) ZORS_INLINE_LAMBDA {
      const auto y = normal.elements(u1, u2, s);
      if (2 * (i + L) <= elements)
        store(dst + 2 * i, y);
      else
        storePart(dst + 2 * i, y, elements - 2 * i);
    });
    dst += elements;
    len -= elements;
    pairs -= taken;
  }
  words = local;
  return last;
}

// ---- States -------------------------------------------------------------------------------------

template <class T> struct Gauss {
  Tag tag;
  Zor32u seed;
  Normal<T, Order::deviationTimesFactor> normal;
  RandomWords words;
  Zor32s needPair;
  Pair held;

  Gauss() = default;
  Gauss(T mean, T stdDev, Zor32u start)
      : tag(tagOf<T>), seed(start), normal{mean, stdDev}, words(start), needPair(1), held() {}
};
// The bytes of a record; that of 32f has some of no use at its end.
template <class T> inline constexpr Zor32s recordBytes = std::is_same_v<T, Zor32f> ? 72 : 64;
static_assert(sizeof(Gauss<Zor8u>) == 64 && sizeof(Gauss<Zor16s>) == 64 && sizeof(Gauss<Zor32f>) == 64);

template <class T> ZorStatus getSize(Zor32s* size) {
  return check().pointers(size).then([&] { *size = recordBytes<T>; });
}
template <class T> ZorStatus init(ZorRandGaussState* state, T mean, T stdDev, Zor32u seed) {
  return check().pointers(state).then([&] { storeRecord(Gauss<T>(mean, stdDev, seed), state); });
}
template <class T> ZorStatus initAlloc(ZorRandGaussState** stateOut, T mean, T stdDev, Zor32u seed) {
  return check().pointers(stateOut).then(
      [&] { return storeInNewMemory(Gauss<T>(mean, stdDev, seed), stateOut, recordBytes<T>); });
}
template <class T> ZorStatus release(ZorRandGaussState* state) {
  return check().pointers(state).state(state, tagOf<T>).then([&] { releaseRecord(state); });
}
template <class T> ZorStatus gauss(T* dst, Zor32s len, ZorRandGaussState* state) {
  return check().pointers(dst, state).size(len).state(state, tagOf<T>).then([&] {
    auto record = loadRecord<Gauss<T>>(state);
    const Zor32s fromHeld = record.needPair != 0 ? 0 : 1, left = len - fromHeld;
    if (fromHeld == 1) record.normal.storeHeld(record.held, dst);
    const Pair last = fill(record.words, record.normal, dst + fromHeld, left);
    record.needPair = left % 2 == 0 ? 1 : 0;
    if (record.needPair == 0) record.held = last;
    storeRecord(record, state);
  });
}

template <class T> ZorStatus gaussDirect(T* dst, Zor32s len, T mean, T stdDev, Zor32u* seed) {
  return check().pointers(dst, seed).size(len).then([&] {
    RandomWords words(*seed);
    fill(words, Normal<T, Order::deviationTimesPoint>{mean, stdDev}, dst, len);
    *seed = words.newest();
  });
}

}  // namespace

// clang-format off
#define GAUSS_STATE(T, getSizeName, initName, initAllocName, freeName, name)                                                      \
  ZorStatus getSizeName(Zor32s* size) { return getSize<T>(size); }                                                                \
  ZorStatus initName(ZorRandGaussState* state, T mean, T stdDev, Zor32u seed) { return init(state, mean, stdDev, seed); }         \
  ZorStatus initAllocName(ZorRandGaussState** stateOut, T mean, T stdDev, Zor32u seed) { return initAlloc(stateOut, mean, stdDev, seed); } \
  ZorStatus freeName(ZorRandGaussState* state) { return release<T>(state); }                                                      \
  ZorStatus name(T* dst, Zor32s len, ZorRandGaussState* state) { return gauss(dst, len, state); }
GAUSS_STATE(Zor8u, zorsRandGaussGetSize_8u, zorsRandGaussInit_8u, zorsRandGaussInitAlloc_8u, zorsRandGaussFree_8u, zorsRandGauss_8u)
GAUSS_STATE(Zor16s, zorsRandGaussGetSize_16s, zorsRandGaussInit_16s, zorsRandGaussInitAlloc_16s, zorsRandGaussFree_16s, zorsRandGauss_16s)
GAUSS_STATE(Zor32f, zorsRandGaussGetSize_32f, zorsRandGaussInit_32f, zorsRandGaussInitAlloc_32f, zorsRandGaussFree_32f, zorsRandGauss_32f)
#undef GAUSS_STATE

ZorStatus zorsRandGauss_Direct_16s(Zor16s* dst, Zor32s len, Zor16s mean, Zor16s stdDev, Zor32u* seed) { return gaussDirect(dst, len, mean, stdDev, seed); }
ZorStatus zorsRandGauss_Direct_32f(Zor32f* dst, Zor32s len, Zor32f mean, Zor32f stdDev, Zor32u* seed) { return gaussDirect(dst, len, mean, stdDev, seed); }
ZorStatus zorsRandGauss_Direct_64f(Zor64f* dst, Zor32s len, Zor64f mean, Zor64f stdDev, Zor32u* seed) { return gaussDirect(dst, len, mean, stdDev, seed); }
// clang-format on

}  // namespace zors
