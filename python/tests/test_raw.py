"""The raw layer: every function, what it refuses, and that nothing it is given ends the process."""
import subprocess
import sys
import threading
import time
import tracemalloc
import resource
from pathlib import Path

import numpy as np
import pytest

import zorsl9
from zorsl9 import ZorsError, ZorsWarning, raw
from zorsl9._prototypes import PROTOTYPES

PROGRAM = Path(__file__).with_name("guarded_calls.py")


def guarded(*arguments):
    done = subprocess.run([sys.executable, "-X", "faulthandler", str(PROGRAM), *map(str, arguments)], capture_output=True,
                          text=True, timeout=300)
    assert done.returncode == 0, done.stdout + done.stderr[-1500:]
    return done.stdout


def test_every_function_takes_valid_arguments_between_guard_pages():
    assert f"{len(PROTOTYPES)} of {len(PROTOTYPES)}" in guarded("every")


@pytest.mark.parametrize("seed", range(3))
def test_hostile_arguments_never_end_the_process(seed):
    guarded("hostile", seed, 1500)


def test_the_library_exports_what_the_headers_declare():
    library = Path(zorsl9.__file__).parent / "lib" / "libzorsl9.so.8"
    table = subprocess.run(["nm", "-D", "--defined-only", str(library)], capture_output=True, text=True, check=True).stdout
    exported = {line.split()[2] for line in table.splitlines() if line.split()[2].startswith("zors")}
    assert exported <= set(PROTOTYPES)
    assert len(exported) > 2000


def test_import_takes_at_most_300_ms():
    program = "import time; t = time.perf_counter(); import zorsl9; print(time.perf_counter() - t)"
    run = [float(subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True).stdout)
           for _ in range(5)]
    assert min(run) < 0.3


def int16(*values):
    return np.array(values, np.int16)


def test_arrays_are_checked_before_the_call():
    a, dst = int16(1, 2, 3, 4), np.zeros(4, np.int16)
    add = raw.zorsAdd_16s_Sfs
    with pytest.raises(TypeError, match="src1 must be an array of int16, not of float64"):
        add(a.astype(float), a, dst, 4, 0)
    with pytest.raises(TypeError, match="src2 must be a numpy.ndarray of int16 or None, not list"):
        add(a, [1, 2], dst, 4, 0)
    with pytest.raises(ValueError, match="src1 must be contiguous"):
        add(np.zeros(8, np.int16)[::2], a, dst, 4, 0)
    with pytest.raises(ValueError, match="dst has 4 elements, the call needs 5"):
        add(int16(1, 2, 3, 4, 5), int16(1, 2, 3, 4, 5), dst, 5, 0)
    dst.flags.writeable = False
    with pytest.raises(ValueError, match="dst is read-only"):
        add(a, a, dst, 4, 0)
    with pytest.raises(TypeError):
        add(a, a, np.zeros(4, np.int16), 4.0, 0)
    with pytest.raises(ValueError):
        add(a, a, np.zeros(4, np.int16), 4, 1 << 40)
    with pytest.raises(TypeError, match="int16"):
        add(a.astype(">i2"), a, np.zeros(4, np.int16), 4, 0)


def test_statuses_become_errors_and_warnings():
    with pytest.raises(ZorsError, match="null") as caught:
        raw.zorsAdd_16s_Sfs(None, int16(1), int16(1), 1, 0)
    assert (caught.value.status, caught.value.name) == (raw.zorStatusNullPointer, "zorStatusNullPointer")
    with pytest.raises(ZorsError) as caught:
        raw.zorsAdd_16s_Sfs(int16(1), int16(1), int16(1), -1, 0)
    assert caught.value.status == raw.zorStatusBadSize
    dst = np.zeros(3, np.float32)
    with pytest.warns(ZorsWarning, match="square root"):
        assert raw.zorsSqrt_32f(np.array([4, -1, 9], np.float32), dst, 3) == raw.zorWarningSqrtOfNegative
    assert dst[0] == 2 and dst[2] == 3


