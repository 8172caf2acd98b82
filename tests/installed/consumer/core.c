/* The service library alone. */
#include <stdio.h>
#include <zorcore.h>

int main(void) {
  void* block = zorMalloc(100);
  const int aligned = block != NULL && zorAlignPtr(block, 64) == block;
  zorFree(block);
  puts(aligned ? "aligned" : "not aligned");
  return aligned ? 0 : 1;
}
