"""Filtering, filter design, convolution and resampling with the names and semantics of scipy.signal.

float32 and complex64 stay in 32 bits (float16 becomes float32, everything else 64 bits). What the library has no kernel
for is computed by scipy.signal itself, which is then imported: convolutions of more than one dimension, band filters
and zeros-poles output of the designs, windows other than the library's, padding types of `resample_poly` other than
zeros.

    >>> import numpy as np
    >>> from zorsl9 import signal
    >>> signal.lfilter([1.0], [1.0, -0.5], [1.0, 0.0, 0.0])
    array([1.  , 0.5 , 0.25])
"""
import functools
import importlib
import math

import numpy as np

from . import fft as _fft, raw
from ._zorsl9 import ffi, lib

__all__ = ["lfilter", "sosfilt", "firwin", "butter", "cheby1", "upfirdn", "resample_poly", "correlate", "convolve",
           "fftconvolve", "oaconvolve", "medfilt", "hilbert", "get_window", "decimate", "haar", "ihaar"]

_SUFFIX = {"f": "32f", "d": "64f", "F": "32fc", "D": "64fc"}


def _scipy():
    return importlib.import_module("scipy.signal")


def _common(*arrays):
    """The arrays in the type that they share among the library's four floating types."""
    arrays = [np.asarray(a) for a in arrays]
    char = np.result_type(*arrays).char
    if char in "gGO":
        raise TypeError(f"zorsl9.signal: {np.result_type(*arrays)} is not supported; convert to float64")
    char = {"e": "f"}.get(char, char if char in _SUFFIX else "d")
    return [a.astype(char, copy=False) for a in arrays], char


_ARRAY = {suffix: ffi.typeof(f"Zor{suffix}[]") for suffix in (*_SUFFIX.values(), "8u", "16s", "32s")}


def _pointer(array, suffix):
    return ffi.from_buffer(_ARRAY[suffix], array)


def _check(name, status):
    if status:
        raw._status(name, status)


def _run(name, *arguments):
    _check(name, getattr(lib, name)(*arguments))


def _allocated(name, free, *arguments):
    """A state of the library that goes with its last reference."""
    out = ffi.new("ZorFIRState**" if "FIR" in name else "ZorIIRState**")
    _run(name, out, *arguments)
    return ffi.gc(out[0], getattr(lib, free))


def _rows(x, axis):
    """x with the axis last, contiguous."""
    if not -x.ndim <= axis < x.ndim:
        raise np.AxisError(axis, x.ndim)
    return np.ascontiguousarray(np.moveaxis(x, axis, -1) if axis % x.ndim != x.ndim - 1 else x)


def _back(y, axis):
    return y if axis % y.ndim == y.ndim - 1 else np.moveaxis(y, -1, axis)


def lfilter(b, a, x, axis=-1, zi=None):
    """Filters along an axis by the difference equation of b and a, as scipy.signal.lfilter.

    ``zi`` holds the registers of the transposed second form, as many as the order; with it the result is
    ``(y, zf)``. Raises ValueError for an a[0] of 0 and shapes that do not fit.

        >>> from zorsl9 import signal
        >>> signal.lfilter([0.5, 0.5], 1, [1.0, 3.0, 5.0])
        array([0.5, 2. , 4. ])
    """
    if zi is None and type(x) is np.ndarray and x.ndim == 1 and x.size and x.flags.c_contiguous:
        y = _recursive(b, a, x)
        if y is not None:
            return y
    (b, a, x, *z), char = _common(*(np.atleast_1d(b), np.atleast_1d(a), x) + (() if zi is None else (zi,)))
    if b.ndim != 1 or a.ndim != 1 or not b.size or not a.size:
        raise ValueError("lfilter: b and a must be one-dimensional and not empty")
    if a[0] == 0:
        raise ValueError("lfilter: a[0] must not be 0")
    if x.ndim == 0:
        raise ValueError("lfilter: x must have at least one dimension")
    order = max(b.size, a.size) - 1
    source = _rows(x, axis)
    rows = source.reshape(-1, source.shape[-1]) if source.size else source.reshape(0, source.shape[-1])
    y = np.empty_like(rows)
    shape = source.shape[:-1] + (order,)
    if z:
        registers = np.moveaxis(z[0], axis, -1) if z[0].ndim == x.ndim else z[0]
        try:
            registers = np.array(np.broadcast_to(registers, shape), order="C").reshape(-1, order)
        except ValueError:
            raise ValueError(f"lfilter: zi has shape {z[0].shape}, the filter and x need {order} registers a row") from None
    else:
        registers = np.zeros((rows.shape[0], order), char)
    suffix = _SUFFIX[char]
    if order == 0:
        np.multiply(rows, b[0] / a[0], out=y)
    elif rows.size:
        taps = np.zeros(2 * order + 2, char)
        taps[:b.size], taps[order + 1:order + 1 + a.size] = b, a
        if not a[1:].any():
            _fir_rows(taps[:order + 1] / a[0], rows, y, registers, suffix)
        else:
            state = _allocated(f"zorsIIRInitAlloc_{suffix}", f"zorsIIRFree_{suffix}", _pointer(taps, suffix), order, ffi.NULL)
            _filter_rows("IIR", state, rows, y, registers, suffix)
    y = _back(y.reshape(source.shape), axis)
    return (y, _back(registers.reshape(shape), axis)) if z else y


