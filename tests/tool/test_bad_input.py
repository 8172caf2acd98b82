"""What is wrong gets one line and its exit status, and nothing is written."""
import os
import random
import shlex
import signal
import struct
import subprocess
import time

import numpy as np
import pytest

from conftest import SPEECH, ZORS, samples, write, zors

WORK = {"filter": ["--low-pass", "1000"], "resample": ["--rate", "16000"], "convert": ["--bits", "8"],
        "spectrogram": [], "spectrum": []}


def out_of(command, tmp_path):
    return tmp_path / ("out.png" if command.startswith("spec") else "out.wav")


def refused(command, path, tmp_path, expect=3, options=None):
    out = out_of(command, tmp_path)
    out.write_bytes(b"was here")
    ran = zors(command, path, out, *(WORK[command] if options is None else options), expect=expect)
    assert out.read_bytes() == b"was here" and not [f for f in os.listdir(tmp_path) if f.startswith(".")]
    return ran


@pytest.mark.parametrize("command", WORK)
def test_inputs_that_are_none(command, tmp_path):
    (tmp_path / "empty.wav").write_bytes(b"")
    (tmp_path / "text.wav").write_bytes(b"these are words, and no sound at all\n" * 50)
    speech = open(SPEECH, "rb").read()
    (tmp_path / "cut.wav").write_bytes(speech[:len(speech) // 2])
    (tmp_path / "header.wav").write_bytes(speech[:30])
    (tmp_path / "no_channels.wav").write_bytes(speech[:22] + b"\0\0" + speech[24:])
    (tmp_path / "no_rate.wav").write_bytes(speech[:24] + b"\0\0\0\0" + speech[28:])
    write(tmp_path / "no_frames.wav", [])
    for name in ("missing.wav", "empty.wav", "text.wav", "cut.wav", "header.wav", "no_channels.wav", "no_rate.wav", "no_frames.wav", "."):
        refused(command, tmp_path / name, tmp_path)
    zors(command, tmp_path / "cut.wav", out_of(command, tmp_path), "--partial", *WORK[command])


@pytest.mark.parametrize("command", WORK)
def test_samples_that_are_no_numbers(command, tmp_path):
    for bad in (float("nan"), float("inf")):
        zors("tone", tmp_path / "t.au", "--bits", "float")
        data = bytearray((tmp_path / "t.au").read_bytes())
        data[-4000:-3996] = struct.pack(">f", bad)
        (tmp_path / "t.au").write_bytes(data)
        assert b"sample 47000 of channel 1" in refused(command, tmp_path / "t.au", tmp_path).stderr
        assert b'"not_numbers": 1' in zors("info", "--json", tmp_path / "t.au").stdout


@pytest.mark.parametrize("command, options", [
    ("filter", []), ("filter", ["--low-pass", "0"]), ("filter", ["--low-pass", "nan"]), ("filter", ["--low-pass", "1e9"]),
    ("filter", ["--low-pass", "1000", "--fir", "1"]), ("filter", ["--low-pass", "1000", "--fir", "2000000000"]),
    ("filter", ["--low-pass", "1000", "--iir", "butter", "0"]), ("filter", ["--low-pass", "1000", "--iir", "butter", "999"]),
    ("filter", ["--low-pass", "1000", "--iir", "oak", "4"]), ("filter", ["--low-pass", "1000", "--fir", "99", "--iir", "butter", "4"]),
    ("filter", ["--low-pass", "100", "--high-pass", "100"]), ("filter", ["--low-pass", "1000", "--iir", "butter", "2", "--bits", "16"]),
    ("resample", []), ("resample", ["--rate", "0"]), ("resample", ["--rate", "-5"]), ("resample", ["--rate", "99999999999"]),
    ("resample", ["--rate", "nan"]), ("resample", ["--rate", "1"]), ("resample", ["--rate", "12287999"]),
    ("resample", ["--rate", "8000", "--quality", "divine"]),
    ("convert", ["--bits", "7"]), ("convert", ["--channels", "0"]), ("convert", ["--pick", "3"]), ("convert", ["--gain", "inf"]),
    ("spectrogram", ["--size", "1"]), ("spectrogram", ["--window", "bay"]), ("spectrogram", ["--width", "0"]),
    ("spectrum", ["--range", "nan"]), ("spectrum", ["--overlap", "100"]),
])
def test_options_that_cannot_be(command, options, tmp_path):
    refused(command, SPEECH, tmp_path, expect=2, options=options)


def test_taps_that_are_none(tmp_path):
    for text in ("", "1 2 x", "nan", "{}", '{"taps": ["a"]}', '{"sections": [1, 2]}'):
        (tmp_path / "taps").write_text(text)
        refused("filter", SPEECH, tmp_path, options=["--taps", tmp_path / "taps"])
    refused("filter", SPEECH, tmp_path, options=["--taps", tmp_path / "missing"])


def test_other_words():
    for words in ([], ["sing"], ["info"], ["tone"], ["design", "low-pass"], ["design", "low-pass", "1", "2"], ["design", "band-pass", "9", "2"],
                  ["bench", "("], ["bench", "no such row"], ["check", "more"], ["info", "--colour"]):
        zors(*words, expect=2)
    zors("tone", "a.xyz", expect=2)
    zors("tone", "/no/such/folder/a.wav", expect=4)
    zors("bench", "copy", "--compare", "/no/such/file", expect=3)
    zors("dtmf", SPEECH + "x", expect=3)


@pytest.mark.parametrize("command", WORK)
def test_outputs_that_cannot_be_written(command, tmp_path):
    zors("noise", tmp_path / "in.wav", "--seconds", 3)
    zors(command, tmp_path / "in.wav", "/dev/full", *WORK[command], expect=4)
    # A disk that is full after a block: a limit of the file's size says the same.
    out = out_of(command, tmp_path)
    out.write_bytes(b"was here")
    words = shlex.join([ZORS, command, str(tmp_path / "in.wav"), str(out), *WORK[command]])
    ran = subprocess.run(["bash", "-c", f"ulimit -f 4; {words}"], capture_output=True)
    if not command.startswith("spec") or ran.returncode:  # a picture may fit
        assert ran.returncode == 4 and ran.stderr.count(b"\n") == 1, ran
        assert out.read_bytes() == b"was here" and sorted(os.listdir(tmp_path)) == sorted(["in.wav", out.name])
    ran = subprocess.run(["bash", "-c", f"set -o pipefail; {shlex.join([ZORS, command, str(tmp_path / 'in.wav'), '-', *WORK[command]])} | true"],
                         capture_output=True)
    assert ran.returncode in (0, 4)  # a short picture may be in the pipe before it closes


def test_words_into_a_full_disk():
    for words in (["info", SPEECH], ["design", "low-pass", "1000"], ["check"]):
        ran = subprocess.run([ZORS, *words], stdout=open("/dev/full", "w"), stderr=subprocess.PIPE)
        assert ran.returncode == 4 and ran.stderr.count(b"\n") == 1


def test_interrupted_work_leaves_nothing(tmp_path):
    for signal_number in (signal.SIGINT, signal.SIGTERM):
        running = subprocess.Popen([ZORS, "noise", str(tmp_path / "long.wav"), "--seconds", "100000"], stderr=subprocess.PIPE)
        time.sleep(0.4)
        assert [f for f in os.listdir(tmp_path) if f.startswith(".long.wav")]
        running.send_signal(signal_number)
        assert b"interrupted" in running.communicate(timeout=20)[1] and running.returncode == 130
        assert os.listdir(tmp_path) == []


def test_processor_without_avx2(tmp_path):
    (tmp_path / "old.c").write_text("unsigned long long zorGetEnabledCpuFeatures(void) { return 0x2f; }\n")
    subprocess.run(["cc", "-shared", "-fPIC", "-o", tmp_path / "old.so", tmp_path / "old.c"], check=True)
    ran = zors("check", expect=5, env={**os.environ, "LD_PRELOAD": str(tmp_path / "old.so")})
    assert b"lacks AVX2," in ran.stderr


def test_output_over_the_input(tmp_path):
    path = write(tmp_path / "a.wav", np.arange(1000))
    zors("convert", path, path, "--gain", 6.0206)
    assert np.array_equal(samples(path)[0][:, 0], np.round(np.arange(1000) * 10 ** (6.0206 / 20)))


def test_fuzz_of_truncated_and_damaged_files(tmp_path):
    dice = random.Random(3)
    speech = open(SPEECH, "rb").read()
    zors("convert", SPEECH, tmp_path / "s.flac")
    zors("convert", SPEECH, tmp_path / "s.au", "--bits", "float")
    zors("convert", SPEECH, tmp_path / "s.aiff")
    for source in (speech, *((tmp_path / f"s.{kind}").read_bytes() for kind in ("flac", "au", "aiff"))):
        for _ in range(25):
            data = bytearray(source[:dice.randrange(len(source))] if dice.random() < 0.5 else source)
            for _ in range(dice.randrange(4)):
                if data:
                    data[dice.randrange(min(len(data), 200))] = dice.randrange(256)
            (tmp_path / "fuzz").write_bytes(data)
            for words in (["info", tmp_path / "fuzz"], ["filter", tmp_path / "fuzz", tmp_path / "o.wav", "--low-pass", 10]):
                ran = subprocess.run([ZORS, *map(str, words)], capture_output=True, timeout=60)
                assert ran.returncode in (0, 2, 3, 6), (words, ran)
                assert ran.returncode == 0 or ran.stderr.count(b"\n") == 1, ran.stderr


def test_fuzz_of_options(tmp_path):
    dice = random.Random(4)
    values = ["0", "-1", "1", "7", "100", "3000", "1e-300", "1e300", "nan", "-inf", "", "x", "%s%n", "--", "-", "2147483648", "butter", "hann", "log"]
    options = ["--low-pass", "--high-pass", "--fir", "--iir", "--ripple", "--window", "--gain", "--bits", "--rate", "--quality", "--size",
               "--overlap", "--scale", "--width", "--height", "--range", "--top", "--seconds", "--level", "-j", "--pick", "--channels"]
    commands = [["filter", SPEECH, "o.wav"], ["resample", SPEECH, "o.wav"], ["convert", SPEECH, "o.wav"], ["spectrogram", SPEECH, "o.png"],
                ["spectrum", SPEECH, "o.png"], ["tone", "o.wav"], ["noise", "o.wav"], ["sweep", "o.wav"], ["design", "low-pass", "1000"]]
    for _ in range(400):
        words = list(dice.choice(commands))
        for _ in range(dice.randrange(4)):
            words += [dice.choice(options), dice.choice(values)]
        ran = subprocess.run(["bash", "-c", f"ulimit -f 200000; {shlex.join([ZORS, *words])}"], capture_output=True, timeout=100,
                             cwd=tmp_path, stdin=subprocess.DEVNULL)
        assert ran.returncode in (0, 2, 3, 4, 6), (words, ran)
        assert ran.returncode == 0 or ran.stderr.count(b"\n") == 1, (words, ran.stderr)
