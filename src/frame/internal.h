// The exported functions as implementations see and define them. exports.def holds one line per exported name, in
// ascending byte order: EXPORT(name), or SHARED(name, as) where the implementation of another export serves, because
// the two differ in the names of types alone and are called alike in registers.
//
// Inside the library an export is defined and called as zors::name: same type as the public prototype, with a linker
// name of its own, so that calls between implementations are direct. Write the qualification: a pointer to a complex
// type would find the public name too.
#pragma once

#include "zors.h"

namespace zors {

#define EXPORT(name) decltype(::name) name __asm__("impl_" #name);
#define SHARED(name, as) decltype(::name) name __asm__("impl_" #as);
#include "frame/exports.def"
#undef EXPORT
#undef SHARED

}  // namespace zors
