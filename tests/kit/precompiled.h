// What nearly every test includes: precompiled once for all test programs.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "kit/contract.h"
#include "kit/elementwise.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"
