// zorsGetVarPointDV_16sc, zorsBuildSymblTableDV4D_16sc, zorsCalcStatesDV_16sc, zorsUpdatePathMetricsDV_16u.
#include <immintrin.h>

#include "exports/detection.h"
#include "frame/check.h"
#include "frame/map.h"

namespace zors {
namespace {

using namespace simd;

// One coordinate: how far above the grid point below it the value lies, and squared distances over 16 to that grid line
// (0), the next (1), the one after (2), and the one before (3).
struct Coordinate {
  int offset, base;
  Zor32u distance[4];

  explicit Coordinate(int value) : offset((value ^ 128) & 255), base(value - offset) {
    const auto squared = [](int d) { return Zor32u(d * d) >> 4; };
    distance[0] = squared(offset);
    distance[1] = squared(256 - offset);
    distance[2] = squared(512 - offset);
    distance[3] = squared(offset + 256);
  }
  int cell() const { return (base - 128) >> 8; }
};

// variance[p] + variance[q + 8] and so on for eight entries: the words of one way, and their sum.
struct Way {
  __m256i first, second, metric;
  Way(__m256i a, __m256i b) : first(a), second(b) {
    const __m256i low = _mm256_set1_epi32(0xFFFF);
    metric = _mm256_add_epi32(_mm256_and_si256(a, low), _mm256_and_si256(b, low));
  }
};

void buildTable(const Zor32u* variance, Zor16sc* table, int entries, int bitInversion) {
  const auto load8 = [](const Zor32u* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); };
  const __m256i words0 = load8(variance), words8 = load8(variance + 8), four = _mm256_set1_epi32(4);
  for (int e = 0; e < entries; e += 8) {
    const __m256i number = _mm256_add_epi32(_mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7), _mm256_set1_epi32(e));
    const __m256i x = _mm256_xor_si256(number, _mm256_set1_epi32(bitInversion));
    const __m256i p = _mm256_srai_epi32(x, 2);
    const __m256i q = _mm256_and_si256(_mm256_add_epi32(x, p), _mm256_set1_epi32(3));
    const auto pick = [](__m256i words, __m256i at) { return _mm256_permutevar8x32_epi32(words, at); };  // modulo 8
    const __m256i above7 = _mm256_slli_epi32(p, 28);  // bit 3 as the sign
    const __m256 firstWord = _mm256_blendv_ps(_mm256_castsi256_ps(pick(words0, p)),
                                              _mm256_castsi256_ps(pick(words8, p)), _mm256_castsi256_ps(above7));
    const Way one(_mm256_castps_si256(firstWord), pick(words8, q));
    const Way two(pick(words0, _mm256_add_epi32(p, four)), pick(words8, _mm256_add_epi32(q, four)));
    const __m256i other = _mm256_cmpgt_epi32(one.metric, two.metric);
    const auto chosen = [&](__m256i a, __m256i b) { return _mm256_blendv_epi8(a, b, other); };
    const __m256i first = chosen(one.first, two.first), second = chosen(one.second, two.second);
    const __m256i metric = _mm256_slli_epi32(chosen(one.metric, two.metric), 16);
    const __m256i byte = _mm256_set1_epi32(0xFF);
    const __m256i tag = _mm256_or_si256(_mm256_and_si256(_mm256_srli_epi32(first, 16), byte),
                                        _mm256_slli_epi32(_mm256_and_si256(_mm256_srli_epi32(second, 16), byte), 8));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(table + e), _mm256_or_si256(tag, metric));
  }
}

struct Least {
  Zor32u value, at;
};
// The first of equals. The instruction finds the least of eight and its place.
Least leastOf(const Zor16u* x, int len) {
  Least least{x[0], 0};
  int i = 0;
  for (; i <= len - 8; i += 8) {
    const __m128i found = _mm_minpos_epu16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(x + i)));
    const auto both = Zor32u(_mm_cvtsi128_si32(found));
    if ((both & 0xFFFF) < least.value) least = {both & 0xFFFF, Zor32u(i) + (both >> 16 & 7)};
  }
  for (; i < len; ++i)
    if (x[i] < least.value) least = {x[i], Zor32u(i)};
  return least;
}

}  // namespace

