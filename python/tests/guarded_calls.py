"""Calls of every raw function with arrays that end where the address space does, run as a program.

    guarded_calls.py every          each function once, with valid arguments: a status below 0 is a failure
    guarded_calls.py hostile SEED COUNT   random functions with hostile lengths, selectors, states and small arrays

Each array ends at a page that may not be touched and begins in one with a known pattern, so that the process dies, and
the parent test fails, where the library touches an element that the checks of zorsl9.raw did not ask for. The name of
each function is written to standard error before its call.
"""
import ctypes
import itertools
import math
import mmap
import random
import re
import resource
import sys
import warnings

import numpy as np

from zorsl9 import raw
from zorsl9._prototypes import PROTOTYPES

PAGE = mmap.PAGESIZE
REFUSED = (raw.ZorsError, ValueError, TypeError, MemoryError)


class Arena:
    """Places for arrays, each in front of a page without access; what stands in front of the array is a pattern."""
    PATTERN = 0xA5

    def __init__(self, places=24, pages=40):
        libc = ctypes.CDLL(None, use_errno=True)
        self.bytes, self.places = pages * PAGE, places
        self.map = mmap.mmap(-1, places * (self.bytes + PAGE))
        base = ctypes.addressof(ctypes.c_char.from_buffer(self.map))
        self.memory = np.frombuffer(self.map, np.uint8)
        for place in range(places):
            end = base + place * (self.bytes + PAGE) + self.bytes
            if libc.mprotect(ctypes.c_void_p(end), ctypes.c_size_t(PAGE), 0):
                raise OSError(ctypes.get_errno(), "mprotect")
        self.reset()

    def reset(self):
        self.used, self.arrays = 0, []

    def array(self, count, dtype):
        size = count * dtype.itemsize
        if size > self.bytes - 64 or self.used == self.places:
            return np.zeros(count, dtype)
        start = self.used * (self.bytes + PAGE)
        self.used += 1
        place = self.memory[start:start + self.bytes]
        front = place[:self.bytes - size]
        front[-64:] = self.PATTERN
        self.arrays.append(front[-64:])
        result = place[self.bytes - size:].view(dtype)
        return result

    def untouched(self):
        return all((front == self.PATTERN).all() for front in self.arrays)


INTEGERS = dict(
    len=37, order=4, flag=8, hint=0, ZorHintAlgorithm=1, tapsLen=9, numBq=2, upFactor=3, downFactor=2, upPhase=1,
    downPhase=1, tapsFactor=1, scaleFactor=1, numIters=6, factor=3, srcLen=33, dstLen=20, len1=12, len2=15, lowLag=-3,
    bias=2, algType=0, dataType=13, window=2, normalise=1, filterType=0, stateCount=16, bitInversion=3,
    survivorOffset=2, rFreqQ15=100, magnitude=100, phaseQ15=100, asymQ15=100, low=1, high=9, seed=5, mean=3, stdDev=2,
    magn=9, nStep=16, inRate=3, outRate=2, step=16, height=2, level=1, value=3, relOp=0, levelLT=1, levelGT=2,
    valueLT=1, valueGT=2, mask=5, maskSize=5, mode=0, shift=1, alpha=2, alphaQ15=1000, srcStrideBytes=8, lenLow=6,
    lenHigh=5, offsLow=0, offsHigh=-1, dlyStep=2, updateDelay=3, mu=2, muQ15=2, nChannels=3, chanLen=11, numChannels=2,
    val=3, tableLen=7, lowerBound=0, upperBound=5, srcBitOffset=3, dstBitOffset=5, rnd=1, roundMode=1, index=1, err=4,
    dlyIndex=1, nzTapsLen=5, nzTapsLen1=3, nzTapsLen2=2, order1=9, order2=9, vSub=1, vDiv=3, magnScaleFactor=1,
    phaseScaleFactor=1, offset=1, slope=2, tapsType=13, alignment=64, status=-8, mask64=1, src=2, ref=3, C=2, size=100)
FLOATS = dict(rFreq=0.1, alpha=1.5, window=8.0, rollf=0.9, freq=0.2, lowFreq=0.1, highFreq=0.3, ripple=1.0, asym=0.5,
              factor=0.75, magnitude=2.0, mu=0.1, norm=1.0)
