// wavelet_denoise [PICTURE.png]: takes noise off a signal with steps and bends, which a low-pass filter would smear.
// Three levels of a Daubechies filter bank with eight taps; details below a threshold are noise and become zero.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "zors.h"
#include "zors_status.h"

namespace {

void require(ZorStatus status, const char* what) {
  if (status >= 0) return;
  std::fprintf(stderr, "wavelet_denoise: %s: %s\n", what, zorsStatusText(status));
  std::exit(1);
}

constexpr int taps = 8;
constexpr Zor32f analysisLow[taps] = {0.23037781f,  0.71484657f, 0.63088077f, -0.02798377f,
                                      -0.18703481f, 0.03084138f, 0.03288301f, -0.01059740f};

// One level of the bank, both ways. Way and back delay the signal by taps - 1 samples.
class Level {
 public:
  static constexpr int delay = taps - 1;

  Level() {
    Zor32f high[taps], backLow[taps], backHigh[taps];
    for (int i = 0; i < taps; ++i) {
      const Zor32f sign = i % 2 == 0 ? 1.0f : -1.0f;
      high[i] = sign * analysisLow[taps - 1 - i];
      backLow[i] = analysisLow[taps - 1 - i];
      backHigh[i] = -sign * analysisLow[i];
    }
    require(zorsWTFwdInitAlloc_32f(&forward_, analysisLow, taps, 0, high, taps, 0), "zorsWTFwdInitAlloc_32f");
    require(zorsWTInvInitAlloc_32f(&inverse_, backLow, taps, 0, backHigh, taps, 0), "zorsWTInvInitAlloc_32f");
  }
  ~Level() {
    zorsWTFwdFree_32f(forward_);
    zorsWTInvFree_32f(inverse_);
  }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

  void split(const std::vector<Zor32f>& x, std::vector<Zor32f>& low, std::vector<Zor32f>& high) {
    low.resize(x.size() / 2);
    high.resize(x.size() / 2);
    require(zorsWTFwd_32f(x.data(), low.data(), high.data(), Zor32s(low.size()), forward_), "zorsWTFwd_32f");
  }
  void join(const std::vector<Zor32f>& low, const std::vector<Zor32f>& high, std::vector<Zor32f>& x) {
    x.resize(2 * low.size());
    require(zorsWTInv_32f(low.data(), high.data(), Zor32s(low.size()), x.data(), inverse_), "zorsWTInv_32f");
  }

 private:
  ZorWTFwdState* forward_ = nullptr;
  ZorWTInvState* inverse_ = nullptr;
};

// x later by so many samples: a band waits for those that go through deeper levels.
std::vector<Zor32f> delayed(const std::vector<Zor32f>& x, std::size_t by) {
  std::vector<Zor32f> y(x.size());
  for (std::size_t i = by; i < x.size(); ++i) y[i] = x[i - by];
  return y;
}
void denoise(std::vector<Zor32f>& x, int levels, Zor32f threshold) {
  Level level;
  std::vector<Zor32f> low, high;
  level.split(x, low, high);
  for (Zor32f& detail : high)
    if (std::fabs(detail) < threshold) detail = 0;
  if (levels > 1) {
    denoise(low, levels - 1, threshold);
    high = delayed(high, std::size_t((1 << (levels - 1)) - 1) * Level::delay);
  }
  level.join(low, high, x);
}

double errorOf(const std::vector<Zor32f>& x, const std::vector<Zor32f>& clean, std::size_t later) {
  double sum = 0;
  for (std::size_t i = later; i < x.size(); ++i) sum += std::pow(double(x[i]) - clean[i - later], 2);
  return std::sqrt(sum / double(x.size() - later));
}

void draw(const char* picture, const std::vector<Zor32f>& noisy, const std::vector<Zor32f>& quiet, std::size_t later) {
  FILE* plot = popen("gnuplot", "w");
  if (plot == nullptr) return;
  std::fprintf(plot,
               "set terminal pngcairo size 1000,500\nset output '%s'\nset title 'Noise taken off by wavelets'\n"
               "plot '-' with lines lc rgb '#bbbbbb' title 'before', '-' with lines lw 2 title 'after'\n",
               picture);
  const auto line = [plot](const std::vector<Zor32f>& x, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) std::fprintf(plot, "%zu %g\n", i - from, double(x[i]));
    std::fprintf(plot, "e\n");
  };
  line(noisy, 0, noisy.size() - later);
  line(quiet, later, quiet.size());
  pclose(plot);
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int levels = 3;
  constexpr std::size_t length = 4096;
  constexpr double noise = 0.15;
  std::vector<Zor32f> clean(length), noisy(length);
  std::mt19937 random(1);
  std::normal_distribution<double> gauss(0, noise);
  for (std::size_t i = 0; i < length; ++i) {
    const double t = double(i) / length;
    clean[i] = Zor32f((t < 0.3 ? 1 : t < 0.55 ? -0.6 : 0.4) + 0.5 * std::sin(12 * t) * (t > 0.5));
    noisy[i] = Zor32f(clean[i] + gauss(random));
  }
  std::vector<Zor32f> quiet = noisy;
  denoise(quiet, levels, Zor32f(3.5 * noise));
  constexpr std::size_t later = ((1 << levels) - 1) * Level::delay;
  const double before = errorOf(noisy, clean, 0), after = errorOf(quiet, clean, later);
  std::printf("error before %.4f, after %.4f: %.1f dB less\n", before, after, 20 * std::log10(before / after));
  draw(argc > 1 ? argv[1] : "wavelet_denoise.png", noisy, quiet, later);
  return after < before / 2 ? 0 : 1;
}
