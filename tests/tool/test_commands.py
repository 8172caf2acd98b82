"""Each command, end to end, beside sox where that does the same."""
import json
import re
import subprocess

import numpy as np
import pytest
import scipy.signal
from PIL import Image

from conftest import SPEECH, ZORS, samples, sox, tone_level, write, zors


def sox_stats(path):
    text = subprocess.run(["sox", str(path), "-n", "stats"], capture_output=True, check=True).stderr.decode()
    return {line[:10].strip(): line[10:].split() for line in text.splitlines()}


def test_info_has_the_levels_of_sox(noise):
    for path in (SPEECH, noise):
        (report,) = json.loads(zors("info", "--json", path).stdout)
        stats = sox_stats(path)
        assert abs(report["all"]["peak_db"] - float(stats["Pk lev dB"][0])) < 0.011
        assert abs(report["all"]["rms_db"] - float(stats["RMS lev dB"][0])) < 0.011
        data, rate = samples(path)
        assert (report["frames"], report["rate"], len(report["channels"])) == (len(data), rate, data.shape[1])
        for channel, level in enumerate(report["channels"]):
            x = data[:, channel] / 32768
            assert abs(level["rms_db"] - 10 * np.log10(np.mean(x**2))) < 1e-3
            assert abs(level["crest_db"] - 20 * np.log10(np.max(np.abs(x)) / np.sqrt(np.mean(x**2)))) < 1e-3
            of_sox = stats["DC offset"][channel + 1 if len(report["channels"]) > 1 else 0]  # its "overall" is the worst
            assert abs(level["dc"] - float(of_sox)) < 2e-6


def test_info_text_clipping_floor_and_files(tmp_path):
    loud = write(tmp_path / "loud.wav", [0, 32767, 32767, 32767, 0, -32768, 0, 32767, 0] * 100)
    quiet = np.concatenate([np.zeros(24000), 10000 * np.sin(np.arange(24000))])
    quiet[:24000] = np.where(np.arange(24000) % 2, 33, -33)
    write(tmp_path / "quiet.wav", quiet)
    reports = json.loads(zors("info", "--json", "-j2", loud, tmp_path / "quiet.wav").stdout)
    assert reports[0]["all"]["clipped"] == 200
    assert abs(reports[1]["all"]["noise_floor_db"] - 20 * np.log10(33 / 32768)) < 0.2
    text = zors("info", SPEECH).stdout.decode()
    assert "WAV" in text and "RMS, dB" in text


@pytest.mark.parametrize("options, sox_effect", [
    (["--low-pass", "3000", "--iir", "butter", "2"], ["lowpass", "-2", "3000", "0.707106781q"]),
    (["--high-pass", "300", "--iir", "butter", "2"], ["highpass", "-2", "300", "0.707106781q"]),
])
def test_filter_is_that_of_sox(tmp_path, noise, options, sox_effect):
    zors("filter", noise, tmp_path / "z.wav", *options)
    sox("-D", noise, tmp_path / "s.wav", *sox_effect)
    difference = samples(tmp_path / "z.wav")[0].astype(int) - samples(tmp_path / "s.wav")[0]
    assert np.abs(difference).max() <= 1


def test_fir_with_taps_is_that_of_sox(tmp_path, noise):
    taps = scipy.signal.firwin(101, 3400, fs=48000)
    (tmp_path / "taps.txt").write_text("\n".join(map(repr, taps.tolist())))
    zors("filter", noise, tmp_path / "z.wav", "--taps", tmp_path / "taps.txt")
    sox("-D", noise, tmp_path / "s.wav", "fir", tmp_path / "taps.txt")
    z, s = samples(tmp_path / "z.wav")[0].astype(int), samples(tmp_path / "s.wav")[0]
    assert z.shape == s.shape and np.abs(z - s).max() <= 1
    zors("filter", noise, tmp_path / "c.wav", "--taps", tmp_path / "taps.txt", "--causal", "-j2")
    causal = samples(tmp_path / "c.wav")[0]
    assert np.array_equal(causal[50:], z[:-50])


