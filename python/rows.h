/* What the layer above the raw functions does once a row of an array: loops in C, with the interpreter's lock released. */
#include <stddef.h>
#include <stdlib.h>
#include <string.h>

typedef ZorStatus (*ZorsPyTransform)(const void* src, void* dst, const void* spec, Zor8u* buffer);

/* A transform of each row; steps are in bytes. */
/* python */ static ZorStatus zorsPyTransformRows(void* transform, const void* spec, const void* src, ptrdiff_t srcStep, void* dst, ptrdiff_t dstStep, ptrdiff_t rows, Zor8u* buffer) {
  for (ptrdiff_t r = 0; r < rows; ++r) {
    const ZorStatus status = ((ZorsPyTransform)transform)((const char*)src + r * srcStep, (char*)dst + r * dstStep, spec, buffer);
    if (status < 0) return status;
  }
  return zorStatusOk;
}

/* Real rows to whole spectra: the half that the transform gives, then its mirror image. */
/* python */ static ZorStatus zorsPyRealToWholeRows(void* transform, void* mirror, const void* spec, const void* src, ptrdiff_t srcStep, void* dst, ptrdiff_t dstStep, ptrdiff_t rows, Zor32s len, Zor8u* buffer) {
  for (ptrdiff_t r = 0; r < rows; ++r) {
    char* const row = (char*)dst + r * dstStep;
    ZorStatus status = ((ZorsPyTransform)transform)((const char*)src + r * srcStep, row, spec, buffer);
    if (status >= 0) status = ((ZorStatus(*)(void*, Zor32s))mirror)(row, len);
    if (status < 0) return status;
  }
  return zorStatusOk;
}
