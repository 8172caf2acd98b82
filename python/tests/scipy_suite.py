"""A pytest plugin: SciPy's own tests of scipy.fft with zorsl9 as the global backend, and what was handed back."""
import collections

import scipy.fft

import zorsl9.scipy_fft as backend

called, handed_back = collections.Counter(), collections.Counter()
backend_function, hand_back = backend.__ua_function__, backend.hand_back


def counted(method, args, kwargs):
    called[method.__name__] += 1
    return backend_function(method, args, kwargs)


def counted_back(method, args, kwargs):
    handed_back[method.__name__] += 1
    return hand_back(method, args, kwargs)


def pytest_configure(config):
    backend.__ua_function__, backend.hand_back = counted, counted_back
    scipy.fft.set_global_backend(backend)


def pytest_terminal_summary(terminalreporter):
    terminalreporter.write_line(f"transforms by zorsl9: {sum(called.values()) - sum(handed_back.values())}, handed back to SciPy: "
                                f"{sum(handed_back.values())} {dict(handed_back)}")