_RECURSIVE = {np.dtype(c): (getattr(lib, f"zorsIIRInitAlloc_{s}"), getattr(lib, f"zorsIIRFree_{s}"), getattr(lib, f"zorsIIR_{s}"),
                            _ARRAY[s]) for c, s in _SUFFIX.items()}


def _recursive(b, a, x):
    """The short way for a vector and taps of its type, from rest; None where it is not to be gone."""
    kind = _RECURSIVE.get(x.dtype)
    if kind is None or type(b) is not np.ndarray or type(a) is not np.ndarray or b.dtype != x.dtype or a.dtype != x.dtype or \
            b.ndim != 1 or a.ndim != 1 or a.size < 2 or b.size < 1:
        return None
    build, free, run, array = kind
    order = max(b.size, a.size) - 1
    taps = np.zeros(2 * order + 2, x.dtype)
    taps[:b.size] = b
    taps[order + 1:order + 1 + a.size] = a
    if not taps[order + 1] or np.count_nonzero(a) < 2:
        return None
    y, out = np.empty_like(x), ffi.new(_STATE)
    status = build(out, ffi.from_buffer(array, taps), order, ffi.NULL)
    if status == 0:
        try:
            status = run(ffi.from_buffer(array, x), ffi.from_buffer(array, y), x.size, out[0])
        finally:
            free(out[0])
    _check("lfilter", status)
    return y


_STATE = ffi.typeof("ZorIIRState**")


def _filter_rows(family, state, rows, y, registers, suffix):
    """Each row from its registers, which are replaced by those after it."""
    run, length = getattr(lib, f"zors{family}_{suffix}"), rows.shape[1]
    set_registers, get_registers = (getattr(lib, f"zors{family}{w}DlyLine_{suffix}") for w in ("Set", "Get"))
    for r in range(rows.shape[0]):
        line = _pointer(registers[r], suffix)
        set_registers(state, line)
        _check(f"zors{family}_{suffix}", run(_pointer(rows[r], suffix), _pointer(y[r], suffix), length, state))
        get_registers(state, line)


def _fir_rows(taps, rows, y, registers, suffix):
    """A filter without feedback; registers of the transposed form are the answer to the past."""
    order, length = taps.size - 1, rows.shape[1]
    state = _allocated(f"zorsFIRInitAlloc_{suffix}", f"zorsFIRFree_{suffix}", _pointer(taps, suffix), taps.size, ffi.NULL)
    run, clear = getattr(lib, f"zorsFIR_{suffix}"), getattr(lib, f"zorsFIRSetDlyLine_{suffix}")
    zeros = np.zeros(taps.size, taps.dtype)
    for r in range(rows.shape[0]):
        if r:
            clear(state, _pointer(zeros, suffix))
        _check("zorsFIR", run(_pointer(rows[r], suffix), _pointer(y[r], suffix), length, state))
        head = min(order, length)
        y[r, :head] += registers[r, :head]
        after = np.zeros(order, taps.dtype)
        after[:order - head] = registers[r, head:]
        last = rows[r, length - head:]
        tail = np.convolve(last, taps)[head:head + order]
        after[:tail.size] += tail
        registers[r] = after


