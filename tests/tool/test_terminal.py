"""Progress on a terminal, none elsewhere; long files."""
import os
import resource
import subprocess
import time

import pytest

from conftest import ZORS, zors


def test_progress_under_tmux(tmp_path):
    session = f"zors{os.getpid()}"
    tmux = lambda *words: subprocess.run(["tmux", "-L", session, *words], capture_output=True, check=True).stdout.decode()
    tmux("-f", "/dev/null", "new-session", "-d", "-x", "120", "-y", "20", "bash --norc")
    try:
        tmux("send-keys", f"{ZORS} noise {tmp_path}/long.wav --seconds 36000 --bits 8; echo ended $?", "Enter")
        screens = []
        for _ in range(100):
            time.sleep(0.1)
            screens.append(tmux("capture-pane", "-p"))
            if "left" in screens[-1]:
                break
        assert "%" in screens[-1] and "times real time" in screens[-1] and "left" in screens[-1], screens[-1]
        tmux("send-keys", "C-c")
        for _ in range(50):
            time.sleep(0.1)
            if "ended 130" in (screen := tmux("capture-pane", "-p")):
                break
        assert "ended 130" in screen and "times real time" not in screen
    finally:
        tmux("kill-server")
    assert os.listdir(tmp_path) == []


def test_no_progress_elsewhere(tmp_path):
    assert zors("noise", tmp_path / "n.wav", "--seconds", 300, "--bits", 8).stderr == b""


@pytest.mark.parametrize("words", [
    ["noise", "OUT.wav", "--seconds", "1200", "--channels", "2"],
    ["resample", "IN", "OUT.wav", "--rate", "44100"], ["filter", "IN", "OUT.wav", "--low-pass", "1000"],
    ["spectrogram", "IN", "OUT.png"], ["spectrum", "IN", "OUT.png"], ["info", "IN"], ["dtmf", "IN"]])
def test_memory_is_bounded(tmp_path, words):
    def peak(seconds):
        source = tmp_path / "in.wav"
        zors("noise", source, "--seconds", seconds, "--channels", 2)
        real = [str(source) if w == "IN" else w.replace("OUT", str(tmp_path / "out")) for w in words]
        real = [str(seconds) if w == "1200" else w for w in real]
        script = f"import resource, subprocess, sys; subprocess.run(sys.argv[1:], check=True, stdout=subprocess.DEVNULL); print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)"
        return int(subprocess.run(["python3", "-c", script, ZORS, *real], capture_output=True, check=True).stdout)
    short, long = peak(20), peak(200)
    assert long < short + 6000, (short, long)  # KiB
