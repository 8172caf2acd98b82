"""ITU-T G.711: A-law and mu-law codes of samples, int16 or float32, and back.

    >>> import numpy as np
    >>> from zorsl9 import g711
    >>> g711.alaw_decode(g711.alaw_encode(np.int16([0, 1000, -32768])))
    array([     8,   1008, -32256], dtype=int16)
"""
import numpy as np

from . import raw

__all__ = ["alaw_encode", "alaw_decode", "mulaw_encode", "mulaw_decode", "alaw_to_mulaw", "mulaw_to_alaw"]


def _map(name, x, dtype):
    x = np.ascontiguousarray(x)
    y = np.empty(x.shape, dtype)
    if y.size:
        getattr(raw, name)(x, y, y.size)
    return y


def _source(x):
    x = np.asarray(x)
    if x.dtype == np.int16:
        return "16s"
    if x.dtype == np.float32:
        return "32f"
    raise TypeError(f"zorsl9.g711: samples must be int16, or float32 in -1 .. 1, not {x.dtype}")


def _target(dtype):
    try:
        return {np.dtype("i2"): "16s", np.dtype("f4"): "32f"}[np.dtype(dtype)]
    except KeyError:
        raise TypeError("zorsl9.g711: samples are int16 or float32") from None


def alaw_encode(x):
    """A-law codes, uint8, of samples."""
    return _map(f"zorsLinToALaw_{_source(x)}8u", x, np.uint8)


def mulaw_encode(x):
    """Mu-law codes, uint8, of samples."""
    return _map(f"zorsLinToMuLaw_{_source(x)}8u", x, np.uint8)


def alaw_decode(codes, dtype=np.int16):
    """Samples of A-law codes, int16 or float32."""
    return _map(f"zorsALawToLin_8u{_target(dtype)}", codes, dtype)


def mulaw_decode(codes, dtype=np.int16):
    """Samples of mu-law codes, int16 or float32."""
    return _map(f"zorsMuLawToLin_8u{_target(dtype)}", codes, dtype)


def alaw_to_mulaw(codes):
    """Mu-law codes of A-law codes."""
    return _map("zorsALawToMuLaw_8u", codes, np.uint8)


def mulaw_to_alaw(codes):
    """A-law codes of mu-law codes."""
    return _map("zorsMuLawToALaw_8u", codes, np.uint8)
