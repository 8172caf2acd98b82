"""Random numbers that every machine repeats: the same seed gives the same bits.

    >>> from zorsl9 import random
    >>> a, b = random.Generator(5), random.Generator(5)
    >>> bool((a.normal(size=4) == b.normal(size=4)).all())
    True
"""
import numpy as np

from . import raw

__all__ = ["Generator"]

_SUFFIX = {np.dtype("u1"): "8u", np.dtype("i2"): "16s", np.dtype("f4"): "32f"}


class Generator:
    """Streams of uniform and normal numbers from one seed, which go on from call to call; uint8, int16 or float32.

    Each distribution with its parameters is a stream of its own that starts from the seed.
    """

    def __init__(self, seed=0):
        self._seed, self._states = int(seed) & 0xFFFFFFFF, {}

    def _draw(self, family, first, second, size, dtype):
        try:
            suffix = _SUFFIX[np.dtype(dtype)]
        except KeyError:
            raise TypeError("zorsl9.random: numbers are uint8, int16 or float32") from None
        state = self._states.get((family, first, second, suffix))
        if state is None:
            state = raw.Handle()
            getattr(raw, f"zors{family}InitAlloc_{suffix}")(state, first, second, self._seed)
            self._states[family, first, second, suffix] = state
        result = np.empty(1 if size is None else size, dtype)
        if result.size:
            getattr(raw, f"zors{family}_{suffix}")(result, result.size, state)
        return result[0] if size is None else result

    def uniform(self, low=0.0, high=1.0, size=None, dtype=np.float32):
        """Numbers spread evenly from low to high."""
        return self._draw("RandUniform", low, high, size, dtype)

    def normal(self, loc=0.0, scale=1.0, size=None, dtype=np.float32):
        """Normal numbers of mean loc and standard deviation scale."""
        return self._draw("RandGauss", loc, scale, size, dtype)
