/* zorcore: the service library beside zorsl9. Aligned memory, processor features, cache size. */
#ifndef ZORCORE_H
#define ZORCORE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Feature bits, as ownGetFeature() and zorGetEnabledCpuFeatures() use them. A bit is set when both the processor
   and the operating system support the feature. */
#define ZOR_CPU_SSE2 0x1ULL
#define ZOR_CPU_SSE42 0x2ULL
#define ZOR_CPU_POPCNT 0x4ULL
#define ZOR_CPU_AVX 0x8ULL
#define ZOR_CPU_AVX2 0x10ULL
#define ZOR_CPU_FMA 0x20ULL
#define ZOR_CPU_BMI1 0x40ULL
#define ZOR_CPU_BMI2 0x80ULL
#define ZOR_CPU_F16C 0x4000ULL

/* size bytes aligned to 64, to be released by zorFree(); null where size is negative or memory is exhausted. */
void* zorMalloc(int32_t size);

/* Releases what zorMalloc() gave; nothing happens for null. */
void zorFree(void* ptr);

/* ptr rounded up to a multiple of alignment, a power of two. */
void* zorAlignPtr(void* ptr, int32_t alignment);

/* Non-zero where all features of mask are available. */
int32_t ownGetFeature(uint64_t mask);

/* All available features. */
uint64_t zorGetEnabledCpuFeatures(void);

/* Writes the size in bytes of the largest data cache. Returns 0; -8 where size is null; -5 where it is unknown. */
int32_t zorGetMaxCacheSizeB(int32_t* size);

#ifdef __cplusplus
}
#endif

#endif
