"""Discrete Fourier and cosine transforms with the names and semantics of numpy.fft and scipy.fft.

float32 and complex64 stay in 32 bits, float16 becomes float32, everything else float64. Any length, any axis; the
norms are "backward" (None), "ortho" and "forward". Specifications of recent lengths are kept and shared by threads;
other threads run during a transform. long double is refused with TypeError.

    >>> import numpy as np
    >>> from zorsl9 import fft
    >>> np.round(fft.rfft([1.0, 2.0, 3.0, 4.0]), 6)
    array([10.+0.j, -2.+2.j, -2.+0.j])
    >>> fft.fft(np.zeros((2, 5), np.float32)).dtype
    dtype('complex64')
"""
import functools
import math

import numpy as np

from . import raw
from ._zorsl9 import ffi, lib

__all__ = ["fft", "ifft", "rfft", "irfft", "hfft", "ihfft", "fft2", "ifft2", "rfft2", "irfft2", "hfft2", "ihfft2", "fftn",
           "ifftn", "rfftn", "irfftn", "hfftn", "ihfftn", "dct", "idct", "dctn", "idctn"]

# Which of the two directions divides: (forward transforms, inverse ones) see the same flag in the specification.
_FLAGS = {None: lib.ZOR_FFT_DIVIDE_INVERSE, "backward": lib.ZOR_FFT_DIVIDE_INVERSE,
          "ortho": lib.ZOR_FFT_DIVIDE_BOTH_ROOT, "forward": lib.ZOR_FFT_DIVIDE_FORWARD}
_SWAPPED = {None: "forward", "backward": "forward", "ortho": "ortho", "forward": "backward"}


class _Plan:
    """A specification, its transforms as addresses, and work buffers that are not in use."""

    def __init__(self, family, suffix, transforms, *arguments):
        out = ffi.new(f"Zors{family}Spec{suffix}**")
        maker = f"zors{family}InitAlloc{suffix}"
        status = getattr(lib, maker)(out, *arguments)
        if status:
            raw._status(maker, status)
        self.spec = ffi.gc(out[0], getattr(lib, f"zors{family}Free{suffix}"))
        size = ffi.new("int32_t*")
        getattr(lib, f"zors{family}GetBufSize{suffix}")(self.spec, size)
        self.size, self.buffers = size[0], []
        self.transforms = [ffi.cast("void*", ffi.addressof(lib, name)) for name in transforms]

    def run(self, number, src, dst, rows, mirror=None, length=0):
        """Transforms the rows of src, contiguous, to those of dst."""
        try:
            buffer = self.buffers.pop()
        except IndexError:
            buffer = ffi.new("Zor8u[]", self.size) if self.size else ffi.NULL
        src_step, dst_step = src.nbytes // rows, dst.nbytes // rows
        if mirror is None:
            status = lib.zorsPyTransformRows(self.transforms[number], self.spec, ffi.from_buffer(src), src_step,
                                             ffi.from_buffer(dst), dst_step, rows, buffer)
        else:
            status = lib.zorsPyRealToWholeRows(self.transforms[number], mirror, self.spec, ffi.from_buffer(src), src_step,
                                               ffi.from_buffer(dst), dst_step, rows, length, buffer)
        if len(self.buffers) < 4:
            self.buffers.append(buffer)
        if status:
            raw._status("transform", status)


@functools.lru_cache(maxsize=64)
def _complex_plan(n, suffix, flag):
    return _Plan("DFT", "_C_" + suffix, (f"zorsDFTFwd_CToC_{suffix}", f"zorsDFTInv_CToC_{suffix}"), n, flag, 0)


@functools.lru_cache(maxsize=64)
def _real_plan(n, suffix, flag):
    return _Plan("DFT", "_R_" + suffix, (f"zorsDFTFwd_RToCCS_{suffix}", f"zorsDFTInv_CCSToR_{suffix}"), n, flag, 0)


@functools.lru_cache(maxsize=64)
def _cosine_plan(n, suffix, inverse):
    family = "DCTInv" if inverse else "DCTFwd"
    return _Plan(family, "_" + suffix, (f"zors{family}_{suffix}",), n, 0)


