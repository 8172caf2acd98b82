// zorsThreshold_LT_*, _GT_*, _LTAbs_*, _GTAbs_*, _LTVal_*, _GTVal_*, _LTValGTVal_* of real vectors.
#include "exports/thresholds.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// What becomes of elements; and, where not all levels are valid, the fault of bad ones.
template <class T> struct LT {
  T level;
  template <class V> ZORS_INLINE V operator()(V x) const { return max(x, same(x, level)); }
};
template <class T> struct GT {
  T level;
  template <class V> ZORS_INLINE V operator()(V x) const { return min(x, same(x, level)); }
};

template <class T> ZorStatus negative(T level) { return level < 0 ? zorStatusNegativeThresholdLevel : zorStatusOk; }
template <class T> struct LTAbs {
  T level;
  ZorStatus fault() const { return negative(level); }
  template <class V> ZORS_INLINE V operator()(V x) const {
    const V l = same(x, level);
    if constexpr (std::floating_point<T>)  // the magnitude stands second, and is kept where it is NaN
      return either(max(l, magnitude(x)), signOf(x));
    else
      return select(below(x, same(x, 0)), max(x, l), min(x, sub(same(x, 0), l)));
  }
};
template <class T> struct GTAbs {
  T level;
  ZorStatus fault() const { return negative(level); }
  template <class V> ZORS_INLINE V operator()(V x) const {
    const V l = same(x, level);
    if constexpr (std::floating_point<T>)
      return either(min(magnitude(l), magnitude(x)), signOf(x));  // a level of -0 is 0
    else
      return max(min(x, l), sub(same(x, 0), l));
  }
};

template <class T> struct LTVal {
  T level, value;
  template <class V> ZORS_INLINE V operator()(V x) const { return select(below(x, same(x, level)), x, same(x, value)); }
};
template <class T> struct GTVal {
  T level, value;
  template <class V> ZORS_INLINE V operator()(V x) const {
    if constexpr (std::floating_point<T>)  // NaN is not kept
      return select(notAtLeast(same(x, level), x), x, same(x, value));
    else
      return select(below(same(x, level), x), x, same(x, value));
  }
};
template <class T> struct LTValGTVal {
  T levelLT, valueLT, levelGT, valueGT;
  ZorStatus fault() const { return levelLT > levelGT ? zorStatusThresholdLevelsCrossed : zorStatusOk; }
  template <class V> ZORS_INLINE V operator()(V x) const {
    const V raised = select(below(x, same(x, levelLT)), x, same(x, valueLT));
    return select(below(same(x, levelGT), x), raised, same(x, valueGT));
  }
};

template <class T, class Op> ZorStatus threshold(const T* src, T* dst, Zor32s len, Op op) {
  ZorStatus fault = zorStatusOk;
  if constexpr (requires { op.fault(); }) fault = op.fault();
  return check().pointers(src, dst).size(len).require(fault == zorStatusOk, fault).then([&] {
    map<mapStep<T>>([op](auto x) ZORS_INLINE_LAMBDA { return op(held(x)); }, len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsThreshold_LT_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level) { return threshold(src, dst, len, LT<Zor16s>{level}); }
ZorStatus zorsThreshold_LT_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level) { return threshold(src, dst, len, LT<Zor32s>{level}); }
ZorStatus zorsThreshold_LT_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level) { return threshold(src, dst, len, LT<Zor32f>{level}); }
ZorStatus zorsThreshold_LT_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level) { return threshold(src, dst, len, LT<Zor64f>{level}); }
ZorStatus zorsThreshold_LT_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level) { return threshold(srcDst, srcDst, len, LT<Zor16s>{level}); }
ZorStatus zorsThreshold_LT_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level) { return threshold(srcDst, srcDst, len, LT<Zor32s>{level}); }
ZorStatus zorsThreshold_LT_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level) { return threshold(srcDst, srcDst, len, LT<Zor32f>{level}); }
ZorStatus zorsThreshold_LT_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level) { return threshold(srcDst, srcDst, len, LT<Zor64f>{level}); }

ZorStatus zorsThreshold_GT_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level) { return threshold(src, dst, len, GT<Zor16s>{level}); }
ZorStatus zorsThreshold_GT_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level) { return threshold(src, dst, len, GT<Zor32s>{level}); }
ZorStatus zorsThreshold_GT_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level) { return threshold(src, dst, len, GT<Zor32f>{level}); }
ZorStatus zorsThreshold_GT_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level) { return threshold(src, dst, len, GT<Zor64f>{level}); }
ZorStatus zorsThreshold_GT_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level) { return threshold(srcDst, srcDst, len, GT<Zor16s>{level}); }
ZorStatus zorsThreshold_GT_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level) { return threshold(srcDst, srcDst, len, GT<Zor32s>{level}); }
ZorStatus zorsThreshold_GT_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level) { return threshold(srcDst, srcDst, len, GT<Zor32f>{level}); }
ZorStatus zorsThreshold_GT_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level) { return threshold(srcDst, srcDst, len, GT<Zor64f>{level}); }

