"""Speeds of zorsl9 beside NumPy and SciPy in one run, as a table for docs/python.md.

    bench.py [REGEX]        the rows that the expression finds
"""
import re
import sys
import timeit

import numpy as np
import scipy.fft
import scipy.signal

from zorsl9 import fft, raw, signal, statistics
from zorsl9._zorsl9 import ffi, lib

SIZES = (256, 4096, 10 ** 6)


def seconds(*calls):
    """The least time of each call; rounds alternate, so that all see the same machine."""
    counts = []
    for call in calls:
        timer = timeit.Timer(call)
        count = 1
        while (taken := timer.timeit(count)) < 0.002:
            count *= 4
        counts.append((timer, count))
    best = [float("inf")] * len(calls)
    for _ in range(3 if max(t.timeit(1) for t, _ in counts) > 0.05 else 9):
        for i, (timer, count) in enumerate(counts):
            best[i] = min(best[i], timer.timeit(count) / count)
    return best


def rows():
    """(name, points, type, ours, theirs)"""
    rng = np.random.default_rng(1)
    for dtype in (np.float32, np.float64):
        for n in SIZES:
            x, z = rng.standard_normal(n).astype(dtype), rng.standard_normal((2, n)).astype(dtype)
            z = z[0] + 1j * z[1]
            yield "fft", n, dtype, lambda: fft.fft(z), lambda: scipy.fft.fft(z)
            yield "fft numpy", n, dtype, lambda: fft.fft(z), lambda: np.fft.fft(z)
            yield "rfft", n, dtype, lambda: fft.rfft(x), lambda: scipy.fft.rfft(x)
            yield "dct", n, dtype, lambda: fft.dct(x), lambda: scipy.fft.dct(x)
            for order in (2, 4, 8):
                b, a = (c.astype(dtype) for c in scipy.signal.butter(order, 0.3))
                sos = scipy.signal.butter(order, 0.3, output="sos").astype(dtype)
                yield (f"lfilter {order}", n, dtype, lambda b=b, a=a: signal.lfilter(b, a, x),
                       lambda b=b, a=a: scipy.signal.lfilter(b, a, x))
                yield (f"sosfilt {order}", n, dtype, lambda sos=sos: signal.sosfilt(sos, x),
                       lambda sos=sos: scipy.signal.sosfilt(sos, x))
            h = scipy.signal.firwin(61, 0.3).astype(dtype)
            yield "upfirdn 3/2", n, dtype, lambda: signal.upfirdn(h, x, 3, 2), lambda: scipy.signal.upfirdn(h, x, 3, 2)
            yield ("resample_poly 3/2", n, dtype, lambda: signal.resample_poly(x, 3, 2),
                   lambda: scipy.signal.resample_poly(x, 3, 2))
            yield "medfilt 5", n, dtype, lambda: signal.medfilt(x, 5), lambda: scipy.signal.medfilt(x, 5)
            k = rng.standard_normal(min(n, 1000) // 2).astype(dtype)
            yield "oaconvolve", n, dtype, lambda: signal.oaconvolve(x, k), lambda: scipy.signal.oaconvolve(x, k)
            y, out = x[::-1].copy(), np.empty_like(x)
            yield "sum", n, dtype, lambda: statistics.sum(x), lambda: np.sum(x)
            yield "multiply", n, dtype, lambda: statistics.multiply(x, y, out), lambda: np.multiply(x, y, out)
    for n in (65, 257, 4097):
        yield "firwin", n, np.float64, lambda: signal.firwin(n, 0.3), lambda: scipy.signal.firwin(n, 0.3)


def overhead():
    """What raw.zorsAdd_16s_Sfs takes on eight elements, less the call of the compiled function alone."""
    a, b, c = (np.ones(8, np.int16) for _ in range(3))
    pa, pb, pc = (ffi.from_buffer("Zor16s[]", x) for x in (a, b, c))
    whole, bare = seconds(lambda: raw.zorsAdd_16s_Sfs(a, b, c, 8, 1), lambda: lib.zorsAdd_16s_Sfs(pa, pb, pc, 8, 1))
    return whole - bare


def main():
    wanted = re.compile(sys.argv[1] if len(sys.argv) > 1 else "")
    ratios = []
    print("| operation | points | type | zorsl9, us | NumPy / SciPy, us | times as fast |\n|---|---|---|---|---|---|")
    for name, n, dtype, ours, theirs in rows():
        label = f"{name} {n} {np.dtype(dtype).name}"
        if wanted.search(label):
            mine, other = seconds(ours, theirs)
            ratios.append((other / mine, label, n))
            print(f"| {name} | {n:,} | {np.dtype(dtype).name} | {mine * 1e6:,.2f} | {other * 1e6:,.2f} | {other / mine:.2f} |",
                  flush=True)
    if ratios:
        mean = np.exp(np.mean([np.log(r) for r, _, _ in ratios]))
        slow = [f"{label} {r:.2f}" for r, label, n in ratios if n >= 4096 and r < 1]
        print(f"\nGeometric mean {mean:.2f}; rows from 4,096 points on below 1.0: {', '.join(slow) or 'none'}")
    print(f"Above the compiled call: {overhead() * 1e6:.2f} us")


if __name__ == "__main__":
    main()
