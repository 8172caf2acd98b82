"""Signal processing for NumPy arrays.

``zorsl9.fft``, ``zorsl9.signal``, ``zorsl9.fixed``, ``zorsl9.g711``, ``zorsl9.random``, ``zorsl9.sorting``,
``zorsl9.statistics`` have the names and semantics of NumPy and SciPy where those have them; ``zorsl9.streams`` has
objects for what keeps state between blocks, ``zorsl9.scipy_fft`` is a backend of scipy.fft, ``zorsl9.dask`` has the
same operations for arrays of many machines, ``zorsl9.raw`` every function of the C library by name.
"""
import importlib

from . import raw
from ._errors import ZorsError, ZorsWarning

_MODULES = ("dask", "fft", "fixed", "g711", "random", "scipy_fft", "signal", "sorting", "statistics", "streams")
__all__ = ["ZorsError", "ZorsWarning", "raw", *_MODULES]
__version__ = raw.zorsGetLibVersion().Version


def __getattr__(name):
    if name in _MODULES:
        return importlib.import_module("." + name, __name__)
    raise AttributeError(f"module 'zorsl9' has no attribute {name!r}")


def __dir__():
    return sorted({*globals(), *_MODULES})
