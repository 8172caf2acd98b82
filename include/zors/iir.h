/** @file
 *  IIR filters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_IIR_H
#define ZORS_IIR_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZorIIRState ZorIIRState;

/** @name IIR states
 *  State of a recursive filter. Order N: y[i] = sum of b[k] x[i-k], k = 0..N, less the sum of a[k] y[i-k], k = 1..N;
 *  BiQuad: numBq sections of order 2, one after the other. Taps: b[0], ..., b[N], a[0], ..., a[N]; of each section b0,
 *  b1, b2, a0, a1, a2. Names: zorsIIR<taps>_<samples>, one type where they agree. 32f_16s, 32fc_16sc, 32s_16s and
 *  32sc_16sc compute in binary32, 64f_* and 64fc_* in binary64. Integer taps are converted to floats and multiplied by
 *  2^-tapsFactor, drawn in to -96..126 (of FIR filters the factor has the other sign); 32s_16s32f and 32sc_16sc32fc are
 *  the same state from float taps. GetStateSize writes the bytes of the state. Init builds it inside buffer (any
 *  alignment) and writes its address to state; InitAlloc allocates it; Free releases what InitAlloc allocated. SetTaps
 *  replaces the taps; order and registers stay. All taps are multiplied by 1 / a0, rounded, before they are stored.
 *  dly, null for zeros, holds the registers of the transposed second form, d[0], ..., d[N-1], of a cascade two a
 *  section, in the type of the arithmetic: after y = b[0] x + d[0], d[i] = d[i+1] + b[i+1] x - a[i+1] y. The DF1 kinds
 *  are sections in the first direct form, y = b0 x + b1 x1 + b2 x2 - a1 y1 - a2 y2, with registers x1, x2, y1, y2 a
 *  section; those of 64f_DF1_32s are integers for the caller and doubles inside, rounded by GetDlyLine only, to
 *  nearest, ties to even, saturated. SetDlyLine with a null dly sets zeros. States of BiQuad_DF1_32f go to all functions
 *  of 32f; those of 64f_BiQuad_DF1_32s to all of 64f_32s but GetDlyLine64f_32s and SetDlyLine64f_32s, whose place the
 *  DF1 pair takes, which refuses other states.
 *  Checks: pointers; then order or numBq below 1, zorStatusBadFilterOrder, or the state's tag; zorStatusNoMemory, of
 *  InitAlloc, of a size beyond 32 bits, and where integer taps need an array of the call; zorStatusDivideByZero where an a0 is zero, or in a
 *  cascade a b0, but in BiQuad_DF1_32f. None of these writes anything; Init of integer taps allocates, no other does.
 *  @{ */
