"""Sums, means, extremes and products of floating vectors with the names of NumPy.

    >>> import numpy as np
    >>> from zorsl9 import statistics
    >>> statistics.sum(np.float32([1, 2, 3]))
    6.0
"""
import numpy as np

from ._zorsl9 import ffi, lib

__all__ = ["sum", "mean", "std", "max", "min", "dot", "multiply"]

_HINT = lib.zorAlgHintAccurate
_TYPES = {"f": ("32f", "float"), "d": ("64f", "double")}


def _vector(name, x):
    x = np.asarray(x)
    if x.dtype.char not in _TYPES:
        x = x.astype(np.float64)
    if not x.size:
        raise ValueError(f"zorsl9.statistics.{name}: an empty array has none")
    return np.ascontiguousarray(x), *_TYPES[x.dtype.char]


def _reduce(name, family, x, hinted):
    x, suffix, kind = _vector(name, x)
    result = ffi.new(f"Zor{suffix}*")
    call = getattr(lib, f"zors{family}_{suffix}")
    pointer = ffi.from_buffer(f"Zor{suffix}[]", x)
    call(pointer, x.size, result, *((_HINT,) if hinted and suffix == "32f" else ()))
    return result[0]


def sum(x):
    """The sum of all elements, a float; of float32 in binary64."""
    return _reduce("sum", "Sum", x, True)


def mean(x):
    """The mean of all elements."""
    return _reduce("mean", "Mean", x, True)


def std(x):
    """The standard deviation of all elements with the divisor size - 1 (NumPy's ``ddof=1``)."""
    return _reduce("std", "StdDev", x, True)


def max(x):
    """The greatest element."""
    return _reduce("max", "Max", x, False)


def min(x):
    """The smallest element."""
    return _reduce("min", "Min", x, False)


def dot(a, b):
    """The sum of products of two vectors of one type; no operand is conjugated."""
    (a, suffix, _), (b, other, _) = _vector("dot", a), _vector("dot", b)
    if suffix != other or a.shape != b.shape:
        raise ValueError(f"zorsl9.statistics.dot: arrays of one shape and type, not {a.shape} {a.dtype}, {b.shape} {b.dtype}")
    result = ffi.new(f"Zor{suffix}*")
    getattr(lib, f"zorsDotProd_{suffix}")(ffi.from_buffer(f"Zor{suffix}[]", a), ffi.from_buffer(f"Zor{suffix}[]", b), a.size,
                                          result)
    return result[0]


def multiply(a, b, out=None):
    """The products of two arrays of one shape and type, float32 or float64."""
    a, b = np.ascontiguousarray(a), np.ascontiguousarray(b)
    kind = _PRODUCTS.get(a.dtype)
    if kind is None or b.dtype != a.dtype or a.shape != b.shape:
        raise ValueError("zorsl9.statistics.multiply: arrays of one shape and of one type, float32 or float64")
    y = np.empty_like(a) if out is None else out
    if y.shape != a.shape or y.dtype != a.dtype or not y.flags.c_contiguous:
        raise ValueError(f"out must be a contiguous array of shape {a.shape} and type {a.dtype}")
    product, array = kind
    if y.size:
        product(ffi.from_buffer(array, a), ffi.from_buffer(array, b), ffi.from_buffer(array, y, True), y.size)
    return y


_PRODUCTS = {np.dtype(c): (getattr(lib, f"zorsMul_{s}"), ffi.typeof(f"Zor{s}[]")) for c, (s, _) in _TYPES.items()}
