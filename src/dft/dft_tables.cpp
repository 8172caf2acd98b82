// Roots of unity, and the tables that consist of them.
#include "dft/dft_tables.h"

#include <cmath>
#include <cstring>

#include "dft/dft_chain.h"

namespace zors::dft {

// Direct evaluation over an eighth of the turn (a quarter or a half of those that two or four do not divide); the rest
// follows by exchange and change of signs, so that root N - j is the exact conjugate of root j.
template <class T> Roots<T> fillRoots(std::size_t turn, T* table) {
  const double step = 6.283185307179586 / static_cast<double>(turn);
  const auto set = [&](std::size_t j, T re, T im) {
    table[2 * j] = re;
    table[2 * j + 1] = im;
  };
  const std::size_t eighths = turn % 4 == 0 ? 8 : turn % 2 == 0 ? 4 : 2;
  for (std::size_t j = 0; j <= turn / eighths; ++j) {
    const double angle = step * static_cast<double>(j);
    set(j, static_cast<T>(std::cos(angle)), static_cast<T>(-std::sin(angle)));
  }
  if (turn % 4 == 0)
    for (std::size_t j = turn / 8 + 1; j <= turn / 4; ++j) {
      const T* const mirror = table + 2 * (turn / 4 - j);
      set(j, -mirror[1], -mirror[0]);
    }
  if (turn % 2 == 0)
    for (std::size_t j = turn / 4 + 1; j <= turn / 2; ++j) {
      const T* const mirror = table + 2 * (turn / 2 - j);
      set(j, -mirror[0], mirror[1]);
    }
  for (std::size_t j = turn / 2 + 1; j < turn; ++j) {
    const T* const mirror = table + 2 * (turn - j);
    set(j, mirror[0], -mirror[1]);
  }
  return {table, turn};
}

namespace {

template <class T> void fillPrimeRoots(const Roots<T>& roots, Zor32s prime, const T* place) {
  T* const out = const_cast<T*>(place);
  const auto p = static_cast<std::size_t>(prime);
  for (std::size_t j = 0; j < p; ++j) {
    const auto root = roots.at(j, p);
    out[2 * j] = root.re;
    out[2 * j + 1] = root.im;
  }
}

}  // namespace

template <class T> void fillStages(const Stage<T>* stages, int count, const Roots<T>& roots) {
  for (int i = 0; i < count; ++i) {
    const auto& stage = stages[i];
    if (stage.roots != nullptr) fillPrimeRoots(roots, stage.radix, stage.roots);
    T* out = const_cast<T*>(stage.twiddles);
    const auto radix = static_cast<std::size_t>(stage.radix), rest = static_cast<std::size_t>(stage.rest);
    overColumns<T>(rest, [&]<int n>(std::size_t k) {
      for (std::size_t j = 1; j < radix; ++j)
        for (std::size_t lane = 0; lane < n; ++lane) {
          const auto root = roots.at(j * (k + lane), radix * rest);
          *out++ = root.re;
          *out++ = root.im;
        }
    });
  }
}
template <class T> void fillChain(const Engine<T>& engine, const Roots<T>& roots) {
  fillStages(engine.stage, engine.stages, roots);
  if (engine.leafRoots != nullptr) fillPrimeRoots(roots, engine.leaf, engine.leafRoots);
  if (engine.places != nullptr)
    LeafPlaces<T>(engine).fill(const_cast<Zor32u*>(engine.places), static_cast<std::size_t>(engine.leaves));
}

template <class T> void fillDirect(Engine<T>& engine, const Roots<T>& roots, T* table) {
  const int p = engine.points, h = p / 2;
  int generator = 2;
  const auto generates = [&] {
    int power = generator % p, order = 1;
    for (; power != 1; ++order) power = power * generator % p;
    return order == p - 1;
  };
  while (!generates()) ++generator;
  const auto row = static_cast<int>(directRow<T>(h));
  for (int i = 0, power = 1; i < row; ++i, power = power * generator % p) {
    const auto root = roots.at(static_cast<std::size_t>(power), static_cast<std::size_t>(p));
    table[i] = root.re;
    table[i + row] = root.im;
    if (i < h) {
      engine.power[i] = static_cast<Zor8u>(power);
      engine.logarithm[(power <= h ? power : p - power) - 1] = static_cast<Zor8u>(i);
    }
  }
}

template <class T> void fillChirp(const Engine<T>& engine, const Roots<T>& roots, T* chirp, T* spectrum) {
  const auto points = static_cast<std::size_t>(engine.points),
             length = static_cast<std::size_t>(engine.convolutionLength);
  std::memset(spectrum, 0, length * 2 * sizeof(T));
  for (std::size_t n = 0, square = 0; n < points; ++n) {  // n^2 modulo 2 N
    const auto root = roots.at(square, 2 * points);
    chirp[2 * n] = root.re;
    chirp[2 * n + 1] = root.im;
    for (const std::size_t at : {n, (length - n) % length}) {
      spectrum[2 * at] = root.re;
      spectrum[2 * at + 1] = -root.im;
    }
    square += 2 * n + 1;
    if (square >= 2 * points) square -= 2 * points;
  }
}

template <class T> void fillFactors(const Roots<T>& roots, T* forward, T* inverse) {
  for (std::size_t k = 1; k <= roots.turn / 4; ++k) {
    const auto root = roots.at(k, roots.turn);
    inverse[2 * k - 2] = root.re;
    inverse[2 * k - 1] = root.im;
    forward[2 * k - 2] = T(0.5) * root.re;
    forward[2 * k - 1] = static_cast<T>(0.5 + 0.5 * static_cast<double>(root.im));  // halves are exact
  }
}

#define INSTANTIATE(T)                                                \
  template Roots<T> fillRoots(std::size_t, T*);                       \
  template void fillStages(const Stage<T>*, int, const Roots<T>&);    \
  template void fillChain(const Engine<T>&, const Roots<T>&);         \
  template void fillDirect(Engine<T>&, const Roots<T>&, T*);          \
  template void fillChirp(const Engine<T>&, const Roots<T>&, T*, T*); \
  template void fillFactors(const Roots<T>&, T*, T*);
INSTANTIATE(Zor32f)
INSTANTIATE(Zor64f)
#undef INSTANTIATE

}  // namespace zors::dft