def test_closed_and_wrong_states_are_refused():
    x, y = np.ones(4, np.float32), np.zeros(4, np.float32)
    state = raw.Handle()
    with pytest.raises(ValueError, match="not filled yet"):
        raw.zorsFIR_32f(x, y, 4, state)
    raw.zorsFIRInitAlloc_32f(state, x, 4, None)
    raw.zorsFIR_32f(x, y, 4, state)
    assert y.tolist() == [1, 2, 3, 4]
    with pytest.raises(ValueError, match="holds a ZorFIRState already"):
        raw.zorsFIRInitAlloc_32f(state, x, 4, None)
    with pytest.raises(ValueError, match="the call needs ZorIIRState"):
        raw.zorsIIR_32f(x, y, 4, state)
    raw.zorsFIRFree_32f(state)
    with pytest.raises(ValueError, match="closed"):
        raw.zorsFIR_32f(x, y, 4, state)
    with pytest.raises(TypeError, match="Handle"):
        raw.zorsFIR_32f(x, y, 4, 5)


def test_memory_of_the_caller_becomes_read_only():
    size = np.zeros(1, np.int32)
    raw.zorsFIRGetStateSize_32f(2, size)
    block, state = np.zeros(size[0], np.uint8), raw.Handle()
    raw.zorsFIRInit_32f(state, np.ones(2, np.float32), 2, None, block)
    with pytest.raises(ValueError):
        block[0] = 1


def test_memory_that_arrays_look_at_is_not_released():
    memory = raw.zorsMalloc_32f(10)
    view = memory.array()
    view[:] = 1
    with pytest.raises(ValueError, match="arrays still use"):
        raw.zorsFree(memory)
    del view
    raw.zorsFree(memory)
    with pytest.raises(ValueError):
        memory.array()


def test_a_processor_without_avx2_is_refused_with_its_reason():
    with pytest.raises(ImportError, match="lacks AVX2 and FMA"):
        raw.check_processor(raw.ZOR_CPU_SSE2)
    raw.check_processor(raw.ZOR_CPU_AVX2 | raw.ZOR_CPU_FMA)


def test_calls_leave_no_memory_behind():
    a, dst = np.ones(64, np.float32), np.zeros(64, np.float32)

    def calls(count):
        for _ in range(count):
            raw.zorsAddC_32f(a, 1.0, dst, 64)
            state = raw.Handle()
            raw.zorsFIRInitAlloc_32f(state, a, 64, None)
            raw.zorsFIR_32f(a, dst, 64, state)

    calls(2000)
    tracemalloc.start()
    before, resident = tracemalloc.get_traced_memory()[0], resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    calls(33334)
    grown, pages = tracemalloc.get_traced_memory()[0] - before, resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - resident
    tracemalloc.stop()
    assert grown < 20000 and pages < 8192


def test_eight_threads_share_a_specification():
    n, spec = 1 << 12, raw.Handle()
    raw.zorsFFTInitAlloc_C_64fc(spec, 12, raw.ZOR_FFT_DIVIDE_INVERSE, 0)
    rng = np.random.default_rng(5)
    inputs = [rng.standard_normal(n) + 1j * rng.standard_normal(n) for _ in range(8)]
    outputs = [np.zeros(n, np.complex128) for _ in range(8)]

    def work(i):
        for _ in range(50):
            raw.zorsFFTFwd_CToC_64fc(inputs[i], outputs[i], spec, None)

    threads = [threading.Thread(target=work, args=(i,)) for i in range(8)]
    [t.start() for t in threads]
    [t.join() for t in threads]
    for x, y in zip(inputs, outputs):
        np.testing.assert_allclose(y, np.fft.fft(x), atol=1e-10)


def test_other_threads_run_during_a_call():
    """While one call runs for long, this thread counts: with the lock held it could not."""
    x = np.ones(1 << 24, np.float64)
    y = np.zeros_like(x)
    ended, counted = [], 0

    def work():
        for _ in range(3):
            raw.zorsSin_64f(x, y, x.size) if hasattr(raw, "zorsSin_64f") else raw.zorsLn_64f(x, y, x.size)
        ended.append(time.perf_counter())

    thread = threading.Thread(target=work)
    thread.start()
    while not ended:
        counted += 1
        time.sleep(0.001)
    thread.join()
    assert counted > 20

