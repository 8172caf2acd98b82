// Size queries at their limits: a size is told where 32 bits hold it, and refused where they do not.
#include <gtest/gtest.h>

#include "kit/contract.h"
#include "zors.h"

namespace {

using kit::detail::Argument, kit::detail::argument, kit::detail::Function, kit::detail::Invoke;

// Every export named after a size whose parameters are numbers and then the sizes it tells.
struct Query {
  const char* name;
  Function function;
  Invoke invoke;
  std::size_t numbers, sizes;
};
constexpr bool isQuery(std::string_view name) {
  return name.find("GetSize") != name.npos || name.find("GetStateSize") != name.npos ||
         name.find("GetBufferSize") != name.npos || name.find("GetSize") != name.npos;
}
template <bool query, class R, class... P> void add(std::vector<Query>& all, const char* name, R (*f)(P...)) {
  if constexpr (query) {
    constexpr bool isNumber[] = {std::is_same_v<P, Zor32s>...}, isSize[] = {std::is_same_v<P, Zor32s*>...};
    std::size_t numbers = 0;
    while (numbers < sizeof...(P) && isNumber[numbers]) ++numbers;
    bool only = numbers > 0;
    for (std::size_t i = numbers; i < sizeof...(P); ++i) only = only && isSize[i];
    if (only)
      all.push_back({name, reinterpret_cast<Function>(f), kit::detail::invoke<P...>, numbers, sizeof...(P) - numbers});
  }
}
#define EXPORT(name) add<isQuery(#name)>(all, #name, name);
#define SHARED(name, as) EXPORT(name)
const std::vector<Query> queries = [] {
  std::vector<Query> all;
#include "frame/exports.def"
  return all;
}();
#undef EXPORT
#undef SHARED

constexpr Zor32s untouched = 0x5A5A5A5A;
struct Answer {
  ZorStatus status;
  std::vector<Zor32s> sizes;
  // The bytes together.
  Zor64s total() const {
    Zor64s sum = 0;
    for (Zor32s size : sizes) sum += size;
    return sum;
  }
};
Answer ask(const Query& query, const std::vector<Zor32s>& numbers) {
  Answer answer{zorStatusOk, std::vector<Zor32s>(query.sizes, untouched)};
  std::vector<Argument> arguments;
  for (Zor32s n : numbers) arguments.push_back(argument(n));
  for (Zor32s& size : answer.sizes) arguments.push_back(argument(&size));
  answer.status = query.invoke(query.function, arguments.data());
  return answer;
}
std::string described(const Query& query, const std::vector<Zor32s>& numbers) {
  std::string text = query.name;
  for (Zor32s n : numbers) text += " " + std::to_string(n);
  return text;
}

// Numbers that the query takes: lengths of 16, and for flags, types and factors whatever goes.
std::vector<std::vector<Zor32s>> accepted(const Query& query) {
  std::vector<std::vector<Zor32s>> found;
  const Zor32s candidates[] = {16, 8, 1, 2, 13, 14, 19, 20};
  std::size_t combinations = 1;
  for (std::size_t i = 0; i < query.numbers; ++i) combinations *= std::size(candidates);
  for (std::size_t c = 0; c < combinations && found.size() < 6; ++c) {
    std::vector<Zor32s> numbers;
    for (std::size_t rest = c, i = 0; i < query.numbers; ++i, rest /= std::size(candidates))
      numbers.push_back(candidates[rest % std::size(candidates)]);
    if (ask(query, numbers).status == zorStatusOk) found.push_back(numbers);
  }
  return found;
}

// Powers of two and their neighbours, thirds and other fractions of the range, and what divides it by an element's
// size.
std::vector<Zor32s> limits() {
  std::vector<Zor32s> all;
  for (int bit = 12; bit < 31; ++bit)
    for (Zor32s part : {4, 5, 6, 7})
      for (Zor32s off : {-1, 0, 1}) all.push_back(Zor32s((Zor64s{part} << bit) / 4) + off);
  for (Zor64s divisor = 1; divisor <= 600; ++divisor)
    for (Zor64s range : {Zor64s{1} << 31, Zor64s{1} << 32}) {
      const Zor64s n = range / divisor;
      for (Zor64s off : {-70, -1, 0, 1, 70})
        if (n + off > 0 && n + off <= INT32_MAX) all.push_back(Zor32s(n + off));
    }
  all.push_back(INT32_MAX);
  return all;
}

// A number that the size grows with is at least as many bytes of it; a sum that wrapped is not.
TEST(SizeQueries, RefuseWhat32BitsCannotHold) {
  const auto values = limits();
  int seen = 0;
  for (const Query& query : queries) {
    const auto starts = accepted(query);
    EXPECT_FALSE(starts.empty()) << query.name << " takes none of the numbers that this test tries";
    for (const auto& numbers : starts)
      for (std::size_t at = 0; at < query.numbers; ++at) {
        auto changed = numbers;
        changed[at] = 1 << 12;
        const Answer small = ask(query, numbers), large = ask(query, changed);
        if (large.status != zorStatusOk || large.total() < small.total() + (1 << 12) - numbers[at]) continue;
        ++seen;
        for (Zor32s value : values) {
          changed[at] = value;
          const Answer answer = ask(query, changed);
          bool right = answer.status < 0;
          if (answer.status == zorStatusOk) {
            right = answer.total() >= value;
            for (Zor32s size : answer.sizes) right = right && size >= 0;
          } else {
            for (Zor32s size : answer.sizes) right = right && size == untouched;
          }
          EXPECT_TRUE(right) << described(query, changed) << ": status " << answer.status << ", " << answer.sizes[0];
          if (!right) break;
        }
      }
  }
  EXPECT_GT(seen, 20);
}

}  // namespace