def sosfilt(sos, x, axis=-1, zi=None):
    """Filters along an axis by sections of second order, as scipy.signal.sosfilt.

    ``sos`` has shape (sections, 6) with a0 = 1, ``zi`` that of x with (sections, ..., 2, ...).
    """
    sos = np.atleast_2d(np.asarray(sos))
    if sos.ndim != 2 or sos.shape[1] != 6:
        raise ValueError("sosfilt: sos must have shape (sections, 6)")
    if not (sos[:, 3] == 1).all():
        raise ValueError("sosfilt: a0 of each section, sos[:, 3], must be 1")
    (sos, x, *z), char = _common(*(sos, x) + (() if zi is None else (zi,)))
    if x.ndim == 0:
        raise ValueError("sosfilt: x must have at least one dimension")
    sections = sos.shape[0]
    source = _rows(x, axis)
    shape = (sections,) + source.shape[:-1] + (2,)
    if z:
        wanted = list(x.shape)
        wanted[axis] = 2
        if z[0].shape != (sections, *wanted):
            raise ValueError(f"sosfilt: zi has shape {z[0].shape}, the filter and x need {(sections, *wanted)}")
        registers = np.moveaxis(z[0], axis % x.ndim + 1, -1)
    else:
        registers = np.zeros(shape, char)
    rows = source.reshape(-1, source.shape[-1]) if source.size else source.reshape(0, source.shape[-1])
    registers = np.array(np.moveaxis(registers.reshape(sections, rows.shape[0], 2), 0, 1), order="C")
    suffix = _SUFFIX[char]
    if rows.size and (sos[:, 0] != 0).all():
        y = np.empty_like(rows)
        state = _allocated(f"zorsIIRInitAlloc_BiQuad_{suffix}", f"zorsIIRFree_{suffix}",
                           _pointer(np.ascontiguousarray(sos), suffix), sections, ffi.NULL)
        _filter_rows("IIR", state, rows, y, registers.reshape(rows.shape[0], 2 * sections), suffix)
    else:
        y = rows.copy()
        for s in range(sections if rows.size else 0):
            y, registers[:, s] = lfilter(sos[s, :3], sos[s, 3:], y, zi=registers[:, s])
    y = _back(y.reshape(source.shape), axis)
    if not z:
        return y
    registers = np.moveaxis(registers, 1, 0).reshape(shape)
    return y, np.moveaxis(registers, -1, axis % x.ndim + 1)


_WINDOWS = {"bartlett": "Bartlett", "bart": "Bartlett", "brt": "Bartlett", "hann": "Hann", "han": "Hann",
            "hamming": "Hamming", "hamm": "Hamming", "ham": "Hamming", "blackman": "BlackmanStd", "black": "BlackmanStd",
            "blk": "BlackmanStd"}


def get_window(window, Nx, fftbins=True):
    """A window of Nx values, periodic (``fftbins``) or symmetric, as scipy.signal.get_window.

        >>> from zorsl9 import signal
        >>> signal.get_window("hann", 4)
        array([0. , 0.5, 1. , 0.5])
    """
    name = _WINDOWS.get(window) if isinstance(window, str) else None
    length = Nx + 1 if fftbins else Nx
    if isinstance(window, tuple) and window[:1] == ("kaiser",) and len(window) == 2:
        return np.kaiser(length, window[1])[:Nx]
    if name is None or length < 4:
        return _scipy().get_window(window, Nx, fftbins)
    w = np.ones(length)
    _run(f"zorsWin{name}_64f_I", _pointer(w, "64f"), length)
    return w[:Nx]


def firwin(numtaps, cutoff, width=None, window="hamming", pass_zero=True, scale=True, nyq=None, fs=None):
    """Taps of a filter of linear phase by the window method, as scipy.signal.firwin."""
    cutoff_ = np.atleast_1d(cutoff)
    if width is not None or nyq is not None or cutoff_.size != 1 or pass_zero not in (True, "lowpass") or \
            window != "hamming" or numtaps < 5:
        return _scipy().firwin(numtaps, cutoff, width=width, window=window, pass_zero=pass_zero, scale=scale, fs=fs)
    freq = float(cutoff_[0]) / (2 if fs is None else fs)
    if not 0 < freq < 0.5:
        raise ValueError("Invalid cutoff frequency: frequencies must be greater than 0 and less than fs/2.")
    taps = np.empty(numtaps)
    _run("zorsFIRGenLowpass_64f", freq, _pointer(taps, "64f"), numtaps, 2, int(bool(scale)))
    return taps


