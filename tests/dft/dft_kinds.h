// The transforms of any length by one signature: complex points in binary64 in, complex points out, whatever the kind.
#pragma once

#include <cmath>
#include <complex>
#include <functional>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/dft.h"

namespace kit {

using Wide = std::complex<long double>;
using Points = std::vector<Wide>;

// The definition, by roots of whole numbers of parts of a turn.
inline Points dftModel(const Points& x, bool inverse) {
  const std::size_t n = x.size();
  Points roots(n), out(n);
  for (std::size_t j = 0; j < n; ++j) {
    const long double angle =
        2 * std::numbers::pi_v<long double> * static_cast<long double>(j) / static_cast<long double>(n);
    roots[j] = {std::cos(angle), inverse ? std::sin(angle) : -std::sin(angle)};
  }
  for (std::size_t k = 0; k < n; ++k) {
    Wide sum = 0;
    for (std::size_t i = 0, at = 0; i < n; ++i, at = at + k < n ? at + k : at + k - n) {
      const Wide a = x[i], b = roots[at];
      sum += Wide(a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real());
    }
    out[k] = sum;
  }
  return out;
}

enum class Buffer { null, exact };
enum class Place { apart, same };
struct Setting {
  Edge edge = Edge::end;
  std::size_t offset = 0;
  Buffer buffer = Buffer::exact;
  Place place = Place::apart;
};

// A specification in a block of exactly the size reported, at an unreadable page.
template <class S, class GetSize, class Init> class Built {
 public:
  Built(GetSize getSize, Init init, int len, int flag, Edge edge = Edge::end) {
    Zor32s specSize = -1, initSize = -1, workSize = -1;
    status = getSize(len, flag, zorAlgHintNone, &specSize, &initSize, &workSize);
    if (status != zorStatusOk) return;
    block_ = std::make_unique<Guarded<Zor8u>>(std::size_t(specSize), edge, 0);
    const Guarded<Zor8u> buffer(static_cast<std::size_t>(initSize), edge, 0);
    status = init(len, flag, zorAlgHintNone, block_->data(), initSize == 0 ? nullptr : buffer.data());
    largestWork = workSize;
  }
  S* spec() const { return reinterpret_cast<S*>(block_->data()); }
  bool intact() const { return block_->intact(); }
  ZorStatus status = zorStatusOk;
  Zor32s largestWork = 0;

 private:
  std::unique_ptr<Guarded<Zor8u>> block_;
};

}  // namespace kit