CONTENTS = {"nzTapPos": lambda n: np.arange(n) + 1,
            "time": lambda n: [40.0] * n, "phase": lambda n: [0] * n, "dlyIndex": lambda n: [0] * n,
            "rFreq": lambda n: [0.1] * n, "nextState": lambda n: np.arange(n) % 16, "widths": lambda n: [5] * n}
HOSTILE = [0, 1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 64, 100, -1, -2, -37, -2**31, 2**31 - 1, 2**31, 2**30, 65535,
           2**16, 2**40, -2**63, 1 << 70]
HOSTILE_FLOATS = [0.0, -0.0, 1.0, -1.0, 0.1, 0.5, 2.0, 37.0, math.nan, math.inf, -math.inf, 1e300, 1e-300, -3.5, 1e-45]


def parameters(name):
    inside = PROTOTYPES[name].partition("(")[2].rstrip(")")
    return [] if inside == "void" else [re.fullmatch(r"(.*?) ?(\w+)", p.strip()).groups() for p in inside.split(",")]


def base(ctype):
    return re.sub(r"const|\*| ", "", ctype)


def makers(kind):
    """The functions that build a handle of a kind, those that allocate first."""
    found = [n for n in PROTOTYPES if re.search(r"InitAlloc", n) and f"{kind}**" in PROTOTYPES[n]]
    found += [n for n in PROTOTYPES if re.search(r"Init(?!Alloc)", n) and re.search(rf"\b{kind}\*", PROTOTYPES[n])
              and "specBlock" not in PROTOTYPES[n] and "buffer" not in PROTOTYPES[n].lower()]
    found += [n for n in PROTOTYPES if re.search(r"Init(?!Alloc)", n) and f"{kind}**" in PROTOTYPES[n]]
    return found


class Valid:
    """Arguments that a function accepts."""
    sizes_of_pointers = 0

    def __init__(self, arena):
        self.arena = arena

    def number(self, name, ctype, p):
        if ctype in ("Zor32f", "Zor64f"):
            return FLOATS.get(p, float(INTEGERS.get(p, 1)))
        if ctype.endswith("c"):
            return 3 + 1j
        if p == "order" and "Sparse" in name:
            return 9
        if p == "mask" and ctype == "uint64_t":
            return 1
        return INTEGERS[p]

    def fill(self, array, p):
        if array.dtype.names:
            array["re"], array["im"] = 1, 2
        elif p in CONTENTS and array.dtype.kind != "c":
            array[:] = CONTENTS[p](array.size)
        else:
            array[:] = 1 if p in ("src", "taps", "tapsLow", "tapsHigh", "table") else 0
        return array

    def first_count(self):
        return 0

    def handle(self, name, kind, maker):
        handle = raw.Handle()
        self.call(maker, {kind: handle})
        return handle


def specification(name, p, kind):
    """The function that builds what C passes as bytes."""
    types = name.rpartition("_")[2]
    types = {"16s": "32f", "16sc": "32fc"}.get(types, types)
    return ("zorsFIRSRInit_" if "SR" in name else "zorsFIRMR_Init_") + types


def attempts(name, arena, number, fill, count, makers_of, depth=0):
    """Calls a function with each maker of its handle until it is accepted; arrays grow to what the checks ask for."""
    kinds = [(ctype, p) for ctype, p in parameters(name)]
    handle_at = next((p for c, p in kinds if re.search("State|Spec", c) and not c.endswith("**")), None)
    building = re.search(r"Init(?=[A-Z_0-9]|$|Alloc)", name)
    plain = next((p for c, p in kinds if c.replace("const ", "") == "Zor8u*" and p == "spec"), None)
    if depth == 0 and not building and (handle_at or plain):
        ctype = next(c for c, p in kinds if p == (handle_at or plain))
        candidates = makers_of(base(ctype)) if handle_at else [specification(name, plain, None)]
    else:
        candidates = [None]
    error = None
    for maker in candidates:
        arena.reset()
        try:
            made = []
            if maker:
                copies = 2 if "*const*" in ctype.replace(" ", "") else 1
                made = [build(maker, arena, number, fill, count, makers_of) for _ in range(copies)]
            return call(name, arena, number, fill, count, made, building)
        except REFUSED as refused:
            error = refused
    raise error


def build(maker, arena, number, fill, count, makers_of):
    handle = raw.Handle()
    if not any(c.endswith("**") and re.search("State|Spec", c) for c, _ in parameters(maker)):
        handle = None  # the memory itself is the state: made in call()
    result = call(maker, arena, number, fill, count, [handle] if handle else [], True)
    return result[1]


