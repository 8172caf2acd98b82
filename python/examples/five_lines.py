"""Read a recording, filter, resample, draw its spectrogram, write: five_lines.py IN.wav OUT.wav OUT.png"""
import sys

import matplotlib
import numpy as np
from scipy.io import wavfile

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402

from zorsl9 import signal  # noqa: E402

rate, x = wavfile.read(sys.argv[1])
y = signal.lfilter(*signal.butter(4, 3400, fs=rate), x.astype(np.float32))
z = signal.resample_poly(y, 8000, rate)
plt.specgram(z, Fs=8000)
plt.savefig(sys.argv[3])
wavfile.write(sys.argv[2], 8000, np.int16(np.clip(z, -32768, 32767)))
