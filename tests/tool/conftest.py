"""The program zors, run as a person runs it."""
import os
import pathlib
import subprocess
import wave

import numpy as np
import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ZORS = os.path.abspath(os.environ.get("ZORS", ROOT / "build/gcc-release/tools/zors/zors"))
SPEECH = str(ROOT / "examples/data/speech.wav")


def zors(*arguments, expect=0, **options):
    """Runs zors; fails unless it ends as expected. Words that tell of a failure are one line."""
    options.setdefault("timeout", 60)
    ran = subprocess.run([ZORS, *map(str, arguments)], capture_output=True, **options)
    assert ran.returncode == expect, (arguments, ran.returncode, ran.stderr)
    if expect:
        assert ran.stderr.startswith(b"zors: ") and ran.stderr.count(b"\n") == 1, ran.stderr
    return ran


def sox(*arguments):
    subprocess.run(["sox", *map(str, arguments)], check=True, capture_output=True)


def samples(path):
    """16-bit samples, (frames, channels), and the rate."""
    with wave.open(str(path)) as sound:
        data = np.frombuffer(sound.readframes(sound.getnframes()), "<i2")
        return data.reshape(-1, sound.getnchannels()), sound.getframerate()


def write(path, data, rate=48000):
    data = np.asarray(data, "<i2")
    with wave.open(str(path), "wb") as sound:
        sound.setnchannels(1 if data.ndim == 1 else data.shape[1])
        sound.setsampwidth(2)
        sound.setframerate(rate)
        sound.writeframes(data.tobytes())
    return path


def tone_level(data, rate, frequency):
    """The peak of a sine in data, over 32768, in dB."""
    data = np.asarray(data, float).ravel() / 32768
    window = np.hanning(len(data))
    turns = np.exp(-2j * np.pi * frequency / rate * np.arange(len(data)))
    return 20 * np.log10(2 * abs(np.sum(data * window * turns)) / np.sum(window) + 1e-12)


@pytest.fixture
def noise(tmp_path):
    random = np.random.default_rng(1)
    return write(tmp_path / "noise.wav", np.clip(random.normal(0, 6000, (48000, 2)), -32768, 32767).astype("<i2"))
