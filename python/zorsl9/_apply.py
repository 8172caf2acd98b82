"""What the element-wise modules share: a function of the library over arrays of any shape."""
import numpy as np

from . import raw

NAMES = {"B": "8u", "b": "8s", "H": "16u", "h": "16s", "I": "32u", "i": "32s", "l": "64s", "L": "64u", "f": "32f", "d": "64f",
         "F": "32fc", "D": "64fc"}


def suffix(array):
    return NAMES.get(array.dtype.char, array.dtype.name)


def function(family, name, tail=""):
    """The export, or a TypeError that names the types that there are."""
    try:
        return getattr(raw, f"zors{family}_{name}{tail}")
    except AttributeError:
        raise TypeError(f"zorsl9: {family} has no form for {name}; convert the array to another type") from None


def destination(out, shape, dtype):
    """A new array, or the caller's of the right shape and type."""
    if out is None:
        return np.empty(shape, dtype)
    if not isinstance(out, np.ndarray) or out.shape != shape or out.dtype != dtype:
        raise ValueError(f"out must be an array of shape {shape} and type {np.dtype(dtype)}")
    return out


def finished(result, out):
    """The result in the caller's array where there is one."""
    if out is not None and out is not result:
        out[...] = result
        return out
    return result


def flat(array, dtype=None):
    return np.ascontiguousarray(array, dtype)
