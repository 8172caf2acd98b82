#include "kit/elementwise.h"
#include "zors/arithmetic.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;

template <class T> using Vectors = ZorStatus (*)(const T*, const T*, T*, Zor32s);
template <class T> using VectorsInPlace = ZorStatus (*)(const T*, T*, Zor32s);
template <class T> using Constant = ZorStatus (*)(const T*, T, T*, Zor32s);
template <class T> using ConstantInPlace = ZorStatus (*)(T, T*, Zor32s);

// One operation in one width, with vectors and with constants.
template <class T> struct Operation {
  const char* name;
  Vectors<T> vectors;
  VectorsInPlace<T> vectorsInPlace;
  Constant<T> constant;
  ConstantInPlace<T> constantInPlace;
  T (*model)(T, T);
};
template <class T> T bitAnd(T a, T b) { return a & b; }
template <class T> T bitOr(T a, T b) { return a | b; }
template <class T> T bitXor(T a, T b) { return a ^ b; }

constexpr Operation<Zor8u> operations8u[] = {
    {"And 8u", zorsAnd_8u, zorsAnd_8u_I, zorsAndC_8u, zorsAndC_8u_I, bitAnd},
    {"Or 8u", zorsOr_8u, zorsOr_8u_I, zorsOrC_8u, zorsOrC_8u_I, bitOr},
    {"Xor 8u", zorsXor_8u, zorsXor_8u_I, zorsXorC_8u, zorsXorC_8u_I, bitXor},
};
constexpr Operation<Zor16u> operations16u[] = {
    {"And 16u", zorsAnd_16u, zorsAnd_16u_I, zorsAndC_16u, zorsAndC_16u_I, bitAnd},
    {"Or 16u", zorsOr_16u, zorsOr_16u_I, zorsOrC_16u, zorsOrC_16u_I, bitOr},
    {"Xor 16u", zorsXor_16u, zorsXor_16u_I, zorsXorC_16u, zorsXorC_16u_I, bitXor},
};
constexpr Operation<Zor32u> operations32u[] = {
    {"And 32u", zorsAnd_32u, zorsAnd_32u_I, zorsAndC_32u, zorsAndC_32u_I, bitAnd},
    {"Or 32u", zorsOr_32u, zorsOr_32u_I, zorsOrC_32u, zorsOrC_32u_I, bitOr},
    {"Xor 32u", zorsXor_32u, zorsXor_32u_I, zorsXorC_32u, zorsXorC_32u_I, bitXor},
};

template <class Test> void forEachOperation(Test test) {
  for (const auto& operation : operations8u) test(operation);
  for (const auto& operation : operations16u) test(operation);
  for (const auto& operation : operations32u) test(operation);
}

TEST(Logic, CombinesTwoVectorsBitByBit) {
  forEachOperation([]<class T>(const Operation<T>& op) {
    sweep<T, T, T>(op.name, op.vectors, op.model);
    sweepInPlace<T, T>(op.name, op.vectorsInPlace, op.model);
  });
}

TEST(Logic, CombinesAVectorAndAConstantBitByBit) {
  forEachOperation([]<class T>(const Operation<T>& op) {
    for (T val : {T(0), T(1), T(0x5A), T(~T{0}), T(T{1} << (8 * sizeof(T) - 1)), T(0x123456789ABCDEF0)}) {
      const auto model = [&op, val](T x) { return op.model(x, val); };
      const std::string name = std::string(op.name) + "C with " + std::to_string(val);
      sweep<T, T>(
          name, [&op, val](const T* src, T* dst, Zor32s len) { return op.constant(src, val, dst, len); }, model);
      sweepInPlace<T>(
          name, [&op, val](T* srcDst, Zor32s len) { return op.constantInPlace(val, srcDst, len); }, model);
    }
  });
}

TEST(Logic, ChecksPointersThenLength) {
  forEachOperation([]<class T>(const Operation<T>& op) {
    const std::vector<T> a(8, T(1)), b(8, T(2));
    std::vector<T> dst(8, T(3));
    kit::Contract(op.vectors, a.data(), b.data(), dst.data(), 8)
        .template null<0>()
        .template null<1>()
        .template null<2>()
        .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(dst)
        .verify(op.name);
    kit::Contract(op.vectorsInPlace, a.data(), dst.data(), 8)
        .template null<0>()
        .template null<1>()
        .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(dst)
        .verify(op.name);
    for (T val : {T(0), T(5)}) {
      kit::Contract(op.constant, a.data(), val, dst.data(), 8)
          .template null<0>()
          .template null<2>()
          .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
          .untouched(dst)
          .verify(op.name);
      kit::Contract(op.constantInPlace, val, dst.data(), 8)
          .template null<1>()
          .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
          .untouched(dst)
          .verify(op.name);
    }
  });
}

TEST(Logic, AndCWithZeroStillRefusesANullSourceOrDestination) {
  Zor8u data[5] = {1, 2, 3, 4, 5};
  EXPECT_EQ(zorsAndC_8u(nullptr, 0, data, 5), zorStatusNullPointer);
  EXPECT_EQ(zorsAndC_8u(data, 0, nullptr, 5), zorStatusNullPointer);
  EXPECT_EQ(data[0], 1);
}

template <class T> T complement(T x) { return T(~x); }
template <class T> void complements(const char* name, VectorsInPlace<T> function, ZorStatus (*inPlace)(T*, Zor32s)) {
  sweep<T, T>(name, function, complement<T>);
  sweepInPlace<T>(name, inPlace, complement<T>);
  const std::vector<T> src(8, T(1));
  std::vector<T> dst(8, T(3));
  kit::Contract(function, src.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, dst.data(), 8)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
TEST(Not, ComplementsEachElement) {
  complements<Zor8u>("Not 8u", zorsNot_8u, zorsNot_8u_I);
  complements<Zor16u>("Not 16u", zorsNot_16u, zorsNot_16u_I);
  complements<Zor32u>("Not 32u", zorsNot_32u, zorsNot_32u_I);
}

}  // namespace
