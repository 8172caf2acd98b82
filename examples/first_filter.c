/* The example of the README: a moving average of four samples. */
#include <stdio.h>
#include <zors.h>

int main(void) {
  const Zor32f taps[4] = {0.25f, 0.25f, 0.25f, 0.25f}, in[6] = {4, 4, 4, 4, 0, 0};
  Zor32f out[6];
  ZorFIRState* state;
  if (zorsFIRInitAlloc_32f(&state, taps, 4, NULL) != zorStatusOk) return 1;
  zorsFIR_32f(in, out, 6, state);
  zorsFIRFree_32f(state);
  for (int i = 0; i < 6; ++i) printf("%g ", out[i]); /* 1 2 3 4 3 2 */
  printf("\n");
  return 0;
}
