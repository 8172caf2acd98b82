/** @file
 *  Sorts of numbers and of their indices. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_SORTING_H
#define ZORS_SORTING_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name SortAscend, SortDescend
 *  srcDst in order, by comparison; not stable, no memory beyond some kilobytes of stack.
 *  Up to 9 elements a selection sort: the greatest element (descending: the smallest), the first of equals, is exchanged
 *  with the last one, then the same with one element less; so the places of zeros of both signs are fixed, and those of
 *  NaN, which no comparison finds greater or smaller. From 10 elements on NaN with the sign bit count as lowest and
 *  other NaN as highest; -0 and +0 may stand in any order. No element is ever lost or changed.
 *  Time grows as len * log(len) for every input.
 *  @{ */
ZorStatus zorsSortAscend_8u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsSortAscend_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsSortAscend_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsSortAscend_32s_I(Zor32s* srcDst, Zor32s len);
ZorStatus zorsSortAscend_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsSortAscend_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsSortDescend_8u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsSortDescend_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsSortDescend_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsSortDescend_32s_I(Zor32s* srcDst, Zor32s len);
ZorStatus zorsSortDescend_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsSortDescend_64f_I(Zor64f* srcDst, Zor32s len);
/** @} */

/** @name SortIndexAscend, SortIndexDescend
 *  The same; dstIndex[k] is the place that the element now at srcDst[k] had. What dstIndex held is not read. The order
 *  of indices of equal elements is any, but up to 9 elements that of the exchanges above.
 *  @{ */
ZorStatus zorsSortIndexAscend_8u_I(Zor8u* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexAscend_16s_I(Zor16s* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexAscend_16u_I(Zor16u* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexAscend_32s_I(Zor32s* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexAscend_32f_I(Zor32f* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexAscend_64f_I(Zor64f* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexDescend_8u_I(Zor8u* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexDescend_16s_I(Zor16s* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexDescend_16u_I(Zor16u* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexDescend_32s_I(Zor32s* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexDescend_32f_I(Zor32f* srcDst, Zor32s* dstIndex, Zor32s len);
ZorStatus zorsSortIndexDescend_64f_I(Zor64f* srcDst, Zor32s* dstIndex, Zor32s len);
/** @} */

/** @name SortRadixAscend, SortRadixDescend
 *  srcDst in the order of complete keys: floats by sign and magnitude, NaN with the sign bit lowest, -0 below +0, other
 *  NaN highest, NaN among themselves by their bits. tmp has len elements; what it holds afterwards is not stated.
 *  @{ */
ZorStatus zorsSortRadixAscend_8u_I(Zor8u* srcDst, Zor8u* tmp, Zor32s len);
ZorStatus zorsSortRadixAscend_16s_I(Zor16s* srcDst, Zor16s* tmp, Zor32s len);
ZorStatus zorsSortRadixAscend_16u_I(Zor16u* srcDst, Zor16u* tmp, Zor32s len);
ZorStatus zorsSortRadixAscend_32s_I(Zor32s* srcDst, Zor32s* tmp, Zor32s len);
ZorStatus zorsSortRadixAscend_32u_I(Zor32u* srcDst, Zor32u* tmp, Zor32s len);
ZorStatus zorsSortRadixAscend_32f_I(Zor32f* srcDst, Zor32f* tmp, Zor32s len);
ZorStatus zorsSortRadixAscend_64f_I(Zor64f* srcDst, Zor64f* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_8u_I(Zor8u* srcDst, Zor8u* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_16s_I(Zor16s* srcDst, Zor16s* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_16u_I(Zor16u* srcDst, Zor16u* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_32s_I(Zor32s* srcDst, Zor32s* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_32u_I(Zor32u* srcDst, Zor32u* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_32f_I(Zor32f* srcDst, Zor32f* tmp, Zor32s len);
ZorStatus zorsSortRadixDescend_64f_I(Zor64f* srcDst, Zor64f* tmp, Zor32s len);
/** @} */

/** @name SortRadixIndexAscend, SortRadixIndexDescend
 *  dstIndex[k] is the number of the key that stands at place k in the order of complete keys; equal keys keep their
 *  order, descending too. Key n lies srcStrideBytes * n bytes from src, at any alignment; the stride may have any
 *  value. src stays as it is. tmpIndex has len elements; what it holds afterwards is not stated.
 *  @{ */
ZorStatus zorsSortRadixIndexAscend_8u(const Zor8u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexAscend_16s(const Zor16s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexAscend_16u(const Zor16u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexAscend_32s(const Zor32s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexAscend_32u(const Zor32u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexAscend_32f(const Zor32f* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexDescend_8u(const Zor8u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexDescend_16s(const Zor16s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexDescend_16u(const Zor16u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexDescend_32s(const Zor32s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexDescend_32u(const Zor32u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
ZorStatus zorsSortRadixIndexDescend_32f(const Zor32f* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
