// zorsCopy_1u, zorsCopyLE_1u, zorsCopyBE_1u: copies of bit strings.
#include <algorithm>

#include "exports/memory.h"
#include "frame/check.h"
#include "frame/map.h"

namespace zors {
namespace {

// Where bit 0 of a byte is, and with it which way later bits come nearer: `earlier` moves a byte's bits toward bit 0.
struct FromTop {
  static constexpr unsigned earlier(unsigned x, int bits) { return x << bits & 0xFF; }
  static constexpr unsigned later(unsigned x, int bits) { return x >> bits; }
};
struct FromBottom {
  static constexpr unsigned earlier(unsigned x, int bits) { return x >> bits; }
  static constexpr unsigned later(unsigned x, int bits) { return x << bits & 0xFF; }
};

// A byte's worth of bits that starts at bit `shift` of a and ends in b.
template <class Numbering> struct Joined {
  int shift;
  template <int L> ZORS_INLINE simd::Vec<Zor8u, L> operator()(simd::Vec<Zor8u, L> a, simd::Vec<Zor8u, L> b) const {
    using namespace simd;
    const auto moved = [](auto x, bool left, int bits, unsigned kept) ZORS_INLINE_LAMBDA {
      const auto words = as<Zor16u>(x);
      return both(as<Zor8u>(left ? shiftLeft(words, bits) : shiftRight(words, bits)), same(x, Zor8u(kept)));
    };
    constexpr bool fromTop = std::is_same_v<Numbering, FromTop>;
    return either(moved(a, fromTop, shift, Numbering::earlier(0xFF, shift)),
                  moved(b, !fromTop, 8 - shift, Numbering::later(0xFF, 8 - shift)));
  }
};

// count bits from bit `offset` of p on to bits `at`, at + 1, ... of *dst; both within 8 bits from their start. Reads
// the second byte only where it holds a wanted bit.
template <class Numbering> void copyWithinByte(const Zor8u* p, int offset, Zor8u* dst, int at, int count) {
  unsigned bits = Numbering::earlier(p[0], offset);
  if (offset + count > 8) bits |= Numbering::later(p[1], 8 - offset);
  const unsigned wanted = Numbering::later(Numbering::earlier(0xFF, 8 - count), at);
  *dst = Zor8u((*dst & ~wanted) | (Numbering::later(bits, at) & wanted));
}

template <class Numbering>
ZorStatus copyBits(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len) {
  return check()
      .pointers(src, dst)
      .require(len >= 1 && srcBitOffset >= 0 && dstBitOffset >= 0, zorStatusBadSize)
      .then([&] {
        int from = srcBitOffset & 7;
        const int to = dstBitOffset & 7;
        if (to != 0) {
          const int count = std::min(8 - to, len);
          copyWithinByte<Numbering>(src, from, dst, to, count);
          from += count, len -= count, ++dst;
          src += from >> 3, from &= 7;
        }
        const Zor32s bytes = len >> 3, rest = len & 7;
        if (bytes > 0) {
          if (from == 0)
            zors::zorsCopy_8u(src, dst, bytes);
          else
            map<mapStep<Zor8u>>(Joined<Numbering>{from}, bytes, dst, src, src + 1);
        }
        if (rest > 0) copyWithinByte<Numbering>(src + bytes, from, dst + bytes, 0, rest);
      });
}

}  // namespace

// clang-format off
ZorStatus zorsCopy_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len) { return copyBits<FromTop>(src, srcBitOffset, dst, dstBitOffset, len); }
ZorStatus zorsCopyBE_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len) { return copyBits<FromBottom>(src, srcBitOffset, dst, dstBitOffset, len); }
// clang-format on

}  // namespace zors
