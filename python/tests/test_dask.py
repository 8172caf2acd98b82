"""Dask arrays give the whole array's results, whatever the chunks."""
import numpy as np
import pytest

da = pytest.importorskip("dask.array")
import scipy.signal  # noqa: E402

from zorsl9 import dask as zd  # noqa: E402


@pytest.mark.parametrize("chunk", [7, 50, 333])
@pytest.mark.parametrize("shape", [(333,), (3, 333)])
def test_filters_and_rates(chunk, shape):
    x = np.random.default_rng(2).standard_normal(shape)
    array = da.from_array(x, chunks=(2,) * (len(shape) - 1) + (chunk,))
    taps = np.random.default_rng(3).standard_normal(6)
    np.testing.assert_allclose(zd.fir(taps, array).compute(), scipy.signal.lfilter(taps, 1, x), atol=1e-12)
    for up, down in ((3, 2), (2, 5), (1, 4)):
        whole = scipy.signal.upfirdn(taps, x, up, down)[..., :-(-333 * up // down)]
        ours = zd.resample(array, up, down, taps).compute()
        np.testing.assert_allclose(ours[..., :whole.shape[-1]], whole, atol=1e-12)
