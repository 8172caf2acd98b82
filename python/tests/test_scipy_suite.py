"""SciPy's own tests of scipy.fft pass with zorsl9 as the backend."""
import os
import re
import subprocess
import sys
from pathlib import Path


def test_scipys_own_suite_passes_under_the_backend():
    here = str(Path(__file__).parent)
    path = os.pathsep.join(filter(None, [here, os.environ.get("PYTHONPATH", "")]))
    done = subprocess.run([sys.executable, "-m", "pytest", "-q", "-p", "scipy_suite", "-p", "no:cacheprovider", "-W", "ignore",
                           "--pyargs", "scipy.fft.tests"], capture_output=True, text=True, cwd=here,
                          env={**os.environ, "PYTHONPATH": path})
    assert done.returncode == 0, done.stdout[-3000:]
    print(done.stdout[-900:])
    assert int(re.search(r"transforms by zorsl9: (\d+)", done.stdout)[1]) > 4000
