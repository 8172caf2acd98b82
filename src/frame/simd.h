// Vectors: Vec<T, L>, its operations by theme.
#pragma once

#include "frame/simd/complex.h"      // parts of complex elements, complex products
#include "frame/simd/conversions.h"  // between integers and floats
#include "frame/simd/lanes.h"        // widening, narrowing, across lanes
#include "frame/simd/operations.h"   // arithmetic, comparison, bits
#include "frame/simd/vec.h"          // registers, loads, stores, constants