ZorStatus zorsThreshold_LTAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level) { return threshold(src, dst, len, LTAbs<Zor16s>{level}); }
ZorStatus zorsThreshold_LTAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level) { return threshold(src, dst, len, LTAbs<Zor32s>{level}); }
ZorStatus zorsThreshold_LTAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level) { return threshold(src, dst, len, LTAbs<Zor32f>{level}); }
ZorStatus zorsThreshold_LTAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level) { return threshold(src, dst, len, LTAbs<Zor64f>{level}); }
ZorStatus zorsThreshold_LTAbs_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level) { return threshold(srcDst, srcDst, len, LTAbs<Zor16s>{level}); }
ZorStatus zorsThreshold_LTAbs_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level) { return threshold(srcDst, srcDst, len, LTAbs<Zor32s>{level}); }
ZorStatus zorsThreshold_LTAbs_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level) { return threshold(srcDst, srcDst, len, LTAbs<Zor32f>{level}); }
ZorStatus zorsThreshold_LTAbs_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level) { return threshold(srcDst, srcDst, len, LTAbs<Zor64f>{level}); }

ZorStatus zorsThreshold_GTAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level) { return threshold(src, dst, len, GTAbs<Zor16s>{level}); }
ZorStatus zorsThreshold_GTAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level) { return threshold(src, dst, len, GTAbs<Zor32s>{level}); }
ZorStatus zorsThreshold_GTAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level) { return threshold(src, dst, len, GTAbs<Zor32f>{level}); }
ZorStatus zorsThreshold_GTAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level) { return threshold(src, dst, len, GTAbs<Zor64f>{level}); }
ZorStatus zorsThreshold_GTAbs_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level) { return threshold(srcDst, srcDst, len, GTAbs<Zor16s>{level}); }
ZorStatus zorsThreshold_GTAbs_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level) { return threshold(srcDst, srcDst, len, GTAbs<Zor32s>{level}); }
ZorStatus zorsThreshold_GTAbs_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level) { return threshold(srcDst, srcDst, len, GTAbs<Zor32f>{level}); }
ZorStatus zorsThreshold_GTAbs_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level) { return threshold(srcDst, srcDst, len, GTAbs<Zor64f>{level}); }

ZorStatus zorsThreshold_LTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, Zor16s value) { return threshold(src, dst, len, LTVal<Zor16s>{level, value}); }
ZorStatus zorsThreshold_LTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, Zor32f value) { return threshold(src, dst, len, LTVal<Zor32f>{level, value}); }
ZorStatus zorsThreshold_LTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, Zor64f value) { return threshold(src, dst, len, LTVal<Zor64f>{level, value}); }
ZorStatus zorsThreshold_LTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, Zor16s value) { return threshold(srcDst, srcDst, len, LTVal<Zor16s>{level, value}); }
ZorStatus zorsThreshold_LTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, Zor32f value) { return threshold(srcDst, srcDst, len, LTVal<Zor32f>{level, value}); }
ZorStatus zorsThreshold_LTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, Zor64f value) { return threshold(srcDst, srcDst, len, LTVal<Zor64f>{level, value}); }

ZorStatus zorsThreshold_GTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, Zor16s value) { return threshold(src, dst, len, GTVal<Zor16s>{level, value}); }
ZorStatus zorsThreshold_GTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, Zor32f value) { return threshold(src, dst, len, GTVal<Zor32f>{level, value}); }
ZorStatus zorsThreshold_GTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, Zor64f value) { return threshold(src, dst, len, GTVal<Zor64f>{level, value}); }
ZorStatus zorsThreshold_GTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, Zor16s value) { return threshold(srcDst, srcDst, len, GTVal<Zor16s>{level, value}); }
ZorStatus zorsThreshold_GTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, Zor32f value) { return threshold(srcDst, srcDst, len, GTVal<Zor32f>{level, value}); }
ZorStatus zorsThreshold_GTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, Zor64f value) { return threshold(srcDst, srcDst, len, GTVal<Zor64f>{level, value}); }

ZorStatus zorsThreshold_LTValGTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s levelLT, Zor16s valueLT, Zor16s levelGT, Zor16s valueGT) { return threshold(src, dst, len, LTValGTVal<Zor16s>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s levelLT, Zor32s valueLT, Zor32s levelGT, Zor32s valueGT) { return threshold(src, dst, len, LTValGTVal<Zor32s>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f levelLT, Zor32f valueLT, Zor32f levelGT, Zor32f valueGT) { return threshold(src, dst, len, LTValGTVal<Zor32f>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f levelLT, Zor64f valueLT, Zor64f levelGT, Zor64f valueGT) { return threshold(src, dst, len, LTValGTVal<Zor64f>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s levelLT, Zor16s valueLT, Zor16s levelGT, Zor16s valueGT) { return threshold(srcDst, srcDst, len, LTValGTVal<Zor16s>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_32s_I(Zor32s* srcDst, Zor32s len, Zor32s levelLT, Zor32s valueLT, Zor32s levelGT, Zor32s valueGT) { return threshold(srcDst, srcDst, len, LTValGTVal<Zor32s>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f levelLT, Zor32f valueLT, Zor32f levelGT, Zor32f valueGT) { return threshold(srcDst, srcDst, len, LTValGTVal<Zor32f>{levelLT, valueLT, levelGT, valueGT}); }
ZorStatus zorsThreshold_LTValGTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f levelLT, Zor64f valueLT, Zor64f levelGT, Zor64f valueGT) { return threshold(srcDst, srcDst, len, LTValGTVal<Zor64f>{levelLT, valueLT, levelGT, valueGT}); }
// clang-format on

}  // namespace zors
