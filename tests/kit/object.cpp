#include "kit/object.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>

#include "kit/guarded.h"
#include "kit/services.h"

namespace kit::detail {
namespace {

using Bytes = std::vector<Zor8u>;
void* const untouched = reinterpret_cast<void*>(std::uintptr_t{64});

struct Sizes {
  Zor32s block = 0, init = 0, work = 0;
};
Sizes sizesOf(const Object<void>& object) {
  Sizes sizes;
  if (object.getSize) {
    EXPECT_EQ(object.getSize(&sizes.block, &sizes.init, &sizes.work), zorStatusOk);
  }
  EXPECT_TRUE(sizes.block >= 0 && sizes.init >= 0 && sizes.work >= 0);
  return sizes;
}

// What run() leaves in outputs that held something else before.
Bytes outputsOf(const Object<void>& object, void* made, Zor8u* work, const std::string& what) {
  const Guarded<Zor8u> out(object.outBytes, Edge::end);
  EXPECT_EQ(object.run(made, work, out.data()), zorStatusOk) << what;
  EXPECT_TRUE(out.intact()) << what << ": wrote outside its outputs";
  return out.values();
}

// An object in memory of exactly the reported sizes, `away` bytes from the edge.
class Built {
 public:
  Built(const Object<void>& object, Edge edge, std::size_t away, int contents)
      : sizes_(sizesOf(object)),
        block_(std::size_t(sizes_.block), edge, away),
        work_(std::size_t(sizes_.work), edge, (away * 5 + 3) % 64) {
    std::memset(block_.data(), contents, block_.size());
    std::memset(work_.data(), contents, work_.size());
    const Guarded<Zor8u> init(std::size_t(sizes_.init), edge, (away * 3 + 1) % 64);
    std::memset(init.data(), contents, init.size());
    const ServicesScope services;
    const bool without = init.size() == 0 && away % 2 == 0;
    EXPECT_EQ(object.init(&made_, block_.data(), without ? nullptr : init.data()), zorStatusOk);
    EXPECT_EQ(services->allocations, 0) << "Init allocated";
    EXPECT_TRUE(init.intact() && block_.intact()) << "Init wrote outside";
    const auto* at = static_cast<Zor8u*>(made_);
    EXPECT_TRUE(at >= block_.data() && at < block_.data() + block_.size()) << "the object lies outside its block";
    std::memset(init.data(), ~contents, init.size());  // nobody's any more
  }
  void* made() const { return made_; }
  Zor8u* work() const { return work_.data(); }
  Bytes block() const { return block_.values(); }
  bool intact() const { return block_.intact() && work_.intact(); }

