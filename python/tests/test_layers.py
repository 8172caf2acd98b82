"""The layers above the raw functions against SciPy and NumPy."""
import doctest
import importlib

import numpy as np
import pytest
import scipy.signal
from hypothesis import given, settings, strategies as st

from test_fft import arrays, close
from zorsl9 import ZorsError, fixed, g711, random, signal, sorting, statistics, streams

FLOATS = [np.float32, np.float64, np.complex64, np.complex128]
SMALL = settings(max_examples=60, deadline=None)


def near(ours, theirs, single=5e-5, double=1e-9):
    ours, theirs = np.asarray(ours), np.asarray(theirs)
    assert ours.shape == theirs.shape and ours.dtype == theirs.dtype
    scale = max(np.abs(theirs).max(initial=0), 1e-30)
    assert np.abs(ours - theirs).max(initial=0) <= scale * (single if theirs.dtype.char in "fF" else double)


def registers(x, axis, count, first=()):
    shape = list(x.shape)
    shape[axis] = count
    return np.random.default_rng(1).standard_normal((*first, *shape)).astype(x.dtype)


@SMALL
@given(arrays(FLOATS), st.integers(1, 5), st.data())
def test_lfilter(x, order, data):
    axis = data.draw(st.integers(-x.ndim, x.ndim - 1))
    b, a = (c.astype(x.real.dtype) for c in scipy.signal.butter(order, 0.3))
    near(signal.lfilter(b, a, x, axis), scipy.signal.lfilter(b, a, x, axis))
    zi = registers(x, axis, order)
    for ours, theirs in zip(signal.lfilter(b, a, x, axis, zi), scipy.signal.lfilter(b, a, x, axis, zi)):
        near(ours, theirs)
    one = np.ones(1, b.dtype)
    for ours, theirs in zip(signal.lfilter(b, one, x, axis, zi), scipy.signal.lfilter(b, one, x, axis, zi)):
        near(ours, theirs)


@SMALL
@given(arrays(FLOATS), st.integers(1, 8), st.data())
def test_sosfilt(x, order, data):
    axis = data.draw(st.integers(-x.ndim, x.ndim - 1))
    sos = scipy.signal.butter(order, 0.3, output="sos").astype(x.real.dtype)
    zi = registers(x, axis, 2, (len(sos),))
    before = zi.copy()
    near(signal.sosfilt(sos, x, axis), scipy.signal.sosfilt(sos, x, axis))
    for ours, theirs in zip(signal.sosfilt(sos, x, axis, zi), scipy.signal.sosfilt(sos, x, axis, zi)):
        near(ours, theirs)
    np.testing.assert_array_equal(zi, before)


@SMALL
@given(arrays(FLOATS), st.integers(1, 7), st.integers(1, 7), st.integers(1, 30), st.data())
def test_upfirdn_and_resample_poly(x, up, down, count, data):
    axis = data.draw(st.integers(-x.ndim, x.ndim - 1))
    h = np.random.default_rng(count).standard_normal(count).astype(x.real.dtype)
    near(signal.upfirdn(h, x, up, down, axis), scipy.signal.upfirdn(h, x, up, down, axis))
    near(signal.resample_poly(x, up, down, axis), scipy.signal.resample_poly(x, up, down, axis))


@pytest.mark.parametrize("name", ["convolve", "correlate", "fftconvolve", "oaconvolve"])
@pytest.mark.parametrize("mode", ["full", "same", "valid"])
@pytest.mark.parametrize("dtype", FLOATS)
@pytest.mark.parametrize("sizes", [(1, 1), (5, 3), (3, 5), (300, 70), (70, 300), (5000, 900)])
def test_convolutions(name, mode, dtype, sizes):
    rng = np.random.default_rng(3)
    a, b = (rng.standard_normal(n).astype(dtype) for n in sizes)
    if np.dtype(dtype).kind == "c":
        a, b = a * (1 + 0.5j), b * (1 - 0.25j)
    near(getattr(signal, name)(a, b, mode), getattr(scipy.signal, name)(a, b, mode))


@pytest.mark.parametrize("dtype", [np.uint8, np.int16, np.int32, np.float32, np.float64])
@pytest.mark.parametrize("size", [1, 3, 5, 11, 31])
def test_medfilt(dtype, size):
    x = (np.random.default_rng(size).standard_normal(300) * 50 + 100).astype(dtype)
    np.testing.assert_array_equal(signal.medfilt(x, size), scipy.signal.medfilt(x, size))