_MIRROR = {"32f": ffi.cast("void*", ffi.addressof(lib, "zorsConjCcs_32fc_I")),
           "64f": ffi.cast("void*", ffi.addressof(lib, "zorsConjCcs_64fc_I"))}


def _flag(norm):
    try:
        return _FLAGS[norm]
    except (KeyError, TypeError):
        raise ValueError(f'Invalid norm value {norm!r}, should be "backward", "ortho" or "forward"') from None


_KEPT = {np.dtype(t) for t in "fdFD"}


def _floats(x):
    """An array of one of the four types that the library transforms."""
    if not isinstance(x, np.ndarray):
        x = np.asarray(x)
    if x.dtype in _KEPT and x.dtype.isnative:
        return x
    if x.dtype.char in "gGO":
        raise TypeError(f"zorsl9.fft: {x.dtype} is not supported; convert it to float64 or use scipy.fft")
    if x.dtype.kind in "fc" and x.dtype.itemsize >= 4:
        return x.astype(x.dtype.newbyteorder("="))
    return x.astype(np.float32 if x.dtype == np.float16 else np.float64)


def _to_last(x, n, axis):
    """x with the axis last, cut or filled with zeros to n, contiguous: (rows, where the axis was)."""
    ndim = x.ndim
    if not -ndim <= axis < ndim:
        raise np.AxisError(axis, ndim)
    axis %= ndim
    if axis != ndim - 1:
        x = np.moveaxis(x, axis, -1)
    has = x.shape[-1]
    if n is None:
        n = has
    if n < 1:
        raise ValueError(f"invalid number of data points ({n}) specified")
    if n < has:
        x = x[..., :n]
    elif n > has:
        filled = np.zeros(x.shape[:-1] + (n,), x.dtype)
        filled[..., :has] = x
        return filled, axis
    if not (x.flags.c_contiguous and x.flags.aligned):
        x = np.array(x, order="C", copy=True)
    return x, axis


def _back(y, axis):
    return y if axis == y.ndim - 1 else np.moveaxis(y, -1, axis)


def _index(n):
    return n if n is None else n.__index__()


