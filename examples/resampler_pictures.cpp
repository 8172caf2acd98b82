// resampler_pictures FOLDER: FOLDER/resampling.png shows tones brought from 44.1 to 48 kHz: their level, and everything
// else that comes out (images, aliases, rounding), beside libsamplerate's and soxr's where these are installed.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "zors.h"
#include "zors_status.h"

#ifdef HAVE_SAMPLERATE
#include <samplerate.h>
#endif
#ifdef HAVE_SOXR
#include <soxr.h>
#endif

namespace {

constexpr int inRate = 44100, outRate = 48000, inputs = 8820, outputs = 9600, margin = 1024;

[[noreturn]] void fail(const std::string& message) {
  std::fprintf(stderr, "resampler_pictures: %s\n", message.c_str());
  std::exit(1);
}
void require(ZorStatus status, const char* what) {
  if (status < 0) fail(std::string(what) + ": " + zorsStatusText(status));
}

using Samples = std::vector<Zor32f>;
struct Resampler {
  std::string name;
  std::function<Samples(const Samples&)> run;  // margin samples on either side of the inputs
};

Resampler fixed(int taps, Zor32f rollOff, Zor32f alpha) {
  return {std::to_string(taps) + " taps, roll-off " + std::to_string(rollOff).substr(0, 4) + ", alpha " +
              std::to_string(int(alpha)),
          [=](const Samples& x) {
            Zor32s size, rowLen, rows, count = 0;
            require(zorsResamplePolyphaseFixedGetSize_32f(inRate, outRate, taps, &size, &rowLen, &rows, zorAlgHintFast),
                    "size");
            std::vector<Zor8u> block(std::size_t(size), 0);
            auto* state = reinterpret_cast<ZorResampleFixedState*>(block.data());
            require(zorsResamplePolyphaseFixedInit_32f(inRate, outRate, taps, rollOff, alpha, state, zorAlgHintFast),
                    "init");
            Samples y(outputs + 8);
            Zor64f time = 0;
            require(zorsResamplePolyphaseFixed_32f(x.data() + margin, inputs, y.data(), 1, &time, &count, state),
                    "run");
            y.resize(std::size_t(count));
            return y;
          }};
}
#ifdef HAVE_SAMPLERATE
Resampler libsamplerate(const char* name, int converter) {
  return {name, [=](const Samples& x) {
            Samples y(2 * x.size());
            SRC_DATA data{x.data(), y.data(), long(x.size()), long(y.size()), 0, 0, 1, double(outRate) / inRate};
            if (src_simple(&data, converter, 1) != 0) fail("libsamplerate");
            y.resize(std::size_t(data.output_frames_gen));
            return y;
          }};
}
#endif
#ifdef HAVE_SOXR
Resampler soxrHigh() {
  return {"soxr HQ", [](const Samples& x) {
            Samples y(2 * x.size());
            std::size_t made = 0;
            const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
            if (soxr_oneshot(inRate, outRate, 1, x.data(), x.size(), nullptr, y.data(), y.size(), &made, nullptr,
                             &quality, nullptr))
              fail("soxr");
            y.resize(made);
            return y;
          }};
}
#endif

// Of the middle half of y the tone of a frequency by least squares, and what is left, both in decibels of a full tone.
struct Quality {
  double level, rest;
};
Quality qualityOf(const Samples& y, double frequency) {
  const std::size_t begin = y.size() / 4, end = begin + y.size() / 2;
  const double w = 2 * std::numbers::pi * frequency / outRate;
  double cc = 0, ss = 0, cs = 0, yc = 0, ys = 0, power = 0;
  for (std::size_t i = begin; i < end; ++i) {
    const double c = std::cos(w * double(i)), s = std::sin(w * double(i)), v = y[i];
    cc += c * c, ss += s * s, cs += c * s, yc += v * c, ys += v * s;
  }
  const double determinant = cc * ss - cs * cs, a = (yc * ss - ys * cs) / determinant,
               b = (ys * cc - yc * cs) / determinant;
  for (std::size_t i = begin; i < end; ++i) {
    const double rest = y[i] - a * std::cos(w * double(i)) - b * std::sin(w * double(i));
    power += rest * rest;
  }
  return {10 * std::log10(a * a + b * b + 1e-20), 10 * std::log10(2 * power / double(end - begin) + 1e-20)};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) fail("usage: resampler_pictures FOLDER");
  std::vector<Resampler> resamplers{fixed(64, 0.95f, 9), fixed(64, 0.90f, 12), fixed(128, 0.95f, 12)};
#ifdef HAVE_SAMPLERATE
  resamplers.push_back(libsamplerate("libsamplerate medium", SRC_SINC_MEDIUM_QUALITY));
#endif
#ifdef HAVE_SOXR
  resamplers.push_back(soxrHigh());
#endif
  std::vector<double> frequencies;
  for (double f = 200; f < 22050; f += f < 16000 ? 400 : 100) frequencies.push_back(f + 0.7);
  std::vector<std::vector<Quality>> curves;
  for (const Resampler& resampler : resamplers) {
    std::vector<Quality> curve;
    for (double frequency : frequencies) {
      Samples x(inputs + 2 * margin);
      for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = Zor32f(std::sin(2 * std::numbers::pi * frequency * double(i) / inRate));
      curve.push_back(qualityOf(resampler.run(x), frequency));
    }
    curves.push_back(curve);
    double ripple = 0, rest = -300;
    for (std::size_t k = 0; k < frequencies.size() && frequencies[k] < 18000; ++k)
      ripple = std::max(ripple, std::fabs(curve[k].level)), rest = std::max(rest, curve[k].rest);
    std::printf("%-38s to 18 kHz: level within %.4f dB, the rest below %.1f dB\n", resampler.name.c_str(), ripple,
                rest);
  }
  const std::string picture = std::string(argv[1]) + "/resampling.png";
  FILE* plot = popen("gnuplot", "w");
  if (plot == nullptr) fail("gnuplot does not start");
  std::fprintf(plot, "set terminal pngcairo size 1100,460\nset output '%s'\nset multiplot layout 1,2\nset grid\n",
               picture.c_str());
  const auto draw = [&](const char* options, auto valueOf) {
    std::fprintf(plot, "%s\nset xlabel 'kHz'\nset xrange [0:22.05]\nplot ", options);
    for (const Resampler& r : resamplers)
      std::fprintf(plot, "%s'-' with lines lw 1.5 title '%s'", &r == &resamplers[0] ? "" : ", ", r.name.c_str());
    std::fprintf(plot, "\n");
    for (const auto& curve : curves) {
      for (std::size_t k = 0; k < frequencies.size(); ++k)
        std::fprintf(plot, "%g %g\n", frequencies[k] / 1000, valueOf(curve[k]));
      std::fprintf(plot, "e\n");
    }
  };
  draw("set key bottom left\nset yrange [-12:1]\nset title 'Level of a tone, 44.1 to 48 kHz, dB'",
       [](const Quality& q) { return q.level; });
  draw("set key top left\nset yrange [-160:0]\nset title 'All else, dB'", [](const Quality& q) { return q.rest; });
  std::fprintf(plot, "unset multiplot\n");
  if (pclose(plot) != 0) fail("gnuplot could not draw " + picture);
  std::printf("%s\n", picture.c_str());
}
