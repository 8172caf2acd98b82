// zorsZero_*: vectors of zeros.
#include "exports/memory.h"
#include "frame/check.h"
#include "memory/blocks.h"
#include "memory/cache.h"

namespace zors {
namespace {

// The byte count is formed in 32 bits and wraps by contract.
template <class T> ZorStatus zero(T* dst, Zor32s len) {
  return check().pointers(dst).size(len).then([&] {
    const auto bytes = static_cast<Zor32s>(static_cast<Zor32u>(len) * Zor32u{sizeof(T)});
    const auto to = reinterpret_cast<Zor8u*>(dst);
    const blocks::Pattern zeros{};
    if (exceedsCache(bytes))
      blocks::fillStreaming(to, zeros, bytes);
    else
      blocks::fill(to, zeros, bytes);
  });
}

}  // namespace

ZorStatus zorsZero_8u(Zor8u* dst, Zor32s len) { return zero(dst, len); }
ZorStatus zorsZero_16s(Zor16s* dst, Zor32s len) { return zero(dst, len); }
ZorStatus zorsZero_32f(Zor32f* dst, Zor32s len) { return zero(dst, len); }
ZorStatus zorsZero_64f(Zor64f* dst, Zor32s len) { return zero(dst, len); }
ZorStatus zorsZero_64fc(Zor64fc* dst, Zor32s len) { return zero(dst, len); }

}  // namespace zors
