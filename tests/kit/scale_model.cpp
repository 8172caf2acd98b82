#include "kit/scale_model.h"

namespace scale {

const std::vector<Zor32s>& allScales() {
  static const std::vector<Zor32s> all = [] {
    std::vector<Zor32s> scales = {INT32_MIN, INT32_MIN + 1, -1000, 127, 128, 1000, INT32_MAX};
    for (Zor32s s = -70; s <= 70; ++s) scales.push_back(s);
    return scales;
  }();
  return all;
}

void forScales(const std::function<void(Zor32s scaleFactor, const std::vector<int>& lengths)>& run) {
  for (Zor32s s : allScales()) run(s, kit::fewLengths());
  for (Zor32s s : mainScales) run(s, kit::sweepLengths());
}

namespace detail {

void sweepScales(const Member& member) {
  struct Scaled {
    const Member& member;
    Zor32s scaleFactor;
  };
  forScales([&](Zor32s s, const std::vector<int>& lengths) {
    Scaled scaled{member, s};
    kit::detail::sweep({at(member.name, s), member.sources, member.destination, member.inPlace, &scaled,
                        [](void* context, const void* const* src, void* dst, Zor32s len) {
                          const auto& [of, scaleFactor] = *static_cast<Scaled*>(context);
                          return of.call(of.callContext, src, dst, len, scaleFactor);
                        },
                        &scaled,
                        [](void* context, const void* const* src, void* wanted, std::size_t count) {
                          const auto& [of, scaleFactor] = *static_cast<Scaled*>(context);
                          of.model(of.modelContext, scaleFactor, src, wanted, count);
                        }},
                       lengths);
  });
}

void sweepConstants(const ConstantMember& member, const std::vector<Argument>& constants) {
  struct Scaled {
    const ConstantMember& member;
    const void* val;
    Zor32s scaleFactor;
  };
  const auto run = [&](const Argument& val, Zor32s s, const std::vector<int>& lengths) {
    Scaled scaled{member, val.bytes, s};
    const auto model = [](void* context, const void* const* src, void* wanted, std::size_t count) {
      const auto& [of, constant, scaleFactor] = *static_cast<Scaled*>(context);
      of.model(of.modelContext, constant, scaleFactor, src[0], wanted, count);
    };
    kit::detail::sweep({at(member.name, s),
                        {member.type},
                        member.type,
                        false,
                        &scaled,
                        [](void* context, const void* const* src, void* dst, Zor32s len) {
                          const auto& [of, constant, scaleFactor] = *static_cast<Scaled*>(context);
                          return of.callOutOfPlace(of.outOfPlace, constant, src[0], dst, len, scaleFactor);
                        },
                        &scaled,
                        model},
                       lengths);
    kit::detail::sweep({at(member.name, s),
                        {member.type},
                        member.type,
                        true,
                        &scaled,
                        [](void* context, const void* const*, void* dst, Zor32s len) {
                          const auto& [of, constant, scaleFactor] = *static_cast<Scaled*>(context);
                          return of.callInPlace(of.inPlace, constant, dst, len, scaleFactor);
                        },
                        &scaled,
                        model},
                       lengths);
  };
  int turn = 0;
  for (const Argument& val : constants)  // a few lengths and alignments for some, one array of any values for each
    for (Zor32s s : allScales()) run(val, s, ++turn % 16 == 0 ? kit::fewLengths() : std::vector<int>{203});
  for (Zor32s s : mainScales) run(constants[2], s, kit::sweepLengths());
}

namespace {
void compareAtAllScales(const Member& member, const void* a, const void* b, std::size_t count) {
  const void* const src[] = {a, b};
  std::vector<Zor8u> got(count * member.destination->size), wanted(got.size());
  for (Zor32s s : allScales()) {
    member.model(member.modelContext, s, src, wanted.data(), count);
    ASSERT_EQ(member.call(member.callContext, src, got.data(), Zor32s(count), s), zorStatusOk);
    ASSERT_EQ(member.destination->difference(got.data(), wanted.data(), count, kit::Nan::anyPayload), "")
        << at(member.name, s);
  }
}
}  // namespace

void longVectors(const Member& member, std::size_t count) {
  kit::Random random(3);
  std::vector<Zor8u> a(count * member.sources[0]->size), b(count * member.sources[1]->size);
  member.sources[0]->fill(a.data(), count, random);
  member.sources[1]->fill(b.data(), count, random);
  compareAtAllScales(member, a.data(), b.data(), count);
}

void allPairs(const Member& member) {
  std::vector<Zor8u> a(65536), b(65536);
  for (std::size_t i = 0; i < 65536; ++i) {
    a[i] = Zor8u(i);
    b[i] = Zor8u(i >> 8);
  }
  compareAtAllScales(member, a.data(), b.data(), 65536);
}

void contract(First first, const char* name, Function f, kit::detail::Invoke invoke,
              const std::vector<Parameter>& parameters) {
  std::size_t lengthAt = 0;
  for (std::size_t i = 0; i < parameters.size(); ++i)
    if (parameters[i].isPointer) lengthAt = i + 1;
  const Parameter& length = parameters[lengthAt];
  for (int constant : {0, 3})
    for (Zor32s scaleFactor : {0, 7, 100, -100}) {
      std::vector<std::max_align_t> memory(64);
      std::vector<Argument> good;
      for (std::size_t i = 0; i < parameters.size(); ++i)
        good.push_back(parameters[i].isPointer      ? kit::detail::argument(memory.data())
                       : i < lengthAt               ? parameters[i].number(constant)
                       : i == lengthAt              ? length.number(8)
                       : i + 1 == parameters.size() ? parameters[i].number(scaleFactor)
                                                    : parameters[i].number(0));
      kit::detail::AnyContract test(f, invoke, good);
      const auto addLength = [&] {
        for (int bad : {0, -1, INT32_MIN})
          if (bad == 0 || length.isSigned) test.bad(lengthAt, length.number(bad), zorStatusBadSize);
      };
      if (first == First::length) addLength();
      for (std::size_t i = 0; i < parameters.size(); ++i)
        if (parameters[i].isPointer) test.bad(i, {}, zorStatusNullPointer);
      if (first == First::pointers) addLength();
      test.untouched(memory.data(), memory.size() * sizeof(std::max_align_t));
      test.verify(at(name, scaleFactor));
    }
}

}  // namespace detail
}  // namespace scale
