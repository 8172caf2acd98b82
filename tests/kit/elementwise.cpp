#include "kit/elementwise.h"

namespace kit {

const std::vector<int>& sweepLengths() {
  static const std::vector<int> all = [] {
    std::vector<int> lengths;
    for (int len = 1; len <= 70; ++len) lengths.push_back(len);
    for (int len : {95, 96, 97, 127, 128, 129, 130, 191, 255, 256, 257, 511, 513, 1000, 1025}) lengths.push_back(len);
    return lengths;
  }();
  return all;
}
const std::vector<int>& fewLengths() {
  static const std::vector<int> lengths = {1, 7, 15, 33, 64, 203};
  return lengths;
}

namespace detail {
namespace {

// alias: the source that is the destination too, -1 for none, or the number of sources for all of its type.
void checkOnce(const Sweep& sweep, int len, Edge edge, std::size_t steps, int alias, Random& random) {
  const std::size_t count = std::size_t(len), n = sweep.sources.size();
  const auto array = [&](const Element& type) {
    return Guarded<Zor8u>(count * type.size, edge, steps * type.size % 32);
  };
  std::vector<Guarded<Zor8u>> sources;
  sources.reserve(n);
  for (const Element* type : sweep.sources) {
    sources.push_back(array(*type));
    type->fill(sources.back().data(), count, random);
  }
  const Guarded<Zor8u> target = array(*sweep.destination);
  const Guarded<Zor8u>* dst = &target;
  for (std::size_t k = 0; k < n; ++k)
    if (sweep.sources[k] == sweep.destination && (alias == int(k) || alias == int(n))) dst = &sources[k];
  std::vector<const void*> from(n);
  for (std::size_t k = 0; k < n; ++k)
    from[k] = alias == int(n) && sweep.sources[k] == sweep.destination ? dst->data() : sources[k].data();
  std::vector<Zor8u> wanted(count * sweep.destination->size);
  sweep.model(sweep.modelContext, from.data(), wanted.data(), count);
  const ZorStatus status = sweep.call(sweep.callContext, from.data(), dst->data(), len);
  const auto where = [&] {
    return sweep.name + ", len " + std::to_string(len) + (edge == Edge::end ? ", at the end" : ", at the begin") +
           ", " + std::to_string(steps) + " elements off, destination is source " + std::to_string(alias);
  };
  ASSERT_EQ(status, zorStatusOk) << where();
  if (std::memcmp(dst->data(), wanted.data(), wanted.size()) != 0) {
    ASSERT_EQ(sweep.destination->difference(dst->data(), wanted.data(), count, sweep.nan), "") << where();
  }
  ASSERT_TRUE(dst->intact()) << where() << ": wrote outside";
}

}  // namespace

void sweep(const Sweep& sweep, const std::vector<int>& lengths) {
  Random random(1);
  const int n = int(sweep.sources.size());
  const auto ofType = std::count(sweep.sources.begin(), sweep.sources.end(), sweep.destination);
  const auto canAlias = [&](int alias) {
    return alias == n ? ofType > 1 : sweep.sources[std::size_t(alias)] == sweep.destination;
  };
  for (int len : lengths)
    for (Edge edge : bothEdges)
      for (std::size_t steps = 0; steps < (len == 41 || len == 48 ? 32 : 2); ++steps)
        for (int alias = sweep.inPlace ? n - 1 : -1; alias <= n; ++alias) {
          if (alias >= 0 && !canAlias(alias)) continue;
          checkOnce(sweep, len, edge, steps, alias, random);
          if (testing::Test::HasFatalFailure()) return;
        }
}

}  // namespace detail
}  // namespace kit