def call(name, arena, number, fill, count, made, building):
    counts, handle = {}, made[0] if made else None
    for _ in range(60):
        used = arena.used
        arguments = []
        for ctype, p in parameters(name):
            kind = base(ctype)
            if "*" not in ctype:
                arguments.append(number(name, ctype, p))
            elif kind == "void":
                arguments.append(raw.zorsMalloc_8u(100) if name == "zorsFree" else raw.zorMalloc(100))
            elif re.search("State|Spec", kind) and "*const*" in ctype.replace(" ", ""):
                arguments.append(made)
            elif re.search("State|Spec", kind) or kind == "Zor8u" and (
                    p == "spec" or p == "specBlock" and name.startswith("zorsDFTInit")):
                if building and not ctype.endswith("**"):
                    handle = raw.Handle(arena.array(counts.get(p, count()), np.dtype("u1")))
                elif handle is None:
                    handle = raw.Handle()
                arguments.append(handle)
            elif ctype.endswith("**"):
                arguments.append(raw.Handle())
            else:
                dtype = raw._DTYPES[kind]
                if "*const*" in ctype.replace(" ", ""):
                    arguments.append([fill(arena.array(counts.get(p, count()), dtype), p) for _ in range(3)])
                else:
                    arguments.append(fill(arena.array(counts.get(p, count()), dtype), p))
        try:
            return getattr(raw, name)(*arguments), handle
        except ValueError as error:
            needs = re.search(r"(\w+) has \d+ elements, the call needs (\d+)", str(error))
            if not needs or int(needs[2]) > 1 << 17:
                raise
            counts[needs[1]] = int(needs[2])
            arena.used, arena.arrays = used, arena.arrays[:used]
            if building and handle is not None and not handle.closed:
                handle = None
    raise AssertionError(f"{name}: sizes do not settle")


def every():
    """Each function with arguments that it accepts."""
    arena, valid = Arena(), Valid(None)
    failures = []
    for name in PROTOTYPES:
        print(name, file=sys.stderr, flush=True)
        try:
            attempts(name, arena, valid.number, valid.fill, lambda: 0, makers)
            if not arena.untouched():
                failures.append(f"{name}: wrote in front of an array")
        except Exception as error:
            failures.append(f"{name}: {type(error).__name__}: {error}")
    print(f"{len(PROTOTYPES) - len(failures)} of {len(PROTOTYPES)} functions accepted their call")
    print("\n".join(failures))
    return bool(failures)


def hostile(seed, count):
    """Random calls: whatever the arguments, an exception or a result."""
    chance = random.Random(seed)
    resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
    arena, valid = Arena(), Valid(None)
    names = list(PROTOTYPES)
    outcomes = {"accepted": 0, "refused": 0}

    def number(name, ctype, p):
        if chance.random() < 0.7:
            return valid.number(name, ctype, p)
        if ctype in ("Zor32f", "Zor64f"):
            return chance.choice(HOSTILE_FLOATS)
        if ctype.endswith("c"):
            return complex(chance.choice(HOSTILE_FLOATS), chance.choice(HOSTILE_FLOATS))
        if p in ("order", "len") and re.search("Alloc|Init|GetSize", name):
            return chance.choice([n for n in HOSTILE if abs(n) < 70000 or abs(n) > 2**30] if p == "len" else HOSTILE)
        return chance.choice(HOSTILE)

    def fill(array, p):
        if chance.random() < 0.5:
            return valid.fill(array, p)
        array.view(np.uint8)[:] = np.frombuffer(chance.randbytes(array.nbytes), np.uint8)
        return array

    def makers_of(kind):
        found = makers(kind)
        return chance.sample(found, min(2, len(found)))

    for _ in range(count):
        name = chance.choice(names)
        print(name, file=sys.stderr, flush=True)
        try:
            attempts(name, arena, number, fill, lambda: chance.choice((0, 0, 1, 5, 40)), makers_of)
            outcomes["accepted"] += 1
        except REFUSED:
            outcomes["refused"] += 1
        if not arena.untouched():
            print(f"{name}: wrote in front of an array")
            return 1
    print(outcomes)
    return 0


if __name__ == "__main__":
    warnings.simplefilter("ignore")
    np.seterr(all="ignore")
    sys.exit(every() if sys.argv[1] == "every" else hostile(int(sys.argv[2]), int(sys.argv[3])))