 private:
  Sizes sizes_;
  Guarded<Zor8u> block_, work_;
  void* made_ = nullptr;
};

void fitsItsBlockAnywhere(const Object<void>& object, std::optional<Bytes> wanted) {
  for (Edge edge : bothEdges)
    for (std::size_t away = 0; away < 64; ++away) {
      const std::string what =
          "block " + std::to_string(away) + " bytes from the page" + (edge == Edge::end ? " behind it" : " before it");
      const Built built(object, edge, away, away % 3 == 0 ? 0 : away % 3 == 1 ? 0xFF : 0x5A);
      const Bytes before = built.block();
      const ServicesScope services;
      const Bytes out = outputsOf(object, built.made(), built.work(), what);
      EXPECT_TRUE(object.runAllocates || services->allocations == 0) << what << ": allocated beside a work buffer";
      EXPECT_EQ(services.leaked(), 0) << what;
      ASSERT_TRUE(built.intact()) << what << ": wrote outside";
      EXPECT_TRUE(!object.immutable || built.block() == before) << what << ": a call changed the object";
      if (!wanted) wanted = out;
      ASSERT_TRUE(out == *wanted) << what << ": other results";
    }
}

// Without a vital one there is no object and nothing is kept; without another the object works in another way.
void failsAtEachAllocation(const Object<void>& object) {
  void* made = nullptr;
  long allocations = 0;
  {
    const ServicesScope services;
    ASSERT_EQ(object.initAlloc(&made), zorStatusOk);
    allocations = services->allocations;
    EXPECT_EQ(object.free(made), zorStatusOk);
    EXPECT_EQ(services.leaked(), 0) << "Free kept memory";
  }
  for (int n = 0; n < allocations; ++n) {
    const ServicesScope services;
    services->failAt = n;
    made = untouched;
    const ZorStatus status = object.initAlloc(&made);
    if (n < object.vitalAllocations) {
      EXPECT_EQ(status, zorStatusNoMemory) << "allocation " << n;
      EXPECT_EQ(made, untouched) << "allocation " << n << ": a failed InitAlloc wrote the pointer";
    } else {
      ASSERT_EQ(status, zorStatusOk) << "allocation " << n;
      outputsOf(object, made, nullptr, "built without allocation " + std::to_string(n));
      EXPECT_EQ(object.free(made), zorStatusOk);
    }
    EXPECT_EQ(services.leaked(), 0) << "allocation " << n << " failed: memory kept";
  }
}

// Calls without a work buffer: each failing allocation leaves outputs and object alone.
void runFailsAtEachAllocation(const Object<void>& object, const std::function<void*()>& build,
                              const std::function<void(void*)>& drop, const std::function<Bytes(void*)>& contents) {
  const Bytes before(object.outBytes, 0x5A);
  for (int n = 0;; ++n) {
    void* const made = build();
    const Bytes was = contents(made);
    Bytes out = before;
    long live = 0;
    bool failed = false;
    ZorStatus status = zorStatusOk;
    {
      const ServicesScope services;
      services->failAt = n;
      status = object.run(made, nullptr, out.data());
      failed = services->failAt < 0;
      live = services.leaked();
    }
    EXPECT_EQ(live, 0) << "a call kept memory";
    EXPECT_EQ(status, failed ? zorStatusNoMemory : zorStatusOk) << "allocation " << n << " of a call";
    if (failed) {
      EXPECT_TRUE(out == before) << "allocation " << n << " of a call: outputs written";
      EXPECT_TRUE(contents(made) == was) << "allocation " << n << " of a call: object written";
    }
    drop(made);
    if (!failed || testing::Test::HasFailure()) return;
  }
}

// What a wrong Free releases is still looked at: the caller's scope keeps it.
void refusesForeignTags(const Object<void>& object, void* made, const std::function<Bytes()>& contents) {
  Zor32u own = 0;
  std::memcpy(&own, made, 4);
  std::vector<Zor32u> foreign = {0, ~Zor32u{0}, own + 1, own - 1, own ^ 0x80000000u, own ^ 0x100u, ~own};
  for (Zor32u tag = 1; tag < 32; ++tag) foreign.push_back(tag);
  for (Zor32u tag : foreign) {
    if (tag == own || std::find(object.tags.begin(), object.tags.end(), tag) != object.tags.end()) continue;
    std::memcpy(made, &tag, 4);
    const Bytes before = contents();
    Bytes out(object.outBytes, 0x5A);
    const Bytes outBefore = out;
    EXPECT_EQ(object.run(made, nullptr, out.data()), zorStatusBadContext) << "run, tag " << tag;
    EXPECT_TRUE(out == outBefore) << "run, tag " << tag << ": outputs written";
    for (const auto& operation : object.operations)
      EXPECT_EQ(operation.call(made), zorStatusBadContext) << operation.name << ", tag " << tag;
    if (object.free) {
      EXPECT_EQ(object.free(made), zorStatusBadContext) << "Free, tag " << tag;
    }
    EXPECT_TRUE(contents() == before) << "tag " << tag << ": object written";
  }
  std::memcpy(made, &own, 4);
  for (const auto& operation : object.operations)
    EXPECT_EQ(operation.call(made), zorStatusOk) << operation.name << " with the object's own tag";
}

void freesTwice(const Object<void>& object) {
  {
    const ServicesScope services;
    services->keepFreed = true;
    void* made = nullptr;
    ASSERT_EQ(object.initAlloc(&made), zorStatusOk);
    ASSERT_EQ(object.free(made), zorStatusOk);
    EXPECT_EQ(services.leaked(), 0) << "Free kept memory";
    EXPECT_EQ(object.free(made), zorStatusBadContext) << "a second Free";
    EXPECT_EQ(services.leaked(), 0) << "a second Free released again";
  }
  EXPECT_EQ(object.free(nullptr), zorStatusNullPointer);
}
void freesNothingOfTheCallers(const Object<void>& object) {
  const Built built(object, Edge::end, 5, 0x5A);
  const Bytes before = built.block();
  const ServicesScope services;
  EXPECT_EQ(object.free(built.made()), zorStatusOk);
  EXPECT_EQ(services->live, 0) << "Free released a caller's block";
  if (object.freeInCallersBlock == FreeInCallersBlock::doesNothing) {
    EXPECT_TRUE(built.block() == before) << "Free wrote into a caller's block";
    EXPECT_EQ(object.free(built.made()), zorStatusOk);
  } else {
    EXPECT_EQ(object.free(built.made()), zorStatusBadContext) << "a second Free";
  }
}

}  // namespace

void checkObject(const Object<void>& object) {
  const testing::ScopedTrace trace(__FILE__, __LINE__, object.name);
  std::optional<Bytes> wanted;
  if (object.initAlloc) {
    void* made = nullptr;
    ASSERT_EQ(object.initAlloc(&made), zorStatusOk);
    wanted = outputsOf(object, made, nullptr, "built by InitAlloc");
    EXPECT_EQ(object.free(made), zorStatusOk);
    failsAtEachAllocation(object);
    freesTwice(object);
    {
      const ServicesScope services;
      services->keepFreed = true;
      ASSERT_EQ(object.initAlloc(&made), zorStatusOk);
      refusesForeignTags(object, made, [] { return Bytes(); });
      EXPECT_EQ(object.free(made), zorStatusOk);
    }
    runFailsAtEachAllocation(
        object,
        [&] {
          void* fresh = nullptr;
          EXPECT_EQ(object.initAlloc(&fresh), zorStatusOk);
          return fresh;
        },
        [&](void* done) { EXPECT_EQ(object.free(done), zorStatusOk); }, [](void*) { return Bytes(); });
  }
  if (testing::Test::HasFailure()) return;
  if (object.init) {
    fitsItsBlockAnywhere(object, wanted);
    const Built built(object, Edge::end, 1, 0);
    {
      const ServicesScope services;
      services->keepFreed = true;
      refusesForeignTags(object, built.made(), [&] { return built.block(); });
    }
    if (object.free) freesNothingOfTheCallers(object);
    std::optional<Built> current;
    runFailsAtEachAllocation(
        object, [&] { return current.emplace(object, Edge::begin, 2u, 0xFF).made(); }, [&](void*) { current.reset(); },
        [&](void*) { return current->block(); });
  }
}

}  // namespace kit::detail