ZorStatus zorsGetVarPointDV_16sc(const Zor16sc* point, Zor16sc* nearest, Zor32u* variance, const Zor8u* labels,
                                 Zor32s stateCount) {
  return check().pointers(point, nearest, variance, labels).then([&] {
    const Coordinate re(point->re), im(point->im);
    const auto &a = re.distance, &b = im.distance;
    const unsigned mask = stateCount == 16 ? 3 : 7;
    const auto set = [&](int column, int row, Zor32u distance, Zor32u neighbour) {
      const int at = 4 * ((im.cell() + 2 + row) & 3) + ((re.cell() + 2 + column) & 3);
      variance[labels[at] & mask] = distance | neighbour << 16;
    };
    const auto setNearer = [&](int column, int row, Zor32u first, Zor32u second, Zor32u neighbour) {
      const bool isFirst = first < second;
      set(column, row, isFirst ? first : second, isFirst ? neighbour : neighbour + 4);
    };
    *nearest = {Zor16s(re.base), Zor16s(im.base)};
    set(0, 0, a[0] + b[0], 0);
    set(1, 0, a[1] + b[0], 1);
    set(1, 1, a[1] + b[1], 2);
    set(0, 1, a[0] + b[1], 3);
    if (stateCount == 16) return;
    setNearer(0, 2, a[0] + b[2], b[0] + a[2], 4);
    setNearer(1, 2, a[1] + b[2], b[0] + a[3], 5);
    setNearer(1, 3, a[2] + b[1], a[0] + b[3], 6);
    setNearer(0, 3, a[1] + b[3], a[3] + b[1], 7);
  });
}

ZorStatus zorsBuildSymblTableDV4D_16sc(const Zor32u* variance, Zor16sc* table, Zor32s stateCount, Zor32s bitInversion) {
  return check().pointers(variance, table).then([&] {
    buildTable(variance, table, stateCount == 16 ? 16 : 32, bitInversion);
  });
}

ZorStatus zorsCalcStatesDV_16sc(const Zor16u* pathError, const Zor8u* nextState, Zor16u* newPathError,
                                const Zor16sc* table, Zor32u* survivors, Zor32s stateCount, Zor32s survivorOffset) {
  return check().pointers(pathError, nextState, newPathError, table, survivors).then([&] {
    Zor32u* const survivor = survivors + survivorOffset;
    for (Zor32s s = 0; s < stateCount; ++s) {
      const Zor16sc* const entries = table + s % 2;
      const Zor8u* const targets = nextState + std::ptrdiff_t{16} * s;
      const Zor32u error = pathError[s], from = Zor32u(s) << 16;
#pragma GCC unroll 16
      for (int k = 0; k < 16; ++k) {  // both stores whatever the outcome: no prediction would hold
        const Zor8u t = targets[k];
        const Zor32u sum = error + Zor16u(entries[2 * k].im), best = newPathError[t], kept = survivor[t];
        const bool better = sum < best;
        newPathError[t] = Zor16u(better ? sum : best);
        survivor[t] = better ? Zor16u(entries[2 * k].re) | from : kept;
      }
    }
  });
}

ZorStatus zorsUpdatePathMetricsDV_16u(const Zor16u* branchError, Zor16u* minPathError, Zor8u* minState,
                                      Zor16u* pathError, Zor32s stateCount) {
  return check().pointers(branchError, minPathError, minState, pathError).then([&] {
    if (stateCount < 1) return;
    const Least least = leastOf(branchError, stateCount);
    *minPathError = Zor16u(least.value);
    *minState = Zor8u(least.at);
    const auto bring = [=](auto x) ZORS_INLINE_LAMBDA { return sub(x, same(x, Zor16u(least.value))); };
    map<mapStep<Zor16u>>(bring, stateCount, pathError, branchError);
  });
}

}  // namespace zors
