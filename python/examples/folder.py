"""Brings the recordings of a folder to the telephone's band and rate, on a local cluster or one at an address.

    folder.py IN_FOLDER OUT_FOLDER [tcp://scheduler:8786]
"""
import sys
from pathlib import Path

import numpy as np
import scipy.io.wavfile
import scipy.signal

from zorsl9 import dask, signal


def telephone(names):
    source, target = names
    rate, x = scipy.io.wavfile.read(source)
    sos = scipy.signal.butter(4, (300, 3400), "bandpass", fs=rate, output="sos").astype(np.float32)
    y = signal.resample_poly(signal.sosfilt(sos, x.astype(np.float32), axis=0), 8000, rate, axis=0)
    scipy.io.wavfile.write(target, 8000, np.clip(np.rint(y), -32768, 32767).astype(np.int16))
    return target


if __name__ == "__main__":
    folder, out, *address = sys.argv[1:]
    Path(out).mkdir(parents=True, exist_ok=True)
    pairs = [(str(p), str(Path(out) / p.name)) for p in sorted(Path(folder).glob("*.wav"))]
    print(*dask.process_files(telephone, pairs, *address), sep="\n")