def _design(kind, N, ripple, Wn, btype, analog, output, fs):
    band = {"low": "Lowpass", "lowpass": "Lowpass", "high": "Highpass", "highpass": "Highpass", "lp": "Lowpass",
            "hp": "Highpass"}.get(btype)
    if band is None or analog or output != "ba" or np.ndim(Wn) != 0 or not 1 <= N <= 12:
        function = _scipy().butter if kind == 0 else functools.partial(_scipy().cheby1, rp=ripple)
        return function(N, Wn=Wn, btype=btype, analog=analog, output=output, fs=fs)
    freq = Wn / (2 if fs is None else fs)
    if not 0 < freq < 0.5:
        raise ValueError("Digital filter critical frequencies must be 0 < Wn < fs/2")
    taps = np.empty(2 * N + 2)
    _run(f"zorsIIRGen{band}_64f", freq, ripple, N, _pointer(taps, "64f"), kind)
    return taps[:N + 1].copy(), taps[N + 1:].copy()


def butter(N, Wn, btype="low", analog=False, output="ba", fs=None):
    """A Butterworth filter, as scipy.signal.butter."""
    return _design(0, N, 0.0, Wn, btype, analog, output, fs)


def cheby1(N, rp, Wn, btype="low", analog=False, output="ba", fs=None):
    """A Chebyshev filter of the first kind, as scipy.signal.cheby1."""
    return _design(1, N, rp, Wn, btype, analog, output, fs)


