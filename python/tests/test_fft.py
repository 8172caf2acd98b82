"""zorsl9.fft against scipy.fft over random shapes, types, axes, strides, norms and lengths."""
import numpy as np
import pytest
import scipy.fft
from hypothesis import given, settings, strategies as st
from hypothesis.extra import numpy as hnp

from zorsl9 import fft

TYPES = [np.float16, np.float32, np.float64, np.complex64, np.complex128, np.int16, np.uint8, np.bool_]


@st.composite
def arrays(draw, types=TYPES, least=1):
    """Arrays of any layout: transposed, strided, reversed, read-only."""
    shape = draw(hnp.array_shapes(min_dims=1, max_dims=3, min_side=least, max_side=20))
    dtype = np.dtype(draw(st.sampled_from(types)))
    rng = np.random.default_rng(draw(st.integers(0, 1 << 30)))
    step = draw(st.sampled_from([1, 2, -1]))
    x = rng.standard_normal(tuple(s * abs(step) for s in shape)) * 50
    x = (x + 1j * rng.standard_normal(x.shape) if dtype.kind == "c" else x).astype(dtype)
    x = x[tuple(slice(None, None, step) for _ in shape)]
    if draw(st.booleans()):
        x = x.T
    x.flags.writeable = draw(st.booleans())
    return x


def close(ours, theirs):
    assert ours.shape == theirs.shape and ours.dtype == theirs.dtype
    scale = max(np.abs(theirs).max(), 1e-30) if theirs.size else 1
    assert np.abs(ours - theirs).max(initial=0) <= scale * (2e-6 if theirs.dtype.char in "fF" else 1e-13)


NORMS = st.sampled_from([None, "backward", "ortho", "forward"])


@settings(max_examples=150, deadline=None)
@given(arrays(), st.sampled_from(["fft", "ifft", "rfft", "ihfft", "irfft", "hfft"]), NORMS, st.data())
def test_one_axis(x, name, norm, data):
    if name in ("rfft", "ihfft"):
        x = x.real
    axis = data.draw(st.integers(-x.ndim, x.ndim - 1))
    n = data.draw(st.one_of(st.none(), st.integers(1, 50)))
    before = x.copy()
    if n is None and name in ("irfft", "hfft") and x.shape[axis] == 1:
        with pytest.raises(ValueError):
            getattr(fft, name)(x, n, axis, norm)
        return
    close(getattr(fft, name)(x, n, axis, norm), getattr(scipy.fft, name)(x, n, axis, norm))
    np.testing.assert_array_equal(x, before)


@settings(max_examples=100, deadline=None)
@given(arrays(least=2), st.sampled_from(["fftn", "ifftn", "rfftn", "ihfftn", "irfftn", "hfftn"]), NORMS)
def test_several_axes(x, name, norm):
    x = x.real if name in ("rfftn", "ihfftn") else x
    close(getattr(fft, name)(x, norm=norm), getattr(scipy.fft, name)(x, norm=norm))


@settings(max_examples=100, deadline=None)
@given(arrays(), st.sampled_from(["dct", "idct"]), st.sampled_from([2, 3]), NORMS, st.data())
def test_cosine_transforms(x, name, kind, norm, data):
    axis = data.draw(st.integers(-x.ndim, x.ndim - 1))
    close(getattr(fft, name)(x, kind, axis=axis, norm=norm), getattr(scipy.fft, name)(x, kind, axis=axis, norm=norm))


@pytest.mark.parametrize("n", [1, 2, 3, 17, 97, 255, 1000, 2003, 4096, 10007, 65536, 131071])
@pytest.mark.parametrize("dtype", [np.float32, np.complex128])
def test_long_and_prime_lengths(n, dtype):
    x = np.random.default_rng(n).standard_normal(n).astype(dtype)
    close(fft.fft(x), scipy.fft.fft(x))


def test_what_is_refused():
    with pytest.raises(TypeError, match="scipy.fft"):
        fft.fft(np.zeros(4, np.longdouble))
    with pytest.raises(TypeError, match="real"):
        fft.rfft(np.zeros(4, complex))
    with pytest.raises(ValueError, match="norm"):
        fft.fft(np.zeros(4), norm="unit")
    with pytest.raises(ValueError, match="data points"):
        fft.fft(np.zeros(4), 0)
    with pytest.raises(ValueError, match="data points"):
        fft.fft(np.zeros(0))
    with pytest.raises(np.AxisError):
        fft.fft(np.zeros(4), axis=1)
    with pytest.raises(NotImplementedError, match="type"):
        fft.dct(np.zeros(4), 1)
