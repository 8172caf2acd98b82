"""The same calls on Dask arrays, chunk by chunk along the last axis.

A filter without feedback needs the last inputs of the chunk before: `fir` shares them by map_overlap, and every result
is that of the whole array. A change of the rate needs chunks that begin where an output falls on an input:
`resample` brings them there.

    >>> import dask.array as da, numpy as np
    >>> from zorsl9 import dask as zd
    >>> x = da.arange(12, chunks=5, dtype=float)
    >>> zd.fir([1.0, 1.0], x).compute()
    array([ 0.,  1.,  3.,  5.,  7.,  9., 11., 13., 15., 17., 19., 21.])
"""
import numpy as np

from . import signal

__all__ = ["fir", "resample", "process_files"]


def _filtered(block, taps):
    return signal.lfilter(taps, np.ones(1, taps.dtype), block)


def fir(taps, x):
    """lfilter(taps, 1, x) of a Dask array along its last axis, with chunks as they are."""
    import dask.array as da
    taps = np.asarray(taps, x.dtype if x.dtype.kind in "fc" else float)
    depth = {x.ndim - 1: (taps.size - 1, 0)}
    if taps.size > min(x.chunks[-1]):
        x = x.rechunk({x.ndim - 1: max(taps.size, max(x.chunks[-1]))})
    return da.map_overlap(_filtered, x, depth=depth, boundary="none", dtype=np.result_type(taps, x.dtype), taps=taps)


def _resampled(block, up, down, taps, start, count):
    return signal.upfirdn(taps, block, up, down)[..., start:start + count]


def resample(x, up, down, taps):
    """upfirdn(taps, x, up, down) of a Dask array, the first ceil(n * up / down) outputs of n samples."""
    import dask.array as da
    taps = np.asarray(taps, x.dtype if x.dtype.kind in "fc" else float)
    axis, n = x.ndim - 1, x.shape[-1]
    reach = -(-taps.size // up)
    reach += -reach % down  # whole periods before a chunk, so that its outputs keep their phase
    period = max(x.chunks[-1])
    period += -period % down
    pieces = []
    for begin in range(0, n, period):
        end, before = min(begin + period, n), min(begin, reach)
        first, last = -(-begin * up // down), -(-end * up // down)
        piece = x[..., begin - before:end].rechunk({axis: end - begin + before})
        shape = tuple(piece.chunks[i] for i in range(axis)) + ((last - first,),)
        pieces.append(piece.map_blocks(_resampled, up, down, taps, before * up // down, last - first, chunks=shape,
                                       dtype=np.result_type(taps, x.dtype)))
    return da.concatenate(pieces, axis=axis)


def process_files(function, names, address=None, workers=2, retries=2):
    """[function(name) for name in names] on a cluster: at `address`, or of local workers; failing tasks are tried again.

    Results come in the order of names; progress is written to standard error.
    """
    import sys

    from distributed import Client, LocalCluster, as_completed
    with (Client(address) if address else Client(LocalCluster(n_workers=workers, threads_per_worker=1,
                                                              dashboard_address=None))) as client:
        futures = client.map(function, names, retries=retries, pure=False)
        for done, _ in enumerate(as_completed(futures), 1):
            print(f"\r{done} of {len(futures)}", end="", file=sys.stderr, flush=True)
        print(file=sys.stderr)
        return client.gather(futures)
