"""Every exported function under its C name, with the arguments of its C prototype.

    >>> import numpy as np
    >>> from zorsl9 import raw
    >>> a, b, dst = np.array([30000, -5], np.int16), np.array([10000, -7], np.int16), np.zeros(2, np.int16)
    >>> raw.zorsAdd_16s_Sfs(a, b, dst, 2, 1)
    0
    >>> dst
    array([20000,    -6], dtype=int16)

A pointer is a NumPy array of the element's type, passed as it is, never copied; None is a null pointer. Before the call
the type, contiguity and writability of each array are checked, and that it has room for what the function reads or
writes: TypeError and ValueError tell what to do. Complex integers are arrays of `complex_dtypes`, or of the part's
type with a last axis of two. Single results go to arrays of one element.

What a function keeps between calls is a `Handle`: empty where C has a pointer to a pointer, made of an array where the
caller gives the memory itself. The memory of what InitAlloc made is released with the handle, or by the Free function.

A status below 0 raises `ZorsError`, one above 0 is returned after a Python warning `ZorsWarning`. Other threads run
during every call. Wrappers are made on first use, from the prototypes that build_raw.py took from the headers.
"""
import functools
import re
import sys
import types
import warnings
from operator import index as _index

import numpy as np

from . import _room
from ._errors import ZorsError, ZorsWarning
from ._prototypes import PROTOTYPES
from ._zorsl9 import ffi, lib

__all__ = ["Handle", "Memory", "ZorsError", "ZorsWarning", "complex_dtypes", "prototype"]


def check_processor(features):
    """Raises ImportError where the processor lacks what every function of the library needs."""
    lacking = [name for name in ("AVX2", "FMA") if not features & getattr(lib, "ZOR_CPU_" + name)]
    if lacking:
        raise ImportError("zorsl9 needs an x86-64 processor with AVX2 and FMA; this one, or its operating system, lacks "
                          + " and ".join(lacking))


check_processor(lib.zorGetEnabledCpuFeatures())

complex_dtypes = {name: np.dtype([("re", part), ("im", part)])
                  for name, part in (("8sc", "i1"), ("16sc", "i2"), ("32sc", "i4"), ("64sc", "i8"))}
_DTYPES = {"8u": "u1", "8s": "i1", "16u": "u2", "16s": "i2", "32u": "u4", "32s": "i4", "64u": "u8", "64s": "i8",
           "16f": "f2", "32f": "f4", "64f": "f8", "32fc": "c8", "64fc": "c16"}
_DTYPES = {f"Zor{name}": np.dtype(d) for name, d in _DTYPES.items()} | {f"Zor{n}": d for n, d in complex_dtypes.items()}
_DTYPES |= {"int32_t": np.dtype("i4"), "uint64_t": np.dtype("u8")}


class Handle:
    """A state or specification of the library.

    ``Handle()`` is to be filled by an Init or InitAlloc function; ``Handle(array)`` puts a state into the caller's
    array of bytes, for functions that take the memory itself. An array that a state lives in becomes read-only.
    """
    __slots__ = ("pointer", "kind", "maker", "block", "keep", "users", "busy", "_work",
                 "n", "taps", "delay", "up", "down", "ahead", "low", "high", "margin", "row", "ratio", "work")

    def __init__(self, block=None):
        if block is not None and (not isinstance(block, np.ndarray) or block.dtype != np.uint8):
            raise TypeError("Handle: the memory of a state is an array of numpy.uint8")
        self.block, self.users, self.busy = block, 0, False
        self._clear()

    def _clear(self):
        self.pointer = self.kind = self.maker = self.keep = self._work = None
        self.n = self.taps = self.delay = self.ahead = self.low = self.high = self.margin = self.row = self.work = 0
        self.up = self.down = self.ratio = 1

    def _hold(self, pointer, kind, maker, keep, facts):
        self.pointer, self.kind, self.maker, self.keep = pointer, kind, maker, keep
        for name, value in facts.items():
            setattr(self, name, value)

    @property
    def closed(self):
        """Whether there is nothing in the handle: not filled yet, or released."""
        return self.pointer is None

    def close(self):
        """Releases what the library allocated. Closing twice does nothing."""
        if self.users or self.busy:
            raise ValueError("Handle.close: another thread is using it")
        pointer = self.pointer
        self._clear()
        if pointer is not None and self.block is None:
            try:
                ffi.release(pointer)
            except ValueError:  # memory of the caller's: nothing to release
                pass

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def __repr__(self):
        return f"<zorsl9.raw.Handle {'closed' if self.closed else self.kind + ' by ' + self.maker}>"