def upfirdn(h, x, up=1, down=1, axis=-1):
    """Raises the rate by up, filters by h, lowers the rate by down, as scipy.signal.upfirdn with zeros outside of x.

        >>> from zorsl9 import signal
        >>> signal.upfirdn([1, 1, 1], [1.0, 2.0, 3.0], 3)
        array([1., 1., 1., 2., 2., 2., 3., 3., 3.])
    """
    (h, x), char = _common(h, x)
    if h.ndim != 1 or not h.size:
        raise ValueError("upfirdn: h must be one-dimensional and not empty")
    if up < 1 or down < 1:
        raise ValueError("upfirdn: up and down must be at least 1")
    source = _rows(x, axis)
    length = source.shape[-1]
    if length == 0:
        raise ValueError("upfirdn: x must not be empty along the axis")
    rows = source.reshape(-1, length)
    total = -(-((length - 1) * up + h.size) // down)
    iterations = -(-total // up)
    padded = np.zeros(max(iterations * down, length), char)
    y = np.empty((rows.shape[0], iterations * up), char)
    suffix = _SUFFIX[char]
    state = _allocated(f"zorsFIRMRInitAlloc_{suffix}", f"zorsFIRFree_{suffix}",
                       _pointer(np.ascontiguousarray(h), suffix), h.size, up, 0, down, 0, ffi.NULL)
    run, clear = getattr(lib, f"zorsFIR_{suffix}"), getattr(lib, f"zorsFIRSetDlyLine_{suffix}")
    history = _pointer(np.zeros(-(-h.size // up), char), suffix)
    for r in range(rows.shape[0]):
        if r:
            clear(state, history)
        padded[:length] = rows[r]
        _check("upfirdn", run(_pointer(padded, suffix), _pointer(y[r], suffix), iterations, state))
    return _back(y[:, :total].reshape(source.shape[:-1] + (total,)), axis)


@functools.lru_cache(maxsize=32)
def _resampling_taps(up, down, window):
    half = 10 * max(up, down)
    return _scipy().firwin(2 * half + 1, 1 / max(up, down), window=window) * up


def resample_poly(x, up, down, axis=-1, window=("kaiser", 5.0), padtype="constant", cval=None):
    """Resamples along an axis by the factor up / down, as scipy.signal.resample_poly."""
    x = np.asarray(x)
    if up != int(up) or down != int(down):
        raise ValueError("up and down must be integers")
    up, down = int(up), int(down)
    if up < 1 or down < 1:
        raise ValueError("up and down must be >= 1")
    if padtype != "constant" or cval is not None or x.dtype.kind not in "biufc":
        return _scipy().resample_poly(x, up, down, axis, window, padtype, cval)
    common = math.gcd(up, down)
    up, down = up // common, down // common
    if up == down == 1:
        return x.copy()
    if isinstance(window, (list, np.ndarray)):
        h = np.asarray(window)
        if h.ndim > 1:
            raise ValueError("window must be 1-D")
        half, h = (h.size - 1) // 2, h * up
    else:
        half, h = 10 * max(up, down), _resampling_taps(up, down, window)
    (x, h), char = _common(x, h.astype(x.dtype) if x.dtype.kind in "fc" else h)
    before = down - half % down
    remove = (half + before) // down
    count = -(-x.shape[axis] * up // down)
    after = 0
    while -(-((x.shape[axis] - 1) * up + h.size + before + after) // down) < count + remove:
        after += 1
    h = np.concatenate([np.zeros(before, char), h, np.zeros(after, char)])
    y = upfirdn(h, x, up, down, axis)
    keep = [slice(None)] * y.ndim
    keep[axis] = slice(remove, remove + count)
    return y[tuple(keep)]


def _full(a, b, char):
    """The whole convolution of two vectors."""
    a, b = np.ascontiguousarray(a), np.ascontiguousarray(b)
    y = np.empty(a.size + b.size - 1, char)
    suffix = _SUFFIX[char]
    if char in "fd":
        _run(f"zorsConv_{suffix}", _pointer(a, suffix), a.size, _pointer(b, suffix), b.size, _pointer(y, suffix))
    else:
        flipped = np.conj(a[::-1])
        _run(f"zorsCrossCorr_{suffix}", _pointer(np.ascontiguousarray(flipped), suffix), a.size, _pointer(b, suffix), b.size,
             _pointer(y, suffix), y.size, 1 - a.size)
    return y


def _overlapped(a, b, char):
    """The whole convolution of a long and a short vector, by a filter that transforms block after block."""
    if b.size > a.size:
        a, b = b, a
    x = np.zeros(a.size + b.size - 1, char)
    x[:a.size] = a
    y = np.empty_like(x)
    suffix = _SUFFIX[char]
    state = _allocated(f"zorsFIRInitAlloc_{suffix}", f"zorsFIRFree_{suffix}", _pointer(np.ascontiguousarray(b), suffix), b.size,
                       ffi.NULL)
    _run(f"zorsFIR_{suffix}", _pointer(x, suffix), _pointer(y, suffix), x.size, state)
    return y


def _cut(y, first, second, mode):
    """The part of the whole result that a mode of SciPy keeps."""
    if mode == "full":
        return y
    if mode == "same":
        count = first
    elif mode == "valid":
        count = max(first, second) - min(first, second) + 1
    else:
        raise ValueError("acceptable mode flags are 'valid', 'same', or 'full'")
    start = (y.size - count) // 2
    return y[start:start + count].copy()


def _convolution(name, in1, in2, mode, kernel):
    a, b = np.asarray(in1), np.asarray(in2)
    if a.ndim != b.ndim:
        raise ValueError(f"{name}: in1 and in2 should have the same dimensionality")
    if a.ndim != 1 or not a.size or not b.size:
        return getattr(_scipy(), name)(in1, in2, mode)
    integers = a.dtype.kind in "biu" and b.dtype.kind in "biu"
    if integers and name in ("convolve", "correlate"):
        return getattr(_scipy(), name)(in1, in2, mode)
    (a, b), char = _common(a, b)
    return kernel(a, b, char)


def convolve(in1, in2, mode="full", method="auto"):
    """The convolution, as scipy.signal.convolve.

        >>> from zorsl9 import signal
        >>> signal.convolve([1.0, 2.0], [1.0, 10.0])
        array([ 1., 12., 20.])
    """
    return _convolution("convolve", in1, in2, mode, lambda a, b, c: _cut(_full(a, b, c), a.size, b.size, mode))


def fftconvolve(in1, in2, mode="full", axes=None):
    """The convolution of floating point arrays, as scipy.signal.fftconvolve."""
    return _convolution("fftconvolve", in1, in2, mode, lambda a, b, c: _cut(_full(a, b, c), a.size, b.size, mode))


def oaconvolve(in1, in2, mode="full", axes=None):
    """The convolution of a long array and a short one, block by block, as scipy.signal.oaconvolve."""
    return _convolution("oaconvolve", in1, in2, mode, lambda a, b, c: _cut(_overlapped(a, b, c), a.size, b.size, mode))


def correlate(in1, in2, mode="full", method="auto"):
    """The cross-correlation, as scipy.signal.correlate."""
    def kernel(a, b, char):
        a, b = np.ascontiguousarray(a), np.ascontiguousarray(b)
        y = np.empty(a.size + b.size - 1, char)
        suffix = _SUFFIX[char]
        _run(f"zorsCrossCorr_{suffix}", _pointer(b, suffix), b.size, _pointer(a, suffix), a.size, _pointer(y, suffix), y.size,
             1 - b.size)
        return _cut(y, a.size, b.size, mode)
    return _convolution("correlate", in1, in2, mode, kernel)


_MEDIANS = {"B": "8u", "h": "16s", "i": "32s", "f": "32f", "d": "64f"}


def medfilt(volume, kernel_size=3):
    """The running median of a vector with zeros outside, as scipy.signal.medfilt.

        >>> from zorsl9 import signal
        >>> signal.medfilt([1.0, 9.0, 2.0, 3.0])
        array([1., 2., 3., 2.])
    """
    x = np.atleast_1d(np.asarray(volume))
    size = np.atleast_1d(kernel_size)
    if x.ndim != 1 or x.dtype.char not in _MEDIANS or not x.size:
        return _scipy().medfilt(volume, kernel_size)
    if size.size != 1 or size[0] % 2 != 1 or size[0] < 1:
        raise ValueError("Each element of kernel_size should be odd.")
    half, suffix = int(size[0]) // 2, _MEDIANS[x.dtype.char]
    padded = np.zeros(x.size + 2 * half, x.dtype)
    padded[half:half + x.size] = x
    y = np.empty_like(padded)
    if padded.size < 3:
        return x.copy()
    _run(f"zorsFilterMedian_{suffix}", _pointer(padded, suffix), _pointer(y, suffix), y.size, 2 * half + 1)
    return y[half:half + x.size].copy()


def hilbert(x, N=None, axis=-1):
    """The analytic signal of a real array, as scipy.signal.hilbert."""
    x = np.asarray(x)
    if np.iscomplexobj(x):
        raise ValueError("x must be real.")
    N = x.shape[axis] if N is None else N
    if N <= 0:
        raise ValueError("N must be positive.")
    spectrum = _fft.rfft(x, N, axis)
    whole = np.zeros(spectrum.shape[:axis % x.ndim] + (N,) + spectrum.shape[axis % x.ndim + 1:], spectrum.dtype)
    source, target = np.moveaxis(spectrum, axis, -1), np.moveaxis(whole, axis, -1)
    target[..., :source.shape[-1]] = source
    target[..., 1:(N + 1) // 2] *= 2
    return _fft.ifft(whole, axis=axis)


def decimate(x, q, n=None, ftype="iir", axis=-1, zero_phase=True):
    """Lowers the rate by q behind a filter, as scipy.signal.decimate; ``ftype`` "fir" runs here, others in SciPy."""
    if ftype != "fir":
        return _scipy().decimate(x, q, n, ftype, axis, zero_phase)
    n = 20 * q if n is None else n
    b = firwin(n + 1, 1 / q, window="hamming")
    if zero_phase:
        return resample_poly(x, 1, q, axis=axis, window=b)
    x = np.asarray(x)
    y = upfirdn(b, x, 1, q, axis)
    keep = [slice(None)] * y.ndim
    keep[axis] = slice(None, -(-x.shape[axis] // q))
    return y[tuple(keep)]


def haar(x):
    """One level of the Haar transform of a vector: (low, high), halves of the sums and differences of pairs."""
    (x,), char = _common(np.ascontiguousarray(x))
    if x.ndim != 1 or not x.size or char not in "fd":
        raise ValueError("haar: x must be a real vector that is not empty")
    low, high = np.empty((x.size + 1) // 2, char), np.empty(max(x.size // 2, 1), char)
    suffix = _SUFFIX[char]
    _run(f"zorsWTHaarFwd_{suffix}", _pointer(x, suffix), x.size, _pointer(low, suffix), _pointer(high, suffix))
    return low, high[:x.size // 2]


def ihaar(low, high):
    """The inverse of `haar`."""
    (low, high), char = _common(np.ascontiguousarray(low), np.ascontiguousarray(high))
    if char not in "fd" or not low.size or low.size - high.size not in (0, 1):
        raise ValueError("ihaar: low has as many values as high, or one more")
    x = np.empty(low.size + high.size, char)
    suffix = _SUFFIX[char]
    band = high if high.size else np.zeros(1, char)
    _run(f"zorsWTHaarInv_{suffix}", _pointer(low, suffix), _pointer(band, suffix), _pointer(x, suffix), x.size)
    return x
