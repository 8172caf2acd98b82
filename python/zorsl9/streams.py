"""Objects for what keeps state between blocks: filters, resamplers, tones.

Each is called with a block and goes on where the last one ended, whatever the lengths of the blocks. A closed object
raises ValueError. An object serves one thread at a time.

    >>> import numpy as np
    >>> from zorsl9.streams import Fir
    >>> with Fir([1, 1], dtype=np.float32) as f:
    ...     f(np.float32([1, 2])), f(np.float32([3]))
    (array([1., 3.], dtype=float32), array([5.], dtype=float32))
"""
import numpy as np

from . import raw

__all__ = ["Fir", "Iir", "Resampler", "Lms", "Tone", "Goertzel"]

_SUFFIX = {np.dtype("f4"): "32f", np.dtype("f8"): "64f", np.dtype("c8"): "32fc", np.dtype("c16"): "64fc"}


def _suffix(dtype, allowed=tuple(_SUFFIX)):
    dtype = np.dtype(dtype)
    if dtype not in allowed:
        raise TypeError(f"zorsl9.streams: the type must be one of {', '.join(d.name for d in allowed)}, not {dtype}")
    return dtype, _SUFFIX[dtype]


class _Stream:
    def __init__(self, dtype):
        self.dtype, self._state = dtype, raw.Handle()

    def _block(self, x):
        x = np.ascontiguousarray(x)
        if x.ndim != 1 or not np.can_cast(x.dtype, self.dtype, "same_kind"):
            raise TypeError(f"a block must be a vector of {self.dtype}, not {x.ndim}-dimensional of {x.dtype}")
        return x.astype(self.dtype, copy=False)

    @property
    def closed(self):
        return self._state.closed

    def close(self):
        """Releases the state. Closing twice does nothing."""
        self._state.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()


class Fir(_Stream):
    """A filter by its taps: y[i] = sum of taps[k] x[i - k]."""

    def __init__(self, taps, dtype=np.float64):
        dtype, self._name = _suffix(dtype)
        super().__init__(dtype)
        taps = np.ascontiguousarray(taps, dtype)
        getattr(raw, f"zorsFIRInitAlloc_{self._name}")(self._state, taps, taps.size, None)

    def __call__(self, x):
        x = self._block(x)
        y = np.empty_like(x)
        if x.size:
            getattr(raw, f"zorsFIR_{self._name}")(x, y, x.size, self._state)
        elif self.closed:
            raise ValueError("Fir: closed")
        return y


class Iir(_Stream):
    """A recursive filter by numerator and denominator, or by sections: ``Iir(sos=...)``."""

    def __init__(self, b=None, a=None, sos=None, dtype=np.float64):
        dtype, self._name = _suffix(dtype)
        super().__init__(dtype)
        if (sos is None) == (b is None or a is None):
            raise ValueError("Iir: either b and a, or sos")
        if sos is not None:
            sos = np.ascontiguousarray(sos, dtype)
            if sos.ndim != 2 or sos.shape[1] != 6:
                raise ValueError("Iir: sos must have shape (sections, 6)")
            getattr(raw, f"zorsIIRInitAlloc_BiQuad_{self._name}")(self._state, sos, len(sos), None)
        else:
            order = max(len(b), len(a)) - 1
            taps = np.zeros(2 * order + 2, dtype)
            taps[:len(b)], taps[order + 1:order + 1 + len(a)] = b, a
            getattr(raw, f"zorsIIRInitAlloc_{self._name}")(self._state, taps, order, None)

    def __call__(self, x):
        x = self._block(x)
        y = np.empty_like(x)
        if x.size:
            getattr(raw, f"zorsIIR_{self._name}")(x, y, x.size, self._state)
        elif self.closed:
            raise ValueError("Iir: closed")
        return y


class Resampler(_Stream):
    """A change of the rate by up / down behind a filter; blocks of any length, outputs as far as the input goes."""

    def __init__(self, up, down, taps, dtype=np.float64):
        dtype, self._name = _suffix(dtype)
        super().__init__(dtype)
        self._up, self._down, self._rest = up, down, np.zeros(0, dtype)
        taps = np.ascontiguousarray(taps, dtype)
        getattr(raw, f"zorsFIRMRInitAlloc_{self._name}")(self._state, taps, taps.size, up, 0, down, 0, None)

    def __call__(self, x):
        x = np.concatenate([self._rest, self._block(x)])
        count = x.size // self._down
        self._rest = x[count * self._down:].copy()
        y = np.empty(count * self._up, self.dtype)
        if count:
            getattr(raw, f"zorsFIR_{self._name}")(x, y, count, self._state)
        elif self.closed:
            raise ValueError("Resampler: closed")
        return y


class Lms(_Stream):
    """An adaptive filter: called with a block and the reference, it returns the outputs and moves its taps."""

    def __init__(self, taps, mu):
        super().__init__(np.dtype(np.float32))
        taps = np.ascontiguousarray(taps, np.float32)
        self.mu, self._count = mu, taps.size
        raw.zorsFIRLMSInitAlloc_32f(self._state, taps, taps.size, None, 0)

    def __call__(self, x, reference):
        x, reference = self._block(x), self._block(reference)
        if x.shape != reference.shape:
            raise ValueError("Lms: block and reference must have one length")
        y = np.empty_like(x)
        if x.size:
            raw.zorsFIRLMS_32f(x, reference, y, x.size, self.mu, self._state)
        return y

    @property
    def taps(self):
        taps = np.empty(self._count, np.float32)
        raw.zorsFIRLMSGetTaps_32f(self._state, taps)
        return taps


class Tone:
    """A sinusoid of so many cycles a sample that goes on from call to call."""

    def __init__(self, frequency, magnitude=1.0, phase=0.0, dtype=np.float64):
        self.dtype, self._name = _suffix(dtype)
        if not (0 <= frequency < 0.5 and magnitude > 0 and 0 <= phase < 2 * np.pi):  # NaN is refused too
            raise ValueError("Tone: frequency from 0 to below 0.5, magnitude above 0, phase from 0 to below 2 pi")
        kind = np.float32 if self._name.startswith("32") else np.float64
        self.frequency, self.magnitude, self._phase = frequency, magnitude, np.array([phase], kind)

    def __call__(self, count):
        y = np.empty(count, self.dtype)
        if count:
            getattr(raw, f"zorsTone_Direct_{self._name}")(y, count, self.magnitude, self.frequency, self._phase, 0)
        return y


class Goertzel:
    """One bin of the Fourier transform of each block, at a frequency in cycles a sample, from 0 to below 1."""

    def __init__(self, frequency, dtype=np.float64):
        self.dtype, self._name = _suffix(dtype)
        self.frequency = frequency

    def __call__(self, x):
        x = np.ascontiguousarray(x, self.dtype)
        value = np.empty(1, np.complex64 if self._name.startswith("32") else np.complex128)
        getattr(raw, f"zorsGoertz_{self._name}")(x, x.size, value, self.frequency)
        return value[0]
