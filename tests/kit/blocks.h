// Exports on raw items, called by item size: every member of a family runs through one loop.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/types.h"

namespace kit {

struct BlockMember {
  std::string name;
  int size;  // bytes of an item
  std::function<ZorStatus(const void* src, void* dst, Zor32s len)> call;

  template <class T>
  BlockMember(const char* exportName, ZorStatus (*f)(const T*, T*, Zor32s))
      : name(exportName), size(sizeof(T)), call([f](const void* src, void* dst, Zor32s len) {
          return f(static_cast<const T*>(src), static_cast<T*>(dst), len);
        }) {}
  template <class T>
  BlockMember(const char* exportName, ZorStatus (*f)(T*, Zor32s))
      : name(exportName),
        size(sizeof(T)),
        call([f](const void*, void* dst, Zor32s len) { return f(static_cast<T*>(dst), len); }) {}
  BlockMember(const char* exportName, int itemSize, ZorStatus (*f)(const Zor8u*, Zor8u*, Zor32s))
      : BlockMember(exportName, f) {
    size = itemSize;
  }
  BlockMember(const char* exportName, int itemSize, ZorStatus (*f)(Zor8u*, Zor32s)) : BlockMember(exportName, f) {
    size = itemSize;
  }
};

using Bytes = std::vector<Zor8u>;
inline Bytes anyBytes(std::size_t count, Random& random) { return anyValues<Zor8u>(count, random); }

// Lengths in items: short ones, and those around the sizes in bytes at which kernels change.
inline std::vector<int> blockLengths(int size) {
  std::vector<int> lengths;
  for (int len = 1; len <= 300 / size + 20; ++len) lengths.push_back(len);
  for (int bytes : {384, 511, 512, 513, 640, 1000, 4097})
    if (bytes >= size) lengths.push_back(bytes / size);
  return lengths;
}

// Checks that call(member, src, dst, len) leaves model(source bytes) in dst, wherever source and destination lie.
template <class Model>
void checkBlocks(const BlockMember& member, const std::vector<int>& lengths, const std::vector<std::size_t>& offsets,
                 Model model) {
  Random random(5);
  for (int len : lengths)
    for (Edge edge : bothEdges)
      for (std::size_t offset : offsets) {
        const std::size_t bytes = std::size_t(len) * std::size_t(member.size);
        const Guarded<Zor8u> src(anyBytes(bytes, random), edge, offset * 7 % 32), dst(bytes, edge, offset);
        const Bytes before = src.values();
        const std::string where = member.name + ", len " + std::to_string(len) + ", offset " + std::to_string(offset) +
                                  (edge == Edge::end ? ", at the end" : ", at the begin");
        ASSERT_EQ(member.call(src.data(), dst.data(), len), zorStatusOk) << where;
        ASSERT_EQ(firstDifference<Zor8u>(dst.span(), model(before)), "") << where;
        ASSERT_EQ(src.values(), before) << where << ": source changed";
        ASSERT_TRUE(dst.intact()) << where << ": wrote outside";
      }
}

// The same where the destination is the source.
template <class Model>
void checkBlocksInPlace(const BlockMember& member, const std::vector<int>& lengths,
                        const std::vector<std::size_t>& offsets, Model model) {
  Random random(6);
  for (int len : lengths)
    for (Edge edge : bothEdges)
      for (std::size_t offset : offsets) {
        const Guarded<Zor8u> data(anyBytes(std::size_t(len) * std::size_t(member.size), random), edge, offset);
        const Bytes before = data.values();
        const std::string where =
            member.name + " in place, len " + std::to_string(len) + ", offset " + std::to_string(offset);
        ASSERT_EQ(member.call(data.data(), data.data(), len), zorStatusOk) << where;
        ASSERT_EQ(firstDifference<Zor8u>(data.span(), model(before)), "") << where;
        ASSERT_TRUE(data.intact()) << where << ": wrote outside";
      }
}

// Null pointers, then lengths below 1; nothing is written.
inline void checkBlockContract(const BlockMember& member, bool hasSource) {
  Random random(7);
  const Bytes src = anyBytes(64, random), before = anyBytes(64, random);
  Bytes dst = before;
  for (int bad : {0, -1, INT32_MIN}) {
    EXPECT_EQ(member.call(src.data(), dst.data(), bad), zorStatusBadSize) << member.name;
    EXPECT_EQ(member.call(src.data(), nullptr, bad), zorStatusNullPointer) << member.name;
    if (hasSource) {
      EXPECT_EQ(member.call(nullptr, dst.data(), bad), zorStatusNullPointer) << member.name;
    }
  }
  EXPECT_EQ(member.call(src.data(), nullptr, 2), zorStatusNullPointer) << member.name;
  if (hasSource) {
    EXPECT_EQ(member.call(nullptr, dst.data(), 2), zorStatusNullPointer) << member.name;
  }
  EXPECT_EQ(dst, before) << member.name << " wrote";
}

}  // namespace kit