ZorStatus zorsIIRGetStateSize_32f(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize_32fc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize_64f(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize_64fc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize_BiQuad_32f(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize_BiQuad_32fc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize_BiQuad_64f(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize_BiQuad_64fc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize_BiQuad_DF1_32f(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize32f_16s(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize32f_BiQuad_16s(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize32fc_16sc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize32fc_BiQuad_16sc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize32s_16s(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize32s_16s32f(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize32s_BiQuad_16s(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize32s_BiQuad_16s32f(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize32sc_16sc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize32sc_16sc32fc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize32sc_BiQuad_16sc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize32sc_BiQuad_16sc32fc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_16s(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_32f(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_32s(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_BiQuad_16s(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_BiQuad_32f(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_BiQuad_32s(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64f_BiQuad_DF1_32s(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64fc_16sc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize64fc_32fc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize64fc_32sc(Zor32s order, Zor32s* size);
ZorStatus zorsIIRGetStateSize64fc_BiQuad_16sc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64fc_BiQuad_32fc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRGetStateSize64fc_BiQuad_32sc(Zor32s numBq, Zor32s* size);
ZorStatus zorsIIRInit_32f(ZorIIRState** state, const Zor32f* taps, Zor32s order, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit_32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s order, const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsIIRInit_64f(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit_64fc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly, Zor8u* buffer);
ZorStatus zorsIIRInit_BiQuad_32f(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly,
                                 Zor8u* buffer);
ZorStatus zorsIIRInit_BiQuad_32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s numBq, const Zor32fc* dly,
                                  Zor8u* buffer);
ZorStatus zorsIIRInit_BiQuad_64f(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly,
                                 Zor8u* buffer);
ZorStatus zorsIIRInit_BiQuad_64fc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly,
                                  Zor8u* buffer);
ZorStatus zorsIIRInit_BiQuad_DF1_32f(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly,
                                     Zor8u* buffer);
ZorStatus zorsIIRInit32f_16s(ZorIIRState** state, const Zor32f* taps, Zor32s order, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit32f_BiQuad_16s(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly,
                                    Zor8u* buffer);
ZorStatus zorsIIRInit32fc_16sc(ZorIIRState** state, const Zor32fc* taps, Zor32s order, const Zor32fc* dly,
                               Zor8u* buffer);
ZorStatus zorsIIRInit32fc_BiQuad_16sc(ZorIIRState** state, const Zor32fc* taps, Zor32s numBq, const Zor32fc* dly,
                                      Zor8u* buffer);
ZorStatus zorsIIRInit32s_16s(ZorIIRState** state, const Zor32s* taps, Zor32s order, Zor32s tapsFactor,
                             const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit32s_16s32f(ZorIIRState** state, const Zor32f* taps, Zor32s order, const Zor32f* dly,
                                Zor8u* buffer);
ZorStatus zorsIIRInit32s_BiQuad_16s(ZorIIRState** state, const Zor32s* taps, Zor32s numBq, Zor32s tapsFactor,
                                    const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit32s_BiQuad_16s32f(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly,
                                       Zor8u* buffer);
ZorStatus zorsIIRInit32sc_16sc(ZorIIRState** state, const Zor32sc* taps, Zor32s order, Zor32s tapsFactor,
                               const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsIIRInit32sc_16sc32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s order, const Zor32fc* dly,
                                   Zor8u* buffer);
ZorStatus zorsIIRInit32sc_BiQuad_16sc(ZorIIRState** state, const Zor32sc* taps, Zor32s numBq, Zor32s tapsFactor,
                                      const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsIIRInit32sc_BiQuad_16sc32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s numBq, const Zor32fc* dly,
                                          Zor8u* buffer);
ZorStatus zorsIIRInit64f_16s(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit64f_32f(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit64f_32s(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsIIRInit64f_BiQuad_16s(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly,
                                    Zor8u* buffer);
ZorStatus zorsIIRInit64f_BiQuad_32f(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly,
                                    Zor8u* buffer);
ZorStatus zorsIIRInit64f_BiQuad_32s(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly,
                                    Zor8u* buffer);
ZorStatus zorsIIRInit64f_BiQuad_DF1_32s(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor32s* dly,
                                        Zor8u* buffer);
ZorStatus zorsIIRInit64fc_16sc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly,
                               Zor8u* buffer);
ZorStatus zorsIIRInit64fc_32fc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly,
                               Zor8u* buffer);
ZorStatus zorsIIRInit64fc_32sc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly,
                               Zor8u* buffer);
ZorStatus zorsIIRInit64fc_BiQuad_16sc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly,
                                      Zor8u* buffer);
ZorStatus zorsIIRInit64fc_BiQuad_32fc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly,
                                      Zor8u* buffer);
ZorStatus zorsIIRInit64fc_BiQuad_32sc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly,
                                      Zor8u* buffer);
ZorStatus zorsIIRInitAlloc_32f(ZorIIRState** state, const Zor32f* taps, Zor32s order, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc_32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s order, const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc_64f(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc_64fc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc_BiQuad_32f(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc_BiQuad_32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s numBq, const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc_BiQuad_64f(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc_BiQuad_64fc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc_BiQuad_DF1_32f(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32f_16s(ZorIIRState** state, const Zor32f* taps, Zor32s order, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32f_BiQuad_16s(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32fc_16sc(ZorIIRState** state, const Zor32fc* taps, Zor32s order, const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc32fc_BiQuad_16sc(ZorIIRState** state, const Zor32fc* taps, Zor32s numBq, const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc32s_16s(ZorIIRState** state, const Zor32s* taps, Zor32s order, Zor32s tapsFactor,
                                  const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32s_16s32f(ZorIIRState** state, const Zor32f* taps, Zor32s order, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32s_BiQuad_16s(ZorIIRState** state, const Zor32s* taps, Zor32s numBq, Zor32s tapsFactor,
                                         const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32s_BiQuad_16s32f(ZorIIRState** state, const Zor32f* taps, Zor32s numBq, const Zor32f* dly);
ZorStatus zorsIIRInitAlloc32sc_16sc(ZorIIRState** state, const Zor32sc* taps, Zor32s order, Zor32s tapsFactor,
                                    const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc32sc_16sc32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s order, const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc32sc_BiQuad_16sc(ZorIIRState** state, const Zor32sc* taps, Zor32s numBq, Zor32s tapsFactor,
                                           const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc32sc_BiQuad_16sc32fc(ZorIIRState** state, const Zor32fc* taps, Zor32s numBq,
                                               const Zor32fc* dly);
ZorStatus zorsIIRInitAlloc64f_16s(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc64f_32f(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc64f_32s(ZorIIRState** state, const Zor64f* taps, Zor32s order, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc64f_BiQuad_16s(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc64f_BiQuad_32f(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc64f_BiQuad_32s(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor64f* dly);
ZorStatus zorsIIRInitAlloc64f_BiQuad_DF1_32s(ZorIIRState** state, const Zor64f* taps, Zor32s numBq, const Zor32s* dly);
ZorStatus zorsIIRInitAlloc64fc_16sc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc64fc_32fc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc64fc_32sc(ZorIIRState** state, const Zor64fc* taps, Zor32s order, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc64fc_BiQuad_16sc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc64fc_BiQuad_32fc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly);
ZorStatus zorsIIRInitAlloc64fc_BiQuad_32sc(ZorIIRState** state, const Zor64fc* taps, Zor32s numBq, const Zor64fc* dly);
ZorStatus zorsIIRFree_32f(ZorIIRState* state);
ZorStatus zorsIIRFree_32fc(ZorIIRState* state);
ZorStatus zorsIIRFree_64f(ZorIIRState* state);
ZorStatus zorsIIRFree_64fc(ZorIIRState* state);
ZorStatus zorsIIRFree32f_16s(ZorIIRState* state);
ZorStatus zorsIIRFree32fc_16sc(ZorIIRState* state);
ZorStatus zorsIIRFree32s_16s(ZorIIRState* state);
ZorStatus zorsIIRFree32sc_16sc(ZorIIRState* state);
ZorStatus zorsIIRFree64f_16s(ZorIIRState* state);
ZorStatus zorsIIRFree64f_32f(ZorIIRState* state);
ZorStatus zorsIIRFree64f_32s(ZorIIRState* state);
ZorStatus zorsIIRFree64fc_16sc(ZorIIRState* state);
ZorStatus zorsIIRFree64fc_32fc(ZorIIRState* state);
ZorStatus zorsIIRFree64fc_32sc(ZorIIRState* state);
ZorStatus zorsIIRSetTaps_32f(const Zor32f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps_32fc(const Zor32fc* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps_64f(const Zor64f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps_64fc(const Zor64fc* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps32f_16s(const Zor32f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps32fc_16sc(const Zor32fc* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps32s_16s(const Zor32s* taps, ZorIIRState* state, Zor32s tapsFactor);
ZorStatus zorsIIRSetTaps32s_16s32f(const Zor32f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps32sc_16sc(const Zor32sc* taps, ZorIIRState* state, Zor32s tapsFactor);
ZorStatus zorsIIRSetTaps32sc_16sc32fc(const Zor32fc* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps64f_16s(const Zor64f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps64f_32f(const Zor64f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps64f_32s(const Zor64f* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps64fc_16sc(const Zor64fc* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps64fc_32fc(const Zor64fc* taps, ZorIIRState* state);
ZorStatus zorsIIRSetTaps64fc_32sc(const Zor64fc* taps, ZorIIRState* state);
ZorStatus zorsIIRGetDlyLine_32f(const ZorIIRState* state, Zor32f* dly);
ZorStatus zorsIIRGetDlyLine_32fc(const ZorIIRState* state, Zor32fc* dly);
ZorStatus zorsIIRGetDlyLine_64f(const ZorIIRState* state, Zor64f* dly);
ZorStatus zorsIIRGetDlyLine_64fc(const ZorIIRState* state, Zor64fc* dly);
ZorStatus zorsIIRGetDlyLine32f_16s(const ZorIIRState* state, Zor32f* dly);
ZorStatus zorsIIRGetDlyLine32fc_16sc(const ZorIIRState* state, Zor32fc* dly);
ZorStatus zorsIIRGetDlyLine32s_16s(const ZorIIRState* state, Zor32f* dly);
ZorStatus zorsIIRGetDlyLine32sc_16sc(const ZorIIRState* state, Zor32fc* dly);
ZorStatus zorsIIRGetDlyLine64f_16s(const ZorIIRState* state, Zor64f* dly);
ZorStatus zorsIIRGetDlyLine64f_32f(const ZorIIRState* state, Zor64f* dly);
ZorStatus zorsIIRGetDlyLine64f_32s(const ZorIIRState* state, Zor64f* dly);
ZorStatus zorsIIRGetDlyLine64f_DF1_32s(const ZorIIRState* state, Zor32s* dly);
ZorStatus zorsIIRGetDlyLine64fc_16sc(const ZorIIRState* state, Zor64fc* dly);
ZorStatus zorsIIRGetDlyLine64fc_32fc(const ZorIIRState* state, Zor64fc* dly);
ZorStatus zorsIIRGetDlyLine64fc_32sc(const ZorIIRState* state, Zor64fc* dly);
ZorStatus zorsIIRSetDlyLine_32f(ZorIIRState* state, const Zor32f* dly);
ZorStatus zorsIIRSetDlyLine_32fc(ZorIIRState* state, const Zor32fc* dly);
ZorStatus zorsIIRSetDlyLine_64f(ZorIIRState* state, const Zor64f* dly);
ZorStatus zorsIIRSetDlyLine_64fc(ZorIIRState* state, const Zor64fc* dly);
ZorStatus zorsIIRSetDlyLine32f_16s(ZorIIRState* state, const Zor32f* dly);
ZorStatus zorsIIRSetDlyLine32fc_16sc(ZorIIRState* state, const Zor32fc* dly);
ZorStatus zorsIIRSetDlyLine32s_16s(ZorIIRState* state, const Zor32f* dly);
ZorStatus zorsIIRSetDlyLine32sc_16sc(ZorIIRState* state, const Zor32fc* dly);
ZorStatus zorsIIRSetDlyLine64f_16s(ZorIIRState* state, const Zor64f* dly);
ZorStatus zorsIIRSetDlyLine64f_32f(ZorIIRState* state, const Zor64f* dly);
ZorStatus zorsIIRSetDlyLine64f_32s(ZorIIRState* state, const Zor64f* dly);
ZorStatus zorsIIRSetDlyLine64f_DF1_32s(ZorIIRState* state, const Zor32s* dly);
ZorStatus zorsIIRSetDlyLine64fc_16sc(ZorIIRState* state, const Zor64fc* dly);
ZorStatus zorsIIRSetDlyLine64fc_32fc(ZorIIRState* state, const Zor64fc* dly);
ZorStatus zorsIIRSetDlyLine64fc_32sc(ZorIIRState* state, const Zor64fc* dly);
/** @} */

/** @name IIR filters
 *  Filter len samples, or one, through a state, which keeps its registers: blocks of any length and single samples may
 *  be mixed. Integer results are divided by 2^scaleFactor, rounded to nearest, ties to even, and saturated, NaN to the
 *  lower bound; the exponent is drawn in to those of normal numbers. Deviation, kept: cascades with 16-bit samples and
 *  binary32 arithmetic cut the first two results of each 1,024 samples toward zero, where a block, or what is left of
 *  it, is longer than four samples a section. src may be dst.
 *  Numerics: sums in the arithmetic's type in the current direction, in an order that is not stated: blocks solve
 *  several outputs at once and differ from single samples by roundings. An infinity or NaN
 *  touches outputs before it by roundings alone, and every later one of the float forms.
 *  Checks: pointers, len, tag. No call allocates.
 *  @{ */
ZorStatus zorsIIR_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_32f_I(Zor32f* srcDst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_32fc_I(Zor32fc* srcDst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_64f(const Zor64f* src, Zor64f* dst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_64f_I(Zor64f* srcDst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR_64fc_I(Zor64fc* srcDst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR32f_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32f_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32fc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32fc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32s_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32s_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32sc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR32sc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64f_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64f_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64f_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR64f_32f_I(Zor32f* srcDst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR64f_32s_ISfs(Zor32s* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64f_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64fc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64fc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64fc_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR64fc_32fc_I(Zor32fc* srcDst, Zor32s len, ZorIIRState* state);
ZorStatus zorsIIR64fc_32sc_ISfs(Zor32sc* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIR64fc_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne_32f(Zor32f val, Zor32f* dst, ZorIIRState* state);
ZorStatus zorsIIROne_32fc(Zor32fc val, Zor32fc* dst, ZorIIRState* state);
ZorStatus zorsIIROne_64f(Zor64f val, Zor64f* dst, ZorIIRState* state);
ZorStatus zorsIIROne_64fc(Zor64fc val, Zor64fc* dst, ZorIIRState* state);
ZorStatus zorsIIROne32f_16s_Sfs(Zor16s val, Zor16s* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne32fc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne32s_16s_Sfs(Zor16s val, Zor16s* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne32sc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne64f_16s_Sfs(Zor16s val, Zor16s* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne64f_32f(Zor32f val, Zor32f* dst, ZorIIRState* state);
ZorStatus zorsIIROne64f_32s_Sfs(Zor32s val, Zor32s* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne64fc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorIIRState* state, Zor32s scaleFactor);
ZorStatus zorsIIROne64fc_32fc(Zor32fc val, Zor32fc* dst, ZorIIRState* state);
ZorStatus zorsIIROne64fc_32sc_Sfs(Zor32sc val, Zor32sc* dst, ZorIIRState* state, Zor32s scaleFactor);
/** @} */

/** @name IIR filters of several channels
 *  Filter len samples of each of numChannels channels with a state of its own; sections only, in 64f_32s any kind of
 *  that name. Checks: arrays, len, numChannels (zorStatusBadChannelCountFloat, zorStatusBadChannelCountScaled), the
 *  first state and its tag; then, channel by channel, pointers and the tag, which must be the first state's. The
 *  channels before one that fails are filtered.
 *  @{ */
ZorStatus zorsIIR_32f_IP(Zor32f* const* srcDsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states);
ZorStatus zorsIIR_32f_P(const Zor32f* const* srcs, Zor32f* const* dsts, Zor32s len, Zor32s numChannels,
                        ZorIIRState* const* states);
ZorStatus zorsIIR64f_32s_IPSfs(Zor32s* const* srcDsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states,
                               const Zor32s* scaleFactors);
ZorStatus zorsIIR64f_32s_PSfs(const Zor32s* const* srcs, Zor32s* const* dsts, Zor32s len, Zor32s numChannels,
                              ZorIIRState* const* states, const Zor32s* scaleFactors);
/** @} */

/** @name IIR filters of 16-bit samples without a state
 *  Taps and registers come with each call; dly holds order registers of the transposed form, or two a section. The tap
 *  in the place of a[0], of each section a0, is a right shift s of the sums, not a coefficient. One sample, in 32-bit
 *  integers that wrap: v = b[0] x + d[0]; y = (v + ((v >> s) & 1) + 2^(s-1) - 1) >> s, which is to nearest, ties to
 *  even; shift counts modulo 32, and at s = 0 the term 2^(s-1) is 2^31. The registers take the unsaturated y; the next
 *  section too; the last y is saturated to 16 bits. A block allocates a state, runs the filters of 32f_16s with taps
 *  and registers times 2^-s, and writes the registers back times 2^s, saturated, half away from zero (Direct) or to
 *  even (BiQuadDirect).
 *  Checks: order or numBq below 1 (zorStatusBadFilterOrder), pointers; then of single samples the shift, negative:
 *  zorStatusNegativeTapShift, where in a later section those before it have moved on; of Direct blocks the shift, then
 *  len, then memory; of BiQuadDirect blocks len, memory, the shifts, and zorStatusDivideByZero for a b0 of zero.
 *  @{ */
ZorStatus zorsIIR_BiQuadDirect_16s(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s numBq,
                                   Zor32s* dly);
ZorStatus zorsIIR_BiQuadDirect_16s_I(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s numBq, Zor32s* dly);
ZorStatus zorsIIR_Direct_16s(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s order, Zor32s* dly);
ZorStatus zorsIIR_Direct_16s_I(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s order, Zor32s* dly);
ZorStatus zorsIIROne_BiQuadDirect_16s(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s numBq, Zor32s* dly);
ZorStatus zorsIIROne_BiQuadDirect_16s_I(Zor16s* srcDst, const Zor16s* taps, Zor32s numBq, Zor32s* dly);
ZorStatus zorsIIROne_Direct_16s(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s order, Zor32s* dly);
ZorStatus zorsIIROne_Direct_16s_I(Zor16s* srcDst, const Zor16s* taps, Zor32s order, Zor32s* dly);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
