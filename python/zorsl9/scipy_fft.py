"""A backend of scipy.fft: ``scipy.fft.set_backend(zorsl9.scipy_fft)``, or ``set_global_backend``.

Handed back to SciPy, which then computes as without the backend: long double and object arrays, precomputed plans,
cosine transforms of types 1 and 4, all sine transforms, and fast Hankel transforms.

    >>> import numpy as np, scipy.fft, zorsl9.scipy_fft
    >>> with scipy.fft.set_backend(zorsl9.scipy_fft):
    ...     scipy.fft.fft(np.ones(4, np.float32)) + 0
    array([4.+0.j, 0.+0.j, 0.+0.j, 0.+0.j], dtype=complex64)
"""
import os

import numpy as np
import scipy.fft

from . import fft as _fft

__ua_domain__ = "numpy.scipy.fft"

_TRANSFORMS = {name: getattr(_fft, name) for name in _fft.__all__}


def _check_workers(workers):
    """The argument of scipy.fft for threads: transforms here run in the caller's, but wrong values are refused."""
    count = os.cpu_count() or 1
    if workers is not None and workers < -count:
        raise ValueError(f"workers value out of range; got {workers}, must not be less than {-count}")
    if workers == 0:
        raise ValueError("workers must not be zero")


def hand_back(method, args, kwargs):
    """SciPy's own answer, also where this backend is the global one."""
    with scipy.fft.set_backend("scipy", only=True):
        return method(*args, **kwargs)


def __ua_function__(method, args, kwargs):
    transform = _TRANSFORMS.get(method.__name__)
    if transform is None:
        return hand_back(method, args, kwargs)
    original, kwargs = kwargs, dict(kwargs)
    if kwargs.pop("plan", None) is not None:
        return hand_back(method, args, original)
    kwargs.pop("overwrite_x", None)
    workers = kwargs.pop("workers", None)
    x = args[0] if args else kwargs.pop("x")
    rest = list(args[1:])
    if "dct" in method.__name__:
        kind = rest[0] if rest else kwargs.get("type", 2)
        if kind not in (2, 3):
            return hand_back(method, args, original)
        several = method.__name__ in ("dctn", "idctn")
        names = ["type", "s" if several else "n", "axes" if several else "axis", "norm", "overwrite_x", "workers"]
    elif method.__name__[-1] in "n2":
        names = ["s", "axes", "norm", "overwrite_x", "workers"]
    else:
        names = ["n", "axis", "norm", "overwrite_x", "workers"]
    for name, value in zip(names, rest):
        if name == "workers":
            workers = value
        elif name != "overwrite_x":
            kwargs[name] = value
    if not isinstance(x, np.ndarray):
        x = np.asarray(x)
    if x.dtype.char in "gGO":
        return hand_back(method, args, original)
    _check_workers(workers)
    return transform(x, **kwargs)
