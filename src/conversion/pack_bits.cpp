// zorsPackBits_32u8u: fields of up to 32 bits, packed without gaps from the top bit of the first byte on.
#include <algorithm>
#include <cstring>

#include "exports/conversion.h"
#include "frame/check.h"

namespace zors {
namespace {

// Fields gather in a word from its top down; whole 32-bit units leave it in byte order. Bits of the first byte ahead of
// the first field, and of the last one behind the last field, are those of the destination.
class Packer {
 public:
  Packer(Zor8u* dst, int bitOffset) : dst_(dst), filled_(bitOffset) {}
  void put(Zor32u value, int width) {
    if (width == 0) return;
    if (!started_ && filled_ > 0) word_ = Zor64u(dst_[0] & ~(0xFF >> filled_)) << 56;
    started_ = true;
    const Zor64u field = value & (~Zor64u{0} >> (64 - width));
    word_ |= field << (64 - filled_ - width);
    filled_ += width;
    if (filled_ >= 32) {
      const Zor32u unit = __builtin_bswap32(static_cast<Zor32u>(word_ >> 32));
      std::memcpy(dst_, &unit, sizeof unit);
      dst_ += sizeof unit;
      word_ <<= 32;
      filled_ -= 32;
    }
  }
  void finish() {
    if (!started_) return;
    for (; filled_ >= 8; filled_ -= 8, word_ <<= 8) *dst_++ = static_cast<Zor8u>(word_ >> 56);
    if (filled_ > 0) *dst_ = static_cast<Zor8u>((word_ >> 56) | (*dst_ & (0xFF >> filled_)));
  }

 private:
  Zor8u* dst_;
  Zor64u word_ = 0;
  int filled_;            // below 32 between fields
  bool started_ = false;  // no byte is looked at before it has a bit of ours
};

}  // namespace

ZorStatus zorsPackBits_32u8u(const Zor32u* src, const Zor32s* widths, Zor32s len, Zor8u* dst, Zor32s dstBitOffset,
                             Zor32s* dstBitLen) {
  return check()
      .pointers(src, widths, dst, dstBitLen)
      .require(len >= 1 && dstBitOffset >= 0, zorStatusBadSize)
      .then([&]() -> ZorStatus {
        Packer packer(dst, dstBitOffset & 7);
        Zor64s bits = 0;
        bool clamped = false;
        for (Zor32s i = 0; i < len; ++i) {
          const int width = std::clamp(widths[i], 0, 32);
          clamped |= width != widths[i];
          packer.put(src[i], width);
          bits += width;
        }
        packer.finish();
        *dstBitLen = static_cast<Zor32s>(bits);
        return clamped ? zorWarningBitWidthClamped : zorStatusOk;
      });
}

}  // namespace zors