@SMALL
@given(arrays([np.float32, np.float64]), st.data())
def test_hilbert(x, data):
    axis = data.draw(st.integers(-x.ndim, x.ndim - 1))
    near(signal.hilbert(x, axis=axis), scipy.signal.hilbert(x, axis=axis))


@pytest.mark.parametrize("order", range(1, 13))
def test_designs(order):
    for band, edge in (("low", 0.3), ("high", 0.4)):
        for ours, theirs in zip(signal.butter(order, edge, band), scipy.signal.butter(order, edge, band)):
            near(ours, theirs, double=1e-7)
        for ours, theirs in zip(signal.cheby1(order, 1, edge, band), scipy.signal.cheby1(order, 1, edge, band)):
            near(ours, theirs, double=1e-6)


@pytest.mark.parametrize("window", ["hann", "hamming", "blackman", "bartlett", ("kaiser", 5.0), "boxcar"])
@pytest.mark.parametrize("n", [3, 8, 51])
@pytest.mark.parametrize("periodic", [True, False])
def test_windows(window, n, periodic):
    near(signal.get_window(window, n, periodic), scipy.signal.get_window(window, n, periodic))


@pytest.mark.parametrize("n", [5, 33, 64, 101])
def test_firwin(n):
    near(signal.firwin(n, 0.3), scipy.signal.firwin(n, 0.3))
    x = np.random.default_rng(n).standard_normal(200)
    near(signal.decimate(x, 4, ftype="fir"), scipy.signal.decimate(x, 4, ftype="fir"))


def test_haar_and_back():
    x = np.random.default_rng(4).standard_normal(31)
    low, high = signal.haar(x)
    near(low[:15], (x[:30:2] + x[1:30:2]) / 2)
    near(signal.ihaar(low, high), x)


def clipped(exact, dtype):
    limits = np.iinfo(dtype)
    return np.clip(np.rint(exact), limits.min, limits.max).astype(dtype)


@pytest.mark.parametrize("dtype", [np.uint8, np.uint16, np.int16])
def test_saturating_arithmetic(dtype):
    rng, limits = np.random.default_rng(6), np.iinfo(dtype)
    a, b = (rng.integers(limits.min, limits.max, (4, 50), endpoint=True).astype(dtype) for _ in range(2))
    x, y = a.astype(float), b.astype(float)
    np.testing.assert_array_equal(fixed.add(a, b, 1), clipped((x + y) / 2, dtype))
    np.testing.assert_array_equal(fixed.subtract(a, b), clipped(x - y, dtype))
    np.testing.assert_array_equal(fixed.multiply(a, b, 7), clipped(x * y / 128, dtype))
    out = np.empty((8, 50), dtype)[::2]
    assert fixed.add(a, b, out=out) is out
    np.testing.assert_array_equal(out, clipped(x + y, dtype))
    with pytest.raises(TypeError, match="one type"):
        fixed.add(a, b.astype(np.int64))
    with pytest.raises(TypeError, match="no form"):
        fixed.multiply(x, y)
    assert fixed.add(a[:0], b[:0]).shape == (0, 50)


def test_g711_codes_are_those_of_the_standard():
    codes = np.arange(256, dtype=np.uint8)
    decoded = g711.alaw_decode(codes)
    inverted = codes.astype(int) ^ 0x55
    exponent, mantissa = inverted >> 4 & 7, inverted & 15
    magnitude = np.where(exponent, (2 * mantissa + 33) << np.maximum(exponent - 1, 0), 2 * mantissa + 1) * 8
    np.testing.assert_array_equal(decoded, np.where(inverted & 128, magnitude, -magnitude))
    np.testing.assert_array_equal(g711.alaw_encode(decoded), codes)
    flipped = ~codes.astype(int) & 255
    magnitude = (((2 * (flipped & 15) + 33) << (flipped >> 4 & 7)) - 33) * 4
    np.testing.assert_array_equal(g711.mulaw_decode(codes), np.where(flipped & 128, -magnitude, magnitude))
    with pytest.raises(TypeError, match="int16"):
        g711.alaw_encode(np.zeros(3))


