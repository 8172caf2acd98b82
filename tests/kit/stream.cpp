#include "kit/stream.h"

#include <algorithm>

#include "kit/guarded.h"

namespace kit::detail {
namespace {

using Bytes = std::vector<Zor8u>;
using Bytewise = Stream<Zor8u, Zor8u>;

enum class Via { process, inPlace, one };

struct Outcome {
  Bytes out, history;
};

// Runs the stream in pieces: next(step) gives the length of the next one and its form.
struct Piece {
  Zor32s steps;
  Via form;
};
Outcome run(const Bytewise& stream, const std::string& what, const std::function<Piece(Zor32s at)>& next) {
  const auto calls = stream.open();
  const Zor32s total = stream.inPerStep == 0 ? stream.steps : Zor32s(stream.input.size()) / stream.inPerStep;
  Outcome outcome;
  int turn = 0;
  for (Zor32s at = 0; at < total && !testing::Test::HasFailure(); ++turn) {
    Piece piece = next(at);
    piece.steps = std::clamp(piece.steps, 1, std::min(total - at, stream.longest));
    const auto inBytes = std::size_t(piece.steps) * std::size_t(stream.inPerStep);
    const auto outBytes = std::size_t(piece.steps) * std::size_t(stream.outPerStep);
    const auto from = stream.input.begin() + std::ptrdiff_t(at) * stream.inPerStep;
    const Bytes input(from, from + std::ptrdiff_t(inBytes));
    const std::string where = what + ", piece of " + std::to_string(piece.steps) + " at " + std::to_string(at);
    const Edge edge = bothEdges[turn % 2];
    if (calls.produce) {
      const Guarded<Zor8u> src(input, edge);
      EXPECT_EQ(calls.produce(src.data(), piece.steps, outcome.out), zorStatusOk) << where;
      EXPECT_TRUE(src.values() == input) << where << ": source changed";
    } else {
      Guarded<Zor8u> dst(outBytes, edge), src(inBytes, edge);
      std::copy(input.begin(), input.end(), src.data());
      if (piece.form == Via::inPlace && calls.inPlace) {
        std::copy(input.begin(), input.end(), dst.data());
        EXPECT_EQ(calls.inPlace(dst.data(), piece.steps), zorStatusOk) << where << ", in place";
      } else if (piece.form == Via::one && calls.one) {
        for (Zor32s i = 0; i < piece.steps; ++i)
          EXPECT_EQ(calls.one(src.data() + std::ptrdiff_t(i) * stream.inPerStep,
                              dst.data() + std::ptrdiff_t(i) * stream.outPerStep),
                    zorStatusOk)
              << where << ", single steps";
      } else {
        EXPECT_EQ(calls.process(src.data(), dst.data(), piece.steps), zorStatusOk) << where;
      }
      EXPECT_TRUE(src.values() == input) << where << ": source changed";
      EXPECT_TRUE(dst.intact() && src.intact()) << where << ": wrote outside";
      outcome.out.insert(outcome.out.end(), dst.data(), dst.data() + outBytes);
    }
    at += piece.steps;
  }
  if (calls.history) outcome.history = calls.history();
  EXPECT_TRUE(!calls.intact || calls.intact()) << what << ": wrote outside the state";
  return outcome;
}

}  // namespace

void checkStream(const Bytewise& stream) {
  const Outcome whole = run(stream, stream.name + ", whole", [](Zor32s) { return Piece{INT32_MAX, Via::process}; });
  const auto check = [&](const std::string& cut, const std::function<Piece(Zor32s at)>& next) {
    if (testing::Test::HasFailure()) return;
    const std::string what = stream.name + ", " + cut;
    const Outcome outcome = run(stream, what, next);
    if (testing::Test::HasFailure()) return;
    stream.expect(outcome.out, whole.out, what);
    EXPECT_TRUE(outcome.history == whole.history) << what << ": another history";
  };
  const auto same = [&](Zor32s steps, Via form) {
    const char* const forms[] = {"", " in place", " by single steps"};
    check("cut into " + std::to_string(steps) + "s" + forms[int(form)], [=](Zor32s) { return Piece{steps, form}; });
  };
  std::vector<Zor32s> lengths = {1, 2, 3, 7, 8, 16, 33};
  lengths.insert(lengths.end(), stream.lengths.begin(), stream.lengths.end());
  for (Zor32s steps : lengths) {
    same(steps, Via::process);
    same(steps, Via::inPlace);
  }
  same(INT32_MAX, Via::inPlace);
  same(INT32_MAX, Via::one);
  for (Zor32s first : lengths)
    check("cut at " + std::to_string(first), [=](Zor32s at) {
      return Piece{at == 0 ? first : INT32_MAX, Via::process};
    });
  for (unsigned seed = 1; seed <= 4; ++seed) {
    Random random(seed);
    check("random cut " + std::to_string(seed), [&](Zor32s) {
      const auto bits = random();
      const auto upTo = Zor32s{1} << (bits >> 32) % 11;
      return Piece{Zor32s(bits % std::uint64_t(upTo)) + 1, Via(bits >> 61 & 1 ? 0 : bits >> 62 & 1 ? 1 : 2)};
    });
  }
}

}  // namespace kit::detail
