"""Saturating, scaled arithmetic of integer arrays: what NumPy's integers, which wrap, cannot do.

An exact result is divided by 2**scale, rounded to nearest, ties to even, and limited to the type's range.

    >>> import numpy as np
    >>> from zorsl9 import fixed
    >>> fixed.add(np.int16([30000, 3]), np.int16([10000, 2]))
    array([32767,     5], dtype=int16)
    >>> fixed.multiply(np.int16([20000]), np.int16([16384]), scale=15)
    array([10000], dtype=int16)
"""
import numpy as np

from ._apply import destination, finished, flat, function, suffix

__all__ = ["add", "subtract", "multiply", "divide", "convert", "to_float"]

_ROUND = {"even": 1, "zero": 0, "away": 2}


def _binary(family, a, b, scale, out):
    a, b = np.asarray(a), np.asarray(b)
    if a.dtype != b.dtype:
        raise TypeError(f"zorsl9.fixed: both operands must be of one type, not {a.dtype} and {b.dtype}")
    shape = np.broadcast_shapes(a.shape, b.shape)
    first, second = (flat(np.broadcast_to(x, shape)) for x in (a, b))
    result = out if out is not None and out.flags.c_contiguous and out.shape == shape else None
    result = destination(result, shape, a.dtype)
    if out is not None:
        destination(out, shape, a.dtype)
    call = function(family, suffix(a), "_Sfs")
    if result.size:
        call(first, second, result, result.size, scale)
    return finished(result, out)


def add(a, b, scale=0, out=None):
    """(a + b) / 2**scale, saturated; uint8, uint16, int16, int32, int64."""
    return _binary("Add", a, b, scale, out)


def subtract(a, b, scale=0, out=None):
    """(a - b) / 2**scale, saturated; uint8, uint16, int16, int32."""
    return _binary("Sub", b, a, scale, out)


def multiply(a, b, scale=0, out=None):
    """a * b / 2**scale, saturated; uint8, uint16, int16, int32."""
    return _binary("Mul", a, b, scale, out)


def divide(a, b, scale=0, out=None):
    """a / b / 2**scale, saturated; a divisor of 0 warns with ZorsWarning. uint8, uint16, int16, int32."""
    return _binary("Div", b, a, scale, out)


def convert(x, dtype, scale=0, rounding="even"):
    """x / 2**scale as integers of another type, rounded "even", "away" (halves) or toward "zero", saturated.

        >>> import numpy as np
        >>> from zorsl9 import fixed
        >>> fixed.convert(np.float32([0.5, 2.0]), np.int16, scale=-15)
        array([16384, 32767], dtype=int16)
    """
    x = flat(x)
    if rounding not in _ROUND:
        raise ValueError("rounding must be 'even', 'away' or 'zero'")
    y = np.empty(x.shape, dtype)
    call = function("Convert", suffix(x) + suffix(y), "_Sfs")
    if y.size:
        call(x, y, y.size, _ROUND[rounding], scale)
    return y


def to_float(x, dtype=np.float32, scale=0):
    """x / 2**scale as floats; int16 and int32 to float32 and float64."""
    x = flat(x)
    y = np.empty(x.shape, dtype)
    call = function("Convert", suffix(x) + suffix(y), "_Sfs")
    if y.size:
        call(x, y, y.size, scale)
    return y
