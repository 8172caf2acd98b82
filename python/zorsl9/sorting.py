"""Sorts with the semantics of numpy.sort and numpy.argsort (stable), rising or falling.

    >>> import numpy as np
    >>> from zorsl9 import sorting
    >>> sorting.sort(np.float32([3, 1, 2]), descending=True)
    array([3., 2., 1.], dtype=float32)
"""
import numpy as np

from ._apply import function, suffix

__all__ = ["sort", "argsort"]


def sort(a, axis=-1, descending=False):
    """A sorted copy. NaN with the sign bit count as lowest, others as highest."""
    a = np.asarray(a)
    rows = np.array(np.moveaxis(a, axis, -1), order="C", copy=True)
    call = function("SortRadix" + ("Descend" if descending else "Ascend"), suffix(a), "_I")
    length = rows.shape[-1]
    if rows.size:
        spare = np.empty(length, a.dtype)
        for row in rows.reshape(-1, length):
            call(row, spare, length)
    return np.moveaxis(rows, -1, axis)


def argsort(a, axis=-1, descending=False):
    """The indices, int32, that sort a; equal elements keep their order."""
    a = np.asarray(a)
    rows = np.ascontiguousarray(np.moveaxis(a, axis, -1))
    call = function("SortRadixIndex" + ("Descend" if descending else "Ascend"), suffix(a))
    length = rows.shape[-1]
    places = np.empty(rows.shape, np.int32)
    if rows.size:
        spare = np.empty(length, np.int32)
        for row, place in zip(rows.reshape(-1, length), places.reshape(-1, length)):
            call(row, a.itemsize, place, spare, length)
    return np.moveaxis(places, -1, axis)
