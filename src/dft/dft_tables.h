// The tables of a specification. All roots of unity are entries of one table, which is built for the set-up alone.
#pragma once

#include "dft/dft_spec.h"

namespace zors::dft {

// exp(-2 pi i j / turn) as pairs (cos, -sin), for all j.
template <class T> struct Roots {
  const T* table;
  std::size_t turn;
  // The root j of n, where n divides turn and j is below n.
  struct Root {
    T re, im;
  };
  Root at(std::size_t j, std::size_t n) const {
    const T* const p = table + 2 * j * (turn / n);
    return {p[0], p[1]};
  }
};
template <class T> Roots<T> fillRoots(std::size_t turn, T* table);

// The roots of passes, and of a chain's leaves, in the places that they name.
template <class T> void fillStages(const Stage<T>* stages, int count, const Roots<T>& roots);
template <class T> void fillChain(const Engine<T>& engine, const Roots<T>& roots);
template <class T> void fillDirect(Engine<T>& engine, const Roots<T>& roots, T* table);
// w[n] of a chirp, from roots of a turn of 2 N; and conj w, mirrored, over L, whose transform is the spectrum.
template <class T> void fillChirp(const Engine<T>& engine, const Roots<T>& roots, T* chirp, T* spectrum);
// For k from 1 to N / 4: (cos / 2, 1/2 - sin/2) forward, (cos, -sin) inverse.
template <class T> void fillFactors(const Roots<T>& roots, T* forward, T* inverse);

}  // namespace zors::dft
