/* The public headers in C99: what C callers see. Called by status_test.cpp. */
#include "zorcore.h"
#include "zors.h"
#include "zors_status.h"

int zorsHeadersInC(void);

int zorsHeadersInC(void) {
  const Zor16s src[2] = {-1, 20000};
  Zor32f wide[2] = {0, 0};
  Zor16s dst[2] = {0, 0};
  zorsConvert_16s32f(src, wide, 2);
  zorsMulC_32f_I(4.0f, wide, 2);
  const ZorStatus status = zorsConvert_32f16s_Sfs(wide, dst, 2, zorRoundNearestEven, 1);
  return status == zorStatusOk && dst[0] == -2 && dst[1] == 32767 && zorsStatusName(status)[0] == 'z' &&
         zorsStatusText(status)[0] == 's' && sizeof(Zor16sc) == 4 && sizeof(Zor64fc) == 16 && sizeof(ZorStatus) == 4 &&
         zorGetEnabledCpuFeatures() != 0;
}
