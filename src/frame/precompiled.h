// What nearly every source includes and no export changes: precompiled once for the library.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "frame/check.h"
#include "frame/map.h"
#include "frame/scale.h"