_NOTHING = Handle()


class Memory:
    """Memory of the library's allocators; ``array()`` is a NumPy array over it."""
    __slots__ = ("pointer", "buffer", "dtype")

    def __init__(self, pointer, size, dtype, free):
        self.pointer, self.dtype = ffi.gc(pointer, free, size), dtype
        self.buffer = ffi.buffer(self.pointer, size)

    def array(self):
        if self.buffer is None:
            raise ValueError("Memory.array: the memory is released")
        return np.frombuffer(self.buffer, self.dtype)


# What expressions of _room call.


def ceil(a, b):
    return -(-a // b) if b > 0 else 0


def ccs(n):
    return n + 2 - n % 2


def given(array, count=1):
    """Whether an array whose contents count has so many elements; if not, the call will be refused anyway."""
    return isinstance(array, np.ndarray) and 0 < count <= array.size


def peek(array, i):
    return int(array.flat[i]) if i >= 0 and given(array, i + 1) else 0


def last(positions, count):
    return max(peek(positions, count - 1), 0)


def bits(widths, count):
    return int(np.clip(widths.flat[:count], 0, 32).sum(dtype=np.int64)) if given(widths, count) else 0


def spaced(array, stride, count):
    return ceil((count - 1) * stride, array.itemsize) + 1 if given(array) and count > 0 and stride >= 0 else 0


def above(targets, count):
    return int(targets.flat[:count].max()) + 1 if given(targets, count) else 0


def beyond(offset, count):
    return offset + count if count > 0 else 0


def settled(time):
    return not given(time) or abs(time.flat[0]) <= 2.0 ** 31


def stretched(margin, factor):
    return int(np.ceil(margin / min(1, factor))) + 1 if factor > 1e-9 else 1 << 62 if factor > 0 else 0


def reach(time, count, margin):
    if not given(time) or count < 1:
        return 0
    first = int(time.flat[0])
    if first < margin:
        raise ValueError(f"time must be at least {margin}: so many samples before it are read")
    return first + count + margin


def outputs(count, factor):
    return min(int(min(count * factor, 2.0 ** 40)) + 2, 1 << 40) if count > 0 and factor > 0 else 0


def itemsize(array):
    return array.itemsize if given(array) else 0


def sized(query, *arguments, at=0):
    """What a size query of the library writes to its result number `at`."""
    kinds = [None if "*" in p else p for p in PROTOTYPES[query].partition("(")[2].rstrip(")").split(",")]
    inputs = iter(arguments)
    results = [ffi.new("int32_t*") for kind in kinds if kind is None]
    outs = iter(results)
    if "(const " in PROTOTYPES[query]:
        status = getattr(lib, query)(*arguments, results[-1])
        at = -1
    else:
        status = getattr(lib, query)(*(next(outs) if kind is None else next(inputs) for kind in kinds))
    if status:
        _status(query, status)
    return results[at][0]


def work(spec):
    """The bytes of a transform's work buffer."""
    if spec._work is None and spec.pointer is not None:
        query = spec.kind.replace("Spec", "GetBufSize").replace("Zors", "zors", 1)
        size = sized(query, spec.pointer) if query in PROTOTYPES else 0
        spec._work = size or (16 * spec.n + 64 if spec.n > 1 << 24 else 0)  # sizes beyond 32 bits read as 0
    return spec._work or 0


TYPE = {"32f": 13, "32fc": 14, "64f": 19, "64fc": 20}


# What generated wrappers call when something is wrong.


def _accept(function, argument, value, dtype):
    """The array where it is one of the type after all; else what to do."""
    if isinstance(value, Memory):
        value = value.array()
    if isinstance(value, np.ndarray):
        if value.dtype == dtype:
            return value
        if dtype.names and value.dtype == dtype[0] and value.shape[-1:] == (2,):
            return value
        wanted = f"complex_dtypes[...] {dtype} or {dtype[0]} with a last axis of 2" if dtype.names else dtype.name
        raise TypeError(f"{function}: {argument} must be an array of {wanted}, not of {value.dtype}; convert it with "
                        "astype")
    raise TypeError(f"{function}: {argument} must be a numpy.ndarray of {dtype.name} or None, not "
                    f"{type(value).__name__}")


def _too_small(function, argument, has, needs):
    raise ValueError(f"{function}: {argument} has {has} elements, the call needs {needs}")


def _wrong_handle(function, argument, value, kind):
    if not isinstance(value, Handle):
        raise TypeError(f"{function}: {argument} must be a zorsl9.raw.Handle or None, not {type(value).__name__}")
    if value.closed:
        raise ValueError(f"{function}: {argument} is closed or not filled yet; fill it with an Init function")
    raise ValueError(f"{function}: {argument} is of kind {value.kind}, the call needs {kind}")


def _empty_handle(function, argument, value):
    if not isinstance(value, Handle):
        raise TypeError(f"{function}: {argument} must be a zorsl9.raw.Handle to be filled, not {type(value).__name__}")
    raise ValueError(f"{function}: {argument} holds a {value.kind} already; close it first")


def _in_use(function):
    raise ValueError(f"{function}: another thread is using the state; a state serves one caller at a time")


def _pair(value):
    if isinstance(value, (tuple, list)) and len(value) == 2:
        return tuple(value)
    if isinstance(value, np.void) and value.dtype.names:
        return int(value["re"]), int(value["im"])
    value = complex(value)
    return value.real, value.imag


def _integer_pair(value):
    re_, im = _pair(value)
    if int(re_) != re_ or int(im) != im:
        raise TypeError("parts must be integers")
    return int(re_), int(im)


def _status(function, status):
    name = ffi.string(lib.zorsStatusName(status)).decode()
    text = ffi.string(lib.zorsStatusText(status)).decode()
    if status < 0:
        raise ZorsError(function, status, name, text)
    warnings.warn(ZorsWarning(f"{function}: {text} ({name}, {status})"), stacklevel=3)


def _explain(function, error, arguments, written):
    """An error of the conversion of arguments, in the caller's terms."""
    if str(error).startswith(function):
        return error
    for name, value in arguments.items():
        if isinstance(value, np.ndarray):
            if not value.flags.c_contiguous:
                return ValueError(f"{function}: {name} must be contiguous; pass numpy.ascontiguousarray({name})")
            if name in written and not value.flags.writeable:
                return ValueError(f"{function}: {name} is read-only and the call writes to it; pass a copy")
    kind = TypeError if isinstance(error, TypeError) else ValueError
    return kind(f"{function}: {error}")


def _arrays(function, argument, values, count, dtype, ctype, pointer_type, writable, needs):
    """An array of pointers to arrays."""
    if values is None:
        return ffi.NULL, None
    if len(values) < count:
        _too_small(function, argument, len(values), count)
    keep = [None if v is None else ffi.from_buffer(ctype, _accept(function, argument, v, dtype), writable) for v in values]
    for array in keep:
        if array is not None and len(array) < needs:
            _too_small(function, argument, len(array), needs)
    return ffi.new(pointer_type + "[]", [ffi.NULL if a is None else ffi.cast(pointer_type, a) for a in keep]), keep


def _handles(function, argument, values, count, kind):
    if values is None:
        return ffi.NULL
    if len(values) < count:
        _too_small(function, argument, len(values), count)
    for value in values:
        if value is not None and (type(value) is not Handle or value.kind != kind):
            _wrong_handle(function, argument, value, kind)
    return ffi.new(kind + "*[]", [ffi.NULL if v is None else v.pointer for v in values])


# The generator.


class _Writer:
    """The source of one wrapper."""

    def __init__(self, name):
        result, parameters = re.fullmatch(r"(.*?) ?\b\w+\((.*)\)", PROTOTYPES[name]).groups()
        self.name, self.result = name, result
        split = [] if parameters == "void" else [re.fullmatch(r"(.*?) ?(\w+)", p.strip()).groups()
                                                 for p in parameters.split(",")]
        self.parameters = [(ctype.strip(), p) for ctype, p in split]
        self.names = [p for _, p in self.parameters]
        self.scalars = [p for c, p in self.parameters if "*" not in c]
        self.scope = dict(_SCOPE, _F=getattr(lib, name), _N=name)
        self.values, self.handles, self.arrays, self.call, self.after = [], [], [], [], []
        self.written, self.holders = set(), []
        self.maker = bool(re.search(r"Init(?=[A-Z_0-9]|$|Alloc)", name)) and result == "ZorStatus"
        for number, (ctype, p) in enumerate(self.parameters):
            self.parameter(number, ctype, p)

    def expression(self, argument):
        size = self.init_size(argument) if self.maker else None
        return size or _room.room(self.name, argument, self.scalars)

    def init_size(self, argument):
        """The bytes that the library's size query for this Init tells, for the memory that the caller gives."""
        order = {"buffer": 0, "specBlock": 0, "spec": 0, "state": 0, "initBuffer": 1}
        if argument not in order or "Sparse" in self.name:
            return None
        if re.match(r"zorsFIR(SRInit|MR_Init)_", self.name):
            query = self.name[:9] + "GetSize"
            extra = {"tapsType": f"TYPE[{self.name.rpartition('_')[2]!r}]"}
        else:
            extra = {}
            query = next((q for q in (self.name.replace("Init", "GetStateSize", 1), self.name.replace("Init", "GetSize", 1))
                          if q in PROTOTYPES), None)
        if query is None:
            return None
        inputs = re.findall(r"(\w+)(?=,|\))", re.sub(r"\w+\* \w+", "", PROTOTYPES[query].partition("(")[2]))
        arguments = ", ".join(extra.get(i, i) for i in inputs)
        return f"sized({', '.join(filter(None, [repr(query), arguments]))}, at={order[argument]})"

    def parameter(self, number, ctype, p):
        base = ctype.replace("const", "").replace("*", "").strip()
        pointers = ctype.count("*")
        if pointers == 0:
            self.value(base, p)
        elif base == "void":
            self.handles.append(f"c{number} = _address(_N, {p})")
            self.call.append(f"c{number}")
        elif re.search("State|Spec", base) or self.is_plain_handle(base, p):
            self.handle(number, ctype, base, pointers, p)
        elif pointers == 2 and ctype.endswith("**"):  # a pointer into a state
            self.handles += [f"if type({p}) is not _Handle or {p}.pointer is not None: _empty_handle(_N, {p!r}, {p})",
                            f"c{number} = _new({ctype.replace('*', '') + '**'!r})"]
            self.call.append(f"c{number}")
            self.after.append(f"{p}._hold(c{number}[0], {base + '*'!r}, _N, state, {{}})")
        else:
            self.array(number, ctype, base, pointers, p)

    def is_plain_handle(self, base, p):
        """Specifications that C passes as bytes."""
        return base == "Zor8u" and (p == "spec" or p == "specBlock" and "specOut" not in self.names)

    def value(self, base, p):
        if base.endswith("c"):
            self.values.append(f"{p} = {'_pair' if 'f' in base else '_integer_pair'}({p})")
        elif base not in ("Zor32f", "Zor64f"):
            self.values.append(f"if type({p}) is not int: {p} = _index({p})")
        self.call.append(p)

    def kind(self, base):
        if base != "Zor8u":
            return base
        if self.name.startswith("zorsDFT"):
            return re.sub("zorsDFT[A-Za-z]*", "ZorsDFTSpec", self.name)
        tapes = self.name.rpartition("_")[2]
        return self.name[4:9] + "_" + {"16s": "32f", "16sc": "32fc"}.get(tapes, tapes)

    def handle(self, number, ctype, base, pointers, p):
        kind = self.kind(base)
        if pointers == 2 and "*const*" in ctype.replace(" ", ""):
            self.handles.append(f"c{number} = _handles(_N, {p!r}, {p}, numChannels, {kind!r})")
        elif pointers == 2:
            self.handles += [f"if {p} is None: c{number} = _NULL", "else:",
                            f"    if type({p}) is not _Handle or {p}.pointer is not None: _empty_handle(_N, {p!r}, {p})",
                            f"    c{number} = _new({kind + '**'!r})"]
            block = next((b for b in ("specBlock", "buffer") if b in self.names), None)
            self.fill(p, f"c{number}[0]", kind, block)
        elif self.maker:
            self.scope[f"_K{number}"] = ffi.typeof("Zor8u[]")
            size = self.init_size(p) or "1 << 62"
            self.handles += [
                f"if {p} is None: c{number} = _NULL", "else:",
                f"    if type({p}) is not _Handle or {p}.pointer is not None or {p}.block is None: "
                f"_unplaced(_N, {p!r}, {p})",
                f"    c{number} = _from_buffer(_K{number}, {p}.block, True)",
                f"    if _len(c{number}) < {size}: _too_small(_N, {p!r}, _len(c{number}), {size})",
                f"    c{number} = _cast({(base + '*')!r}, c{number})"]
            self.fill(p, f"c{number}", kind, p + ".block")
        else:
            self.handles += [f"if type({p}) is not _Handle or {p}.kind != {kind!r}:",
                            f"    if {p} is not None: _wrong_handle(_N, {p!r}, {p}, {kind!r})",
                            f"    {p} = _NOTHING", f"c{number} = {p}.pointer or _NULL"]
            self.holders.append((p, "const" in ctype))
            if re.search("Free", self.name):
                self.after.append(f"_freed({p})")
        self.call.append(f"c{number}")

    def fill(self, p, pointer, kind, block):
        facts = _room.facts(self.name)
        pairs = ", ".join(f"{k!r}: {v}" for k, v in facts.items())
        if re.match(r"zorsFIR(SRInit|MR_Init)_", self.name):
            pairs += ", 'work': " + self.init_size("spec").replace("at=0", "at=1")
        free = self.free_function()
        self.scope["_free"] = getattr(lib, free) if free else None
        self.after.append(f"_filled({p}, {pointer}, {kind!r}, _N, {block}, _free, {{{pairs}}})")

    def free_function(self):
        if "InitAlloc" not in self.name:
            return None
        base = self.name.replace("InitAlloc", "Free").replace("FIRMRStream", "FIR").replace("FIRStream", "FIR")
        base = base.replace("FIRMR", "FIR") if "LMS" not in base else base
        for name in (base, re.sub("_(BiQuad|DF1)", "", base), re.sub("_BiQuad|_DF1", "", base),
                     re.sub("(32f|32fc)$", "", re.sub("_BiQuad|_DF1", "", base)), re.sub(r"Q15_16s$", "", base)):
            if name in PROTOTYPES:
                return name
        raise KeyError(f"no function releases what {self.name} allocates")

    def array(self, number, ctype, base, pointers, p):
        writable = not ctype.startswith("const")
        needs = self.expression(p)
        if needs is None:
            raise KeyError(f"no rule tells the size of {p} of {self.name}")
        self.scope.update({f"_D{number}": _DTYPES[base], f"_T{number}": ffi.typeof(base + "[]")})
        if writable:
            self.written.add(p)
        self.call.append(f"c{number}")
        if pointers == 2:
            count = "numChannels" if "numChannels" in self.names else "nChannels"
            self.arrays.append(f"c{number}, keep{number} = _arrays(_N, {p!r}, {p}, {count}, _D{number}, _T{number}, "
                               f"{base + '*'!r}, {writable}, {needs})")
        else:
            self.arrays += [
                f"if {p} is None: c{number} = _NULL", "else:",
                f"    if type({p}) is not _ndarray or {p}.dtype is not _D{number}: "
                f"{p} = _accept(_N, {p!r}, {p}, _D{number})",
                f"    c{number} = _from_buffer(_T{number}, {p}{', True' if writable else ''})",
                f"    if _len(c{number}) < {needs}: _too_small(_N, {p!r}, _len(c{number}), {needs})"]

    def source(self):
        lines = self.values + self.handles
        for condition, text in _room.trusted(self.name):
            if all(name in self.names for name in re.findall(r"\b(dlyIndex|time|dst)\b", condition)):
                lines.append(f"if not ({condition}): raise ValueError(_N + ': ' + {text!r})")
        lines += self.arrays
        call = f"s = _F({', '.join(self.call)})"
        if self.holders:
            for p, const in self.holders:
                lines += [f"if {p}.busy{'' if const else f' or {p}.users'}: _in_use(_N)",
                          f"{p}.users += 1" if const else f"{p}.busy = {p} is not _NOTHING"]
            lines += ["try:", "    " + call, "finally:"]
            lines += [f"    {p}.users -= 1" if const else f"    {p}.busy = False" for p, const in self.holders]
        else:
            lines.append(call)
        if self.result == "ZorStatus":
            lines += ["if s: _status(_N, s)"] + self.after + ["return s"]
        else:
            lines.append(self.returned())
        body = "\n".join("        " + line for line in lines)
        arguments = "{" + ", ".join(f"{p!r}: {p}" for c, p in self.parameters if "*" in c) + "}"
        return (f"def {self.name}({', '.join(self.names)}):\n    try:\n{body}\n"
                "    except (BufferError, ValueError, OverflowError, TypeError) as error:\n"
                f"        raise _explain(_N, error, {arguments}, {self.written or '()'}) from None\n")

    def returned(self):
        if self.result == "const char*":
            return "return _string(s).decode()"
        if "Version" in self.result:
            return "return _record(s)"
        if self.name == "zorAlignPtr":
            return "return int(_cast('uintptr_t', s))"
        if "*" in self.result:
            base = self.result.replace("*", "").strip()
            self.scope["_free"] = lib.zorFree if self.name == "zorMalloc" else lib.zorsFree
            self.scope["_D"] = _DTYPES.get(base, np.dtype("u1"))
            return f"return _memory(_N, s, {self.names[0]}, _D, _free)"
        if self.result == "void":
            return f"return _released({self.names[0]})"
        return "return s"


def _unplaced(function, argument, value):
    if isinstance(value, Handle) and value.closed:
        raise ValueError(f"{function}: {argument} must be made over memory: zorsl9.raw.Handle(numpy.zeros(size, "
                         "numpy.uint8)) with the size that the GetSize function tells")
    _empty_handle(function, argument, value)


def _filled(handle, pointer, kind, maker, block, free, facts):
    if block is not None:
        block.flags.writeable = False
    handle._hold(ffi.gc(pointer, free) if free else pointer, kind, maker, block, facts)


def _freed(handle):
    if handle is not _NOTHING and handle.pointer is not None:
        try:
            ffi.gc(handle.pointer, None)
        except TypeError:  # memory of the caller's
            pass
        handle._clear()


def _address(function, value):
    if value is None:
        return ffi.NULL
    if isinstance(value, Memory):
        if value.buffer is None:
            raise ValueError(f"{function}: the memory is released already")
        if "Free" in function:
            buffer, value.buffer = value.buffer, None
            if sys.getrefcount(buffer) > 2:
                value.buffer = buffer
                raise ValueError(f"{function}: arrays still use this memory; delete them first")
            return ffi.gc(value.pointer, None) or value.pointer
        return value.pointer
    if isinstance(value, np.ndarray) and "Free" not in function:
        return ffi.from_buffer(value)
    raise TypeError(f"{function}: the argument must be a zorsl9.raw.Memory or None, not {type(value).__name__}")


def _released(memory):
    if memory is not None:
        memory.pointer = None


def _memory(function, pointer, count, dtype, free):
    if not pointer:
        return None
    if count * dtype.itemsize >= 1 << 32:
        free(pointer)
        raise ValueError(f"{function}: the byte count must be below 2^32")
    return Memory(pointer, count * dtype.itemsize, dtype, free)


def _record(version):
    field = lambda v: ffi.string(v).decode() if isinstance(v, ffi.CData) else v  # noqa: E731
    return types.SimpleNamespace(**{name: field(getattr(version, name)) for name in dir(version[0])})


_SCOPE = {"_ndarray": np.ndarray, "_from_buffer": ffi.from_buffer, "_NULL": ffi.NULL, "_new": ffi.new, "_cast": ffi.cast,
          "_Handle": Handle, "_len": len, "_string": ffi.string}
_SCOPE |= {f.__name__: f for f in (
    _index, _accept, _too_small, _wrong_handle, _empty_handle, _in_use, _pair, _integer_pair, _status, _explain, _arrays,
    _handles, _unplaced, _filled, _freed, _address, _released, _memory, _record, ceil, ccs, given, peek, last, bits, spaced, above,
    beyond, settled, stretched, reach, outputs, itemsize, sized, work)}
_SCOPE |= {"_index": _index, "_NOTHING": _NOTHING, "TYPE": TYPE}


def prototype(name):
    """The C prototype of a function."""
    return PROTOTYPES[name]


@functools.cache
def _documentation():
    from ._prototypes import FAMILIES, FAMILY
    return FAMILY, FAMILIES


def _make(name):
    writer = _Writer(name)
    source = writer.source()
    exec(compile(source, f"<zorsl9.raw.{name}>", "exec"), writer.scope)
    function = writer.scope[name]
    family, comments = _documentation()
    function.__doc__ = PROTOTYPES[name] + ("\n\n" + comments[family[name]] if name in family else "")
    function.__module__ = __name__
    return function


def __getattr__(name):
    if name in PROTOTYPES:
        value = _make(name)
    elif name.startswith(("zor", "ZOR_")) and hasattr(lib, name):
        value = getattr(lib, name)
    else:
        raise AttributeError(f"zorsl9.raw has no {name}: zors.h has no function or constant of that name")
    globals()[name] = value
    return value


def __dir__():
    return sorted({*globals(), *(name for name in dir(lib) if name.startswith(("zor", "ZOR_", "own")) and
                                 not name.startswith("zorsPy"))})