@pytest.mark.parametrize("options, scipy_design", [
    (["--low-pass", "1000", "--iir", "butter", "9"], lambda: scipy.signal.butter(9, 1000, fs=48000, output="sos")),
    (["--high-pass", "40", "--iir", "butter", "8"], lambda: scipy.signal.butter(8, 40, "high", fs=48000, output="sos")),
    (["--low-pass", "5000", "--iir", "cheby", "6"], lambda: scipy.signal.cheby1(6, 1, 5000, fs=48000, output="sos")),
    (["--high-pass", "5000", "--iir", "cheby", "5", "--ripple", "0.5"],
     lambda: scipy.signal.cheby1(5, 0.5, 5000, "high", fs=48000, output="sos")),
])
def test_iir_is_that_of_scipy(tmp_path, noise, options, scipy_design):
    zors("filter", noise, tmp_path / "z.wav", *options)
    wanted = scipy.signal.sosfilt(scipy_design(), samples(noise)[0].astype(float), axis=0)
    got = samples(tmp_path / "z.wav")[0]
    limited = np.clip(np.round(wanted), -32768, 32767)
    assert np.abs(got - limited).max() <= 1


def test_band_pass_and_band_stop_on_tones(tmp_path):
    t = np.arange(48000) / 48000
    tones = sum(8000 * np.sin(2 * np.pi * f * t) for f in (100, 1000, 6000))
    path = write(tmp_path / "tones.wav", tones)
    zors("filter", path, tmp_path / "pass.wav", "--high-pass", 500, "--low-pass", 3000, "--fir", 1023)
    zors("filter", path, tmp_path / "stop.wav", "--high-pass", 3000, "--low-pass", 500, "--fir", 1023)
    level = 20 * np.log10(8000 / 32768)
    for name, through in (("pass", (1000,)), ("stop", (100, 6000))):
        data, rate = samples(tmp_path / f"{name}.wav")
        for frequency in (100, 1000, 6000):
            got = tone_level(data[4000:-4000], rate, frequency)
            assert abs(got - level) < 0.05 if frequency in through else got < level - 50


def test_fixed_point_filter_is_near_the_float_one(tmp_path, noise):
    zors("filter", noise, tmp_path / "float.wav", "--low-pass", 3400)
    zors("filter", noise, tmp_path / "fixed.wav", "--low-pass", 3400, "--bits", 16)
    difference = samples(tmp_path / "float.wav")[0].astype(int) - samples(tmp_path / "fixed.wav")[0]
    assert 0 < np.abs(difference).max() <= 8


@pytest.mark.parametrize("rate", [44100, 16000, 8000, 96000, 47999, 11025])
def test_resample_beside_sox(tmp_path, rate):
    t = np.arange(48000 * 2) / 48000
    low = min(rate, 48000)
    frequencies = (0.02 * low, 0.2 * low, 0.45 * low)
    path = write(tmp_path / "in.wav", sum(8000 * np.sin(2 * np.pi * f * t) for f in frequencies))
    ran = zors("resample", path, tmp_path / "z.wav", "--rate", rate)
    assert b"stop band 125 dB" in ran.stdout and b"delay 0" in ran.stdout
    sox("-D", path, tmp_path / "s.wav", "rate", "-h", rate)
    (z, z_rate), (s, s_rate) = samples(tmp_path / "z.wav"), samples(tmp_path / "s.wav")
    assert z_rate == s_rate == rate and abs(len(z) - len(s)) <= 1
    edge, size = rate // 10, min(len(z), len(s))
    inside = slice(edge, size - edge)
    assert np.abs(z[inside].astype(int) - s[inside]).max() <= 3
    for frequency in frequencies:
        assert abs(tone_level(z[inside], rate, frequency) - 20 * np.log10(8000 / 32768)) < 0.01