def test_random_streams():
    generator = random.Generator(7)
    uniform = generator.uniform(-1, 3, size=100000)
    assert uniform.min() >= -1 and uniform.max() <= 3 and abs(uniform.mean() - 1) < 0.02
    normal = generator.normal(5, 2, size=(100, 1000))
    assert abs(normal.mean() - 5) < 0.03 and abs(normal.std() - 2) < 0.03
    again = random.Generator(7)
    pieces = np.concatenate([again.uniform(-1, 3, size=n) for n in (1, 7, 99992)])
    np.testing.assert_array_equal(pieces, uniform)


@pytest.mark.parametrize("dtype", [np.uint8, np.int16, np.int32, np.float32, np.float64])
@pytest.mark.parametrize("descending", [False, True])
def test_sorts(dtype, descending):
    x = (np.random.default_rng(8).standard_normal((3, 200)) * 40).astype(dtype)
    expected = np.sort(x)[:, ::-1] if descending else np.sort(x)
    np.testing.assert_array_equal(sorting.sort(x, descending=descending), expected)
    if dtype != np.float64:
        places = sorting.argsort(x, descending=descending)
        np.testing.assert_array_equal(np.take_along_axis(x, places, -1), expected)


@pytest.mark.parametrize("dtype", [np.float32, np.float64])
def test_statistics(dtype):
    x, y = np.random.default_rng(9).standard_normal((2, 3, 77)).astype(dtype)
    exact = x.astype(np.longdouble)
    for name in ("sum", "mean", "max", "min"):
        assert getattr(statistics, name)(x) == pytest.approx(float(getattr(np, name)(exact)), rel=1e-5)
    assert statistics.std(x) == pytest.approx(float(exact.std(ddof=1)), rel=1e-5)
    assert statistics.dot(x[0], y[0]) == pytest.approx(float(exact[0] @ y[0]), rel=1e-4)
    np.testing.assert_array_equal(statistics.multiply(x, y), x * y)
    with pytest.raises(ValueError):
        statistics.sum([])


@settings(max_examples=30, deadline=None)
@given(st.lists(st.integers(0, 40), min_size=1, max_size=8).filter(any))
def test_streams_equal_the_whole(sizes):
    x = np.random.default_rng(10).standard_normal(sum(sizes))
    cuts = np.cumsum(sizes)[:-1]
    taps, (b, a) = scipy.signal.firwin(9, 0.4), scipy.signal.butter(3, 0.2)
    for stream, whole in ((streams.Fir(taps), scipy.signal.lfilter(taps, 1, x)),
                          (streams.Iir(b, a), scipy.signal.lfilter(b, a, x)),
                          (streams.Iir(sos=scipy.signal.tf2sos(b, a)), scipy.signal.lfilter(b, a, x))):
        near(np.concatenate([stream(piece) for piece in np.split(x, cuts)]), whole)
    resampler = streams.Resampler(3, 2, taps)
    got = np.concatenate([resampler(piece) for piece in np.split(x, cuts)])
    if x.size >= 2:
        near(got, scipy.signal.upfirdn(taps, x[:x.size // 2 * 2], 3, 2)[:got.size])


def test_streams_refuse_and_learn():
    closed = streams.Fir([1.0])
    closed.close()
    with pytest.raises(ValueError, match="closed"):
        closed(np.zeros(3))
    with pytest.raises(ValueError, match="closed"):
        closed(np.zeros(0))
    with pytest.raises(TypeError):
        streams.Fir([1.0])(np.zeros(3, complex))
    with pytest.raises(ZorsError):
        streams.Fir([])
    with pytest.raises(ValueError, match="frequency"):
        streams.Tone(float("nan"))
    with pytest.raises(ZorsError):
        streams.Goertzel(float("nan"))(np.ones(5))
    tone = streams.Tone(0.1)
    near(np.concatenate([tone(7), tone(13)]), np.cos(2 * np.pi * 0.1 * np.arange(20)))
    x = np.random.default_rng(11).standard_normal(4000).astype(np.float32)
    lms = streams.Lms(np.zeros(3), 0.01)
    lms(x, np.convolve(x, [1, 2, 3])[:x.size].astype(np.float32))
    np.testing.assert_allclose(lms.taps, [1, 2, 3], atol=0.01)


@pytest.mark.parametrize("module", ["fft", "signal", "fixed", "g711", "random", "sorting", "statistics", "streams",
                                    "scipy_fft", "raw"])
def test_examples_of_the_docstrings(module):
    result = doctest.testmod(importlib.import_module("zorsl9." + module))
    assert result.failed == 0 and result.attempted > 0
