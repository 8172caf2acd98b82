import sys
from pathlib import Path

from setuptools import setup

sys.path.insert(0, str(Path(__file__).parent))
import build_raw  # noqa: E402

build_raw.write(Path(__file__).parent / "zorsl9")
setup(cffi_modules=["build_raw.py:builder"])