def test_resample_stop_band_and_float_accuracy(tmp_path):
    # What lies beyond the lower half rate is gone by as much as is reported; what passes keeps its place.
    for quality, decibels in (("quick", 80), ("good", 100), ("high", 125)):
        zors("tone", tmp_path / "high.wav", "--frequency", 9000, "--rate", 48000, "--bits", "float", "--level", 0, "--seconds", 2)
        zors("resample", tmp_path / "high.wav", tmp_path / "gone.wav", "--rate", 16000, "--quality", quality)
        zors("filter", tmp_path / "gone.wav", tmp_path / "middle.au", "--low-pass", 7999, "--fir", 5)
        (report,) = json.loads(zors("info", "--json", tmp_path / "gone.wav").stdout)
        # The tone's sudden start and end pass; the noise floor is that of the middle.
        assert report["all"]["noise_floor_db"] < -decibels


def test_resample_jobs_and_length(tmp_path, noise):
    zors("resample", noise, tmp_path / "1.wav", "--rate", 44100)
    zors("resample", noise, tmp_path / "2.wav", "--rate", 44100, "-j", 2)
    assert (tmp_path / "1.wav").read_bytes() == (tmp_path / "2.wav").read_bytes()
    assert len(samples(tmp_path / "1.wav")[0]) == 44100
    for frames in (1, 2, 100, 16384, 16385):
        short = write(tmp_path / "short.wav", np.full(frames, 1000))
        zors("resample", short, tmp_path / "out.wav", "--rate", 44100)
        assert len(samples(tmp_path / "out.wav")[0]) == -(-frames * 147 // 160)


@pytest.mark.parametrize("law, sox_law", [("a", "a-law"), ("mu", "u-law")])
def test_g711_codes_are_those_of_sox(tmp_path, law, sox_law):
    # Every 16-bit sample. Where a sample lies between two codes the two may round differently: both are nearest.
    every = write(tmp_path / "every.wav", np.arange(-32768, 32768))
    zors("convert", every, tmp_path / "z.au", "--g711", law)
    sox("-D", every, "-e", sox_law, tmp_path / "s.au")
    for name in "zs":
        sox(tmp_path / f"{name}.au", "-b", 16, "-e", "signed", tmp_path / f"{name}.wav")
    source = np.arange(-32768, 32768)
    z, s = samples(tmp_path / "z.wav")[0][:, 0].astype(int), samples(tmp_path / "s.wav")[0][:, 0].astype(int)
    same = z == s
    assert same.mean() > 0.9
    step = np.maximum(16, np.abs(source) / 16)
    assert (np.abs(z - source) <= step + 644).all() and (np.abs(z - s)[~same] <= 2 * step[~same] + 16).all()
    zors("convert", tmp_path / "s.au", tmp_path / "back.wav", "--bits", 16)
    assert np.array_equal(samples(tmp_path / "back.wav")[0][:, 0], s)


def test_convert_formats_round_trip(tmp_path, noise):
    data = samples(noise)[0]
    for name, bits in (("a.wav", 16), ("a.wav", 24), ("a.flac", 24), ("a.aiff", 32), ("a.w64", "float"), ("a.rf64", 16),
                       ("a.caf", "double"), ("a.au", 16)):
        zors("convert", noise, tmp_path / name, "--bits", bits)
        zors("convert", tmp_path / name, tmp_path / "back.wav", "--bits", 16)
        assert np.array_equal(samples(tmp_path / "back.wav")[0], data), name
    zors("convert", noise, tmp_path / "8.wav", "--bits", 8)
    zors("convert", tmp_path / "8.wav", tmp_path / "back.wav", "--bits", 16)
    back = samples(tmp_path / "back.wav")[0].astype(int)
    inside = data < 32639
    assert np.abs(back - data)[inside].max() <= 128


def test_convert_channels_and_dither(tmp_path, noise):
    data = samples(noise)[0].astype(int)
    zors("convert", noise, tmp_path / "mono.wav", "--channels", 1)
    assert np.abs(samples(tmp_path / "mono.wav")[0][:, 0] - data.mean(axis=1)).max() <= 0.5
    zors("convert", noise, tmp_path / "swapped.wav", "--pick", "2,1,2")
    assert np.array_equal(samples(tmp_path / "swapped.wav")[0], data[:, [1, 0, 1]])
    zors("tone", tmp_path / "low.wav", "--bits", "float", "--level", -100)
    zors("convert", tmp_path / "low.wav", tmp_path / "plain.wav", "--bits", 16)
    zors("convert", tmp_path / "low.wav", tmp_path / "dithered.wav", "--bits", 16, "--dither")
    assert not samples(tmp_path / "plain.wav")[0].any()  # below half a step: lost
    dithered, rate = samples(tmp_path / "dithered.wav")
    assert abs(tone_level(dithered, rate, 1000) - -100) < 2 and 0.53 < np.std(dithered) < 0.58  # half a step, and the tone


def test_clipping_is_told(tmp_path, noise):
    assert b"limited" in zors("convert", noise, tmp_path / "loud.wav", "--gain", 20).stderr
    assert zors("convert", noise, tmp_path / "same.wav").stderr == b""


def test_streams(tmp_path, noise):
    with open(noise, "rb") as source:
        resampled = zors("resample", "-", "-", "--rate", 44100, "-q", stdin=source).stdout
    assert resampled[:4] == b".snd"
    picture = zors("spectrogram", "-", "-", input=resampled).stdout
    assert picture[:8] == b"\x89PNG\r\n\x1a\n"
    (tmp_path / "piped.au").write_bytes(resampled)
    sox(tmp_path / "piped.au", tmp_path / "piped.wav")
    zors("resample", noise, tmp_path / "file.wav", "--rate", 44100)
    assert np.array_equal(samples(tmp_path / "piped.wav")[0], samples(tmp_path / "file.wav")[0])
    from_sox = subprocess.run(f"sox {noise} -t wav - | {ZORS} info --json -", shell=True, capture_output=True, check=True)
    assert json.loads(from_sox.stdout)[0]["frames"] == 48000


def test_dtmf(tmp_path):
    number, rate = "0123456789*#ABCD", 8000
    rows, columns, keys = (697, 770, 852, 941), (1209, 1336, 1477, 1633), ("123A", "456B", "789C", "*0#D")
    random, sound = np.random.default_rng(2), [np.zeros(800)]
    for digit in number:
        row = next(i for i in range(4) if digit in keys[i])
        t = np.arange(560) / rate
        sound += [0.2 * np.sin(2 * np.pi * rows[row] * t) + 0.2 * np.sin(2 * np.pi * columns[keys[row].index(digit)] * t)]
        sound += [np.zeros(400)]
    sound = np.concatenate(sound)
    path = write(tmp_path / "call.wav", 32768 * (sound + random.normal(0, 0.02, len(sound))), rate)
    result = json.loads(zors("dtmf", "--json", path).stdout)
    assert result["number"] == number
    for i, digit in enumerate(result["digits"]):
        start = 0.1 + 0.12 * i
        assert abs(digit["from"] - start) < 0.03 and abs(digit["to"] - start - 0.07) < 0.03
        assert abs(digit["row_db"] - 20 * np.log10(0.2)) < 1 and abs(digit["column_db"] - 20 * np.log10(0.2)) < 1
    zors("resample", path, tmp_path / "fast.wav", "--rate", 44100)
    assert zors("dtmf", tmp_path / "fast.wav").stdout.decode().endswith(f"number: {number}\n")
    assert json.loads(zors("dtmf", "--json", SPEECH).stdout)["number"] == ""


def test_signals(tmp_path):
    zors("tone", tmp_path / "t.wav", "--frequency", 997, "--seconds", 2, "--channels", 2)
    data, rate = samples(tmp_path / "t.wav")
    wanted = 32768 * 10 ** (-6 / 20) * np.sin(2 * np.pi * 997 * np.arange(96000) / 48000)
    assert data.shape == (96000, 2) and rate == 48000 and np.abs(data - wanted[:, None]).max() <= 0.51
    for colour, slope in (("white", 0), ("uniform", 0), ("pink", -3)):
        zors("noise", tmp_path / "n.wav", "--colour", colour, "--seconds", 20, "--channels", 2)
        data = samples(tmp_path / "n.wav")[0] / 32768
        assert abs(20 * np.log10(np.std(data)) - -20) < 0.3
        assert abs(np.corrcoef(data.T)[0, 1]) < 0.02
        f, power = scipy.signal.welch(data[:, 0], 48000, nperseg=8192)
        level = [10 * np.log10(power[(f > 1000 / 1.4) & (f < 1400)].mean()), 10 * np.log10(power[(f > 4000 / 1.4) & (f < 5600)].mean())]
        assert abs((level[1] - level[0]) / 2 - slope) < 0.4, colour
    for scale, instant in (("linear", lambda t: 100 + 9900 * t / 4), ("log", lambda t: 100 * 100 ** (t / 4))):
        zors("sweep", tmp_path / "s.wav", "--from", 100, "--to", 10000, "--seconds", 4, "--scale", scale)
        data, rate = samples(tmp_path / "s.wav")
        for t in (1, 2, 3):
            part = data[t * rate - 1200:t * rate + 1200, 0] * np.hanning(2400)
            peak = np.argmax(np.abs(np.fft.rfft(part, 48000)))
            assert abs(peak / instant(t) - 1) < 0.05


# A field of a picture begins at (100, 44).
def picture(path):
    return np.asarray(Image.open(path).convert("RGB")).astype(int)


def test_spectrogram_pixels(tmp_path):
    zors("tone", tmp_path / "t.wav", "--frequency", 6000, "--seconds", 3)
    zors("spectrogram", tmp_path / "t.wav", tmp_path / "t.png", "--width", 400, "--height", 241)
    dots = picture(tmp_path / "t.png")
    assert dots.shape == (44 + 241 + 64, 100 + 400 + 130, 3)
    field = dots[44:44 + 241, 100:500]
    brightness = field.sum(axis=2)
    assert abs(240 - np.argmax(brightness[:, 200]) - 60) <= 1  # 6 of 24 kHz
    assert (brightness[:100] < 120).all() and (brightness[240 - 60, 5:395] > 500).all()
    assert (dots[44, 99] < 60).all() and (dots[5, 5] == 255).all()  # frame, paper
    bar = dots[44:285, 530]
    assert bar[2].sum() > 600 and bar[-3].sum() < 60
    # Speech in its first half, silence in its second, on a logarithmic scale, two channels.
    data, rate = samples(SPEECH)
    both = np.stack([np.concatenate([data[:, 0], np.zeros(len(data), "<i2")]), np.zeros(2 * len(data), "<i2")], axis=1)
    write(tmp_path / "half.wav", both, rate)
    zors("spectrogram", tmp_path / "half.wav", tmp_path / "half.png", "--scale", "log", "--width", 400, "-j2")
    dots = picture(tmp_path / "half.png")
    upper, lower = dots[44:284, 100:500].sum(axis=2), dots[300:540, 100:500].sum(axis=2)
    assert upper[:, :190].mean() > 150 and upper[:, 215:].max() < 10 and lower.max() < 10


def test_spectrum_and_design_pixels(tmp_path):
    zors("tone", tmp_path / "t.wav", "--frequency", 12000, "--level", -20, "--seconds", 2, "--bits", 24)
    zors("spectrum", tmp_path / "t.wav", tmp_path / "t.png", "--scale", "linear", "--top", 0, "--range", 120)
    dots = picture(tmp_path / "t.png")
    blue = lambda dot: dot[2] > dot[0] + 80
    column = [y for y in range(44, 524) if blue(dots[y, 600])]
    assert abs(min(column) - (44 + 20 / 120 * 479)) <= 2  # the peak: -20 dB at half the field
    assert not any(blue(dots[y, 300]) for y in range(44, 420))
    zors("design", "low-pass", 12000, "--rate", 48000, "--fir", 255, "--plot", tmp_path / "d.png", "-q")
    dots = picture(tmp_path / "d.png")
    # The scale goes from 10 to -110 dB: the gain is 1 to the middle, -6 dB there, and below -50 dB behind it.
    assert blue(dots[44 + round(10 / 120 * 479), 300]) and not any(blue(dots[y, 700]) for y in range(44, 44 + 200))


def test_design_prints_what_filter_takes(tmp_path, noise):
    edges = {"low-pass": [3000], "high-pass": [3000], "band-pass": [300, 3400], "band-stop": [300, 3400]}
    for kind, edge in edges.items():
        taps = np.array(zors("design", kind, *edge, "--fir", 401).stdout.split(), float)
        _, response = scipy.signal.freqz(taps, worN=[50, 1500, 20000], fs=48000)
        passed = {"low-pass": (1, 1, 0), "high-pass": (0, 0, 1), "band-pass": (0, 1, 0), "band-stop": (1, 0, 1)}[kind]
        assert np.abs(np.abs(response) - passed).max() < 0.01
    (tmp_path / "d.json").write_bytes(zors("design", "band-pass", 300, 3400, "--fir", 101, "--json").stdout)
    zors("filter", noise, tmp_path / "1.wav", "--taps", tmp_path / "d.json")
    zors("filter", noise, tmp_path / "2.wav", "--high-pass", 300, "--low-pass", 3400, "--fir", 101)
    assert (tmp_path / "1.wav").read_bytes() == (tmp_path / "2.wav").read_bytes()
    sections = zors("design", "low-pass", 1000, "--iir", "butter", 5).stdout.decode().splitlines()[1:]
    sos = np.array([line.split() for line in sections], float)
    f, response = scipy.signal.sosfreqz(sos, fs=48000)
    _, wanted = scipy.signal.sosfreqz(scipy.signal.butter(5, 1000, fs=48000, output="sos"), fs=48000)
    assert np.abs(response - wanted).max() < 1e-9
    integers = zors("design", "low-pass", 1000, "--fir", 31, "--bits", 12).stdout.decode().splitlines()
    assert max(abs(int(tap)) for tap in integers[1:]) in range(1024, 2048)


def test_bench(tmp_path):
    result = zors("bench", "convert", "--json").stdout
    rows = json.loads(result)["rows"]
    assert len(rows) == 2 and all(row["ns"] > 0 for row in rows)
    (tmp_path / "old.json").write_bytes(result)
    assert b"over old" in zors("bench", "convert", "--compare", tmp_path / "old.json", "--tolerance", 900).stdout
    fast = json.loads(result)
    for row in fast["rows"]:
        row["ns"] /= 100
    (tmp_path / "fast.json").write_text(json.dumps(fast))
    zors("bench", "convert", "--compare", tmp_path / "fast.json", expect=1)


def test_check():
    assert re.search(rb"all \d+ families", zors("check").stdout)


def test_help_version_and_pages():
    version = zors("--version").stdout
    assert b"8.2.3" in version and b"AVX2" in version
    commands = "info filter resample convert spectrogram spectrum dtmf tone noise sweep design bench check".split()
    overview = zors("--help").stdout.decode()
    root = __import__("conftest").ROOT / "tools/zors"
    page = subprocess.run(["mandoc", "-T", "ascii", root / "zors.1"], capture_output=True, check=True).stdout.decode()
    page = re.sub(".\b", "", page)
    assert subprocess.run(["mandoc", "-T", "lint", "-W", "error", root / "zors.1"]).returncode == 0
    for command in commands:
        text = zors(command, "--help").stdout.decode()
        assert f"Example:\n  zors {command}" in text and command in overview and command in page
        for option in set(re.findall(r"(--[a-z][a-z0-9-]*)", text)) - {"--help", "--dither"}:
            assert option.lstrip("-") in page, (command, option)
    complete = (f"source /usr/share/bash-completion/bash_completion; source {root}/zors.bash; COMP_WORDS=({ZORS} %s); "
                "COMP_CWORD=$((${#COMP_WORDS[@]}-1)); _zors; echo ${COMPREPLY[@]}")
    run = lambda words: subprocess.run(["bash", "-c", complete % words], capture_output=True, check=True).stdout.decode().split()
    assert run("spec") == ["spectrogram", "spectrum"]
    assert "--quality" in run("resample --q") and run("resample --quality b") == ["best"]
