// The floating-point control word.
#pragma once

#include <immintrin.h>

namespace zors {

// Sets the rounding direction, with exceptions masked, for the length of a scope: the invalid-operation one, or all.
// Exceptions that the scope raises stay recorded. The compiler does not know that arithmetic depends on the control
// word: only work from memory to memory may stand in such a scope.
class RoundingScope {
 public:
  enum Direction : unsigned {
    nearest = _MM_ROUND_NEAREST,
    down = _MM_ROUND_DOWN,
    up = _MM_ROUND_UP,
    towardZero = _MM_ROUND_TOWARD_ZERO
  };

  explicit RoundingScope(Direction direction, unsigned masked = _MM_MASK_INVALID)
      : RoundingScope(direction, _MM_ROUND_MASK, masked) {}
  ~RoundingScope() {
    if (changed_) _mm_setcsr((saved_ & ~flags) | (_mm_getcsr() & flags));
    __asm__ volatile("" ::: "memory");
  }
  RoundingScope(const RoundingScope&) = delete;
  RoundingScope& operator=(const RoundingScope&) = delete;

 protected:
  RoundingScope(unsigned direction, unsigned field, unsigned masked) : saved_(_mm_getcsr()) {
    const unsigned wanted = (saved_ & ~field) | direction | masked;
    changed_ = wanted != saved_;
    if (changed_) _mm_setcsr(wanted);
    __asm__ volatile("" ::: "memory");
  }

 private:
  static constexpr unsigned flags = _MM_EXCEPT_MASK;
  unsigned saved_;
  bool changed_;
};

// A value whose arithmetic is to stay in the scope around it.
template <class T> T inScope(T x) {
  __asm__ volatile("" : "+x"(x) : : "memory");
  return x;
}

// Masks the invalid-operation exception and leaves the direction alone.
class InvalidMaskedScope : RoundingScope {
 public:
  InvalidMaskedScope() : RoundingScope(0, 0, _MM_MASK_INVALID) {}
};

// Masks all exceptions and leaves the direction alone.
class ExceptionsMaskedScope : RoundingScope {
 public:
  ExceptionsMaskedScope() : RoundingScope(0, 0, _MM_MASK_MASK) {}
};

// Masks all exceptions and clears the invalid flag, to be asked at the end of the scope; then masks and flags are as
// before. The word is written only where that changes it.
class FlagsScope {
 public:
  FlagsScope() : saved_(_mm_getcsr()) {
    const unsigned wanted = (saved_ | _MM_MASK_MASK) & ~unsigned{_MM_EXCEPT_INVALID};
    if (wanted != saved_) _mm_setcsr(wanted);
    __asm__ volatile("" ::: "memory");
  }
  ~FlagsScope() {
    __asm__ volatile("" ::: "memory");
    if (_mm_getcsr() != saved_) _mm_setcsr(saved_);
  }
  FlagsScope(const FlagsScope&) = delete;
  FlagsScope& operator=(const FlagsScope&) = delete;

  bool sawInvalid() const {
    __asm__ volatile("" ::: "memory");
    return (_mm_getcsr() & _MM_EXCEPT_INVALID) != 0;
  }

 private:
  unsigned saved_;
};

}  // namespace zors