def _c2c(x, n, axis, norm, inverse):
    flag = _flag(norm)
    x = _floats(x)
    real = x.dtype.kind == "f"
    if real and inverse:
        x, real = x.astype(np.complex64 if x.itemsize == 4 else np.complex128), False
    x, axis = _to_last(x, _index(n), axis)
    n = x.shape[-1]
    single = x.dtype.char in "fF"
    y = np.empty(x.shape, np.complex64 if single else np.complex128)
    if y.size == 0:
        return _back(y, axis)
    if real:
        suffix = "32f" if single else "64f"
        _real_plan(n, suffix, flag).run(0, x, y, y.size // n, _MIRROR[suffix], n)
    else:
        _complex_plan(n, "32fc" if single else "64fc", flag).run(int(inverse), x, y, y.size // n)
    return _back(y, axis)


def fft(x, n=None, axis=-1, norm=None):
    """The transform X[k] = sum of x[m] exp(-2 pi i m k / n) along an axis, as numpy.fft.fft.

    ``x`` real or complex, any shape; cut or filled with zeros to ``n``. Raises ValueError for ``n`` below 1 or an
    unknown norm.

        >>> import numpy as np, zorsl9.fft
        >>> np.round(zorsl9.fft.fft([1, 0, 0]), 6) + 0
        array([1.+0.j, 1.+0.j, 1.+0.j])
    """
    return _c2c(x, n, axis, norm, False)


def ifft(x, n=None, axis=-1, norm=None):
    """The inverse of `fft`."""
    return _c2c(x, n, axis, norm, True)


def rfft(x, n=None, axis=-1, norm=None):
    """The terms 0 to n // 2 of the transform of a real array. Raises TypeError for complex input."""
    flag = _flag(norm)
    x = _floats(x)
    if x.dtype.kind != "f":
        raise TypeError("x must be a real sequence")
    x, axis = _to_last(x, _index(n), axis)
    n = x.shape[-1]
    single = x.itemsize == 4
    y = np.empty(x.shape[:-1] + (n // 2 + 1,), np.complex64 if single else np.complex128)
    if y.size:
        _real_plan(n, "32f" if single else "64f", flag).run(0, x, y, x.size // n)
    return _back(y, axis)


def irfft(x, n=None, axis=-1, norm=None):
    """The real array of n values whose `rfft` is x; n is 2 (m - 1) of m terms where it is not given."""
    flag = _flag(norm)
    x = _floats(x)
    if x.dtype.kind == "f":
        x = x.astype(np.complex64 if x.itemsize == 4 else np.complex128)
    if not -x.ndim <= axis < x.ndim:
        raise np.AxisError(axis, x.ndim)
    n = 2 * (x.shape[axis] - 1) if n is None else _index(n)
    if n < 1:
        raise ValueError(f"invalid number of data points ({n}) specified")
    x, axis = _to_last(x, n // 2 + 1, axis)
    single = x.itemsize == 8
    y = np.empty(x.shape[:-1] + (n,), np.float32 if single else np.float64)
    if y.size:
        _real_plan(n, "32f" if single else "64f", flag).run(1, x, y, y.size // n)
    return _back(y, axis)


def hfft(x, n=None, axis=-1, norm=None):
    """The transform of an array with Hermitian symmetry, real, as numpy.fft.hfft."""
    _flag(norm)
    return irfft(np.conj(_floats(x)), n, axis, _SWAPPED[norm])


def ihfft(x, n=None, axis=-1, norm=None):
    """The inverse of `hfft`."""
    _flag(norm)
    return np.conj(rfft(x, n, axis, _SWAPPED[norm]))


def _integers(value, name):
    if isinstance(value, (int, np.integer)):
        value = (value,)
    try:
        return [v.__index__() for v in value]
    except (AttributeError, TypeError):
        raise ValueError(f"{name} must be a scalar or iterable of integers") from None


def _shape_and_axes(x, s, axes):
    """As scipy.fft: the lengths along the axes, and the axes from 0 on."""
    if axes is not None:
        axes = [a + x.ndim if a < 0 else a for a in _integers(axes, "axes")]
        if any(not 0 <= a < x.ndim for a in axes):
            raise ValueError("axes exceeds dimensionality of input")
        if len(set(axes)) != len(axes):
            raise ValueError("all axes must be unique")
    if s is not None:
        s = _integers(s, "shape")
        if axes and len(axes) != len(s):
            raise ValueError("when given, axes and shape arguments have to be of the same length")
        if axes is None:
            if len(s) > x.ndim:
                raise ValueError("shape requires more axes than are present")
            axes = range(x.ndim - len(s), x.ndim)
        s = [x.shape[a] if length == -1 else length for length, a in zip(s, axes)]
    else:
        axes = range(x.ndim) if axes is None else axes
        s = [x.shape[a] for a in axes]
    if any(length < 1 for length in s):
        raise ValueError(f"invalid number of data points ({s}) specified")
    return s, list(axes)


def _along(transform, x, s, axes, norm):
    """A transform along several axes, one after the other."""
    for length, axis in zip(s, axes):
        x = transform(x, length, axis, norm)
    return x


def fftn(x, s=None, axes=None, norm=None):
    """`fft` along several axes, all by default."""
    _flag(norm)
    x = _floats(x)
    s, axes = _shape_and_axes(x, s, axes)
    return _along(fft, x, s[::-1], axes[::-1], norm) if axes else x


def ifftn(x, s=None, axes=None, norm=None):
    """`ifft` along several axes, all by default."""
    _flag(norm)
    x = _floats(x)
    s, axes = _shape_and_axes(x, s, axes)
    return _along(ifft, x, s[::-1], axes[::-1], norm) if axes else x


def rfftn(x, s=None, axes=None, norm=None):
    """`rfft` along the last of several axes, `fft` along the others."""
    _flag(norm)
    x = _floats(x)
    if x.dtype.kind != "f":
        raise TypeError("x must be a real sequence")
    s, axes = _shape_and_axes(x, s, axes)
    if not axes:
        raise ValueError("at least 1 axis must be transformed")
    return _along(fft, rfft(x, s[-1], axes[-1], norm), s[:-1], axes[:-1], norm)


def irfftn(x, s=None, axes=None, norm=None):
    """The inverse of `rfftn`."""
    _flag(norm)
    x = _floats(x)
    lengths, found = _shape_and_axes(x, s, axes)
    if not found:
        raise ValueError("at least 1 axis must be transformed")
    if s is None:
        lengths[-1] = 2 * (x.shape[found[-1]] - 1)
        if lengths[-1] < 1:
            raise ValueError(f"invalid number of data points ({lengths[-1]}) specified")
    return irfft(_along(ifft, x, lengths[:-1], found[:-1], norm), lengths[-1], found[-1], norm)


def hfftn(x, s=None, axes=None, norm=None):
    """`hfft` along the last of several axes, `fft` along the others."""
    _flag(norm)
    return irfftn(np.conj(_floats(x)), s, axes, _SWAPPED[norm])


def ihfftn(x, s=None, axes=None, norm=None):
    """The inverse of `hfftn`."""
    _flag(norm)
    return np.conj(rfftn(x, s, axes, _SWAPPED[norm]))


def _two(transform):
    def two(x, s=None, axes=(-2, -1), norm=None):
        return transform(x, s, axes, norm)
    two.__name__ = two.__qualname__ = transform.__name__.replace("fftn", "fft2")
    two.__doc__ = f"`{transform.__name__}` along two axes."
    return two


fft2, ifft2, rfft2, irfft2, hfft2, ihfft2 = map(_two, (fftn, ifftn, rfftn, irfftn, hfftn, ihfftn))


def _cosine(x, three, n, axis, norm, orthogonalize):
    """The cosine transform of type 2, or of type 3: the library's, which are orthonormal, scaled."""
    _flag(norm)
    x = _floats(x)
    if x.dtype.kind == "c":
        return _cosine(x.real, three, n, axis, norm, orthogonalize) + 1j * _cosine(x.imag, three, n, axis, norm,
                                                                                  orthogonalize)
    orthogonalize = norm == "ortho" if orthogonalize is None else orthogonalize
    source, axis = _to_last(x, _index(n), axis)
    n = source.shape[-1]
    scale = {None: math.sqrt(2 * n), "backward": math.sqrt(2 * n), "ortho": 1.0, "forward": 1 / math.sqrt(2 * n)}[norm]
    if three and not orthogonalize:
        if source is x or np.may_share_memory(source, x):
            source = source.copy()
        source[..., 0] *= math.sqrt(0.5)
    y = np.empty(source.shape, source.dtype)
    if y.size:
        _cosine_plan(n, "32f" if y.itemsize == 4 else "64f", three).run(0, source, y, y.size // n)
        if scale != 1:
            y *= y.dtype.type(scale)
        if not three and not orthogonalize:
            y[..., 0] *= y.dtype.type(math.sqrt(2))
    return _back(y, axis)


def _is_three(kind):
    if kind not in (2, 3):
        raise NotImplementedError(f"zorsl9.fft: cosine transforms are of type 2 and 3, not {kind!r}; use scipy.fft")
    return kind == 3


def dct(x, type=2, n=None, axis=-1, norm=None, orthogonalize=None):
    """The cosine transform of type 2 or 3 along an axis, as scipy.fft.dct.

        >>> import numpy as np, zorsl9.fft
        >>> np.round(zorsl9.fft.dct([1.0, 1.0, 1.0, 1.0], norm="ortho"), 6) + 0
        array([2., 0., 0., 0.])
    """
    return _cosine(x, _is_three(type), n, axis, norm, orthogonalize)


def idct(x, type=2, n=None, axis=-1, norm=None, orthogonalize=None):
    """The inverse of `dct`."""
    _flag(norm)
    return _cosine(x, not _is_three(type), n, axis, _SWAPPED[norm], orthogonalize)


def dctn(x, type=2, s=None, axes=None, norm=None, orthogonalize=None):
    """`dct` along several axes, all by default."""
    x = _floats(x)
    for length, axis in zip(*_shape_and_axes(x, s, axes)):
        x = dct(x, type, length, axis, norm, orthogonalize)
    return x


def idctn(x, type=2, s=None, axes=None, norm=None, orthogonalize=None):
    """The inverse of `dctn`."""
    x = _floats(x)
    for length, axis in zip(*_shape_and_axes(x, s, axes)):
        x = idct(x, type, length, axis, norm, orthogonalize)
    return x
