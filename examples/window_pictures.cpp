// window_pictures FOLDER: FOLDER/windows.png shows the windows and their spectra, FOLDER/kaiser.png Kaiser's for
// several alphas. Windows and transforms are the library's own; gnuplot draws.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "zors.h"
#include "zors_status.h"

namespace {

constexpr int windowLen = 64, order = 13, length = 1 << order;

[[noreturn]] void fail(const std::string& message) {
  std::fprintf(stderr, "window_pictures: %s\n", message.c_str());
  std::exit(1);
}
void require(ZorStatus status, const char* what) {
  if (status < 0) fail(std::string(what) + ": " + zorsStatusText(status));
}

struct Curve {
  std::string name;
  std::vector<Zor64f> weights, decibels;  // the spectrum's magnitude, its middle at 0 dB
};

// apply() makes the window of a vector of ones; long zeros behind it show its spectrum between the bins.
template <class Apply> Curve curveOf(const std::string& name, Apply apply) {
  std::vector<Zor64f> weights(windowLen, 1.0), padded(length + 2), powers(length / 2 + 1);
  require(apply(weights.data()), name.c_str());
  require(zorsCopy_64f(weights.data(), padded.data(), windowLen), "zorsCopy_64f");
  ZorsFFTSpec_R_64f* spec = nullptr;
  require(zorsFFTInitAlloc_R_64f(&spec, order, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone), "zorsFFTInitAlloc_R_64f");
  const ZorStatus status = zorsFFTFwd_RToCCS_64f(padded.data(), padded.data(), spec, nullptr);
  require(zorsFFTFree_R_64f(spec), "zorsFFTFree_R_64f");
  require(status, "zorsFFTFwd_RToCCS_64f");
  const auto* spectrum = reinterpret_cast<const Zor64fc*>(padded.data());
  require(zorsPowerSpectr_64fc(spectrum, powers.data(), length / 2 + 1), "zorsPowerSpectr_64fc");
  std::vector<Zor64f> decibels;
  for (Zor64f power : powers) decibels.push_back(10 * std::log10(power / powers[0] + 1e-15));
  return {name, weights, decibels};
}

void draw(const std::vector<Curve>& curves, const std::string& picture) {
  FILE* plot = popen("gnuplot", "w");
  if (plot == nullptr) fail("gnuplot does not start");
  std::fprintf(plot, "set terminal pngcairo size 1100,460\nset output '%s'\nset multiplot layout 1,2\nset grid\n",
               picture.c_str());
  const auto plotAll = [&](const char* options, auto points) {
    std::fprintf(plot, "%s\nplot ", options);
    for (const Curve& curve : curves)
      std::fprintf(plot, "%s'-' with lines lw 1.5 title '%s'", &curve == &curves[0] ? "" : ", ", curve.name.c_str());
    std::fprintf(plot, "\n");
    for (const Curve& curve : curves) {
      points(curve);
      std::fprintf(plot, "e\n");
    }
  };
  plotAll("set key bottom center\nset xlabel 'n of 64'\nset xrange [0:63]\nset yrange [0:1.05]\nset title 'Weights'",
          [&](const Curve& curve) {
            for (int n = 0; n < windowLen; ++n) std::fprintf(plot, "%d %g\n", n, curve.weights[std::size_t(n)]);
          });
  plotAll(
      "set key top right\nset xlabel 'bins of 1 / 64'\nset xrange [0:16]\nset yrange [-120:3]\nset title 'Spectra, dB'",
      [&](const Curve& curve) {
        for (int k = 0; k * windowLen <= 16 * length; ++k)
          std::fprintf(plot, "%g %g\n", double(k) * windowLen / length, curve.decibels[std::size_t(k)]);
      });
  std::fprintf(plot, "unset multiplot\n");
  if (pclose(plot) != 0) fail("gnuplot could not draw " + picture);
  std::printf("%s\n", picture.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) fail("usage: window_pictures FOLDER");
  const std::string folder = argv[1];
  const auto kaiser = [](Zor64f beta) {
    return [beta](Zor64f* x) { return zorsWinKaiser_64f_I(x, windowLen, 2 * beta / (windowLen - 1)); };
  };
  draw({curveOf("Bartlett", [](Zor64f* x) { return zorsWinBartlett_64f_I(x, windowLen); }),
        curveOf("Hann", [](Zor64f* x) { return zorsWinHann_64f_I(x, windowLen); }),
        curveOf("Hamming", [](Zor64f* x) { return zorsWinHamming_64f_I(x, windowLen); }),
        curveOf("Blackman, alpha -0.16", [](Zor64f* x) { return zorsWinBlackmanStd_64f_I(x, windowLen); }),
        curveOf("Blackman, best alpha", [](Zor64f* x) { return zorsWinBlackmanOpt_64f_I(x, windowLen); })},
       folder + "/windows.png");
  draw({curveOf("alpha 4 / 63", kaiser(2)), curveOf("alpha 10 / 63", kaiser(5)),
        curveOf("alpha 17.2 / 63", kaiser(8.6)), curveOf("alpha 24 / 63", kaiser(12))},
       folder + "/kaiser.png");
  return 0;
}
