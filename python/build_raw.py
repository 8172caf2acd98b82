"""The binding, derived from the installed headers when the package is built.

Run by setup.py. From zors.h, zors_status.h and zorcore.h come

  _zorsl9       the extension, by cffi: constants, types and a compiled wrapper of each function, which releases the
                interpreter's lock during the call
  _prototypes   each function's prototype as text, and the comment of its family: what zorsl9.raw makes its checks from
  raw.pyi       the same for type checkers

so that a function added to the headers is in the package by the next build, and nowhere a second time.
"""
import os
import re
import subprocess
from pathlib import Path

from cffi import FFI

HEADERS = ("zors.h", "zors_status.h", "zorcore.h")
ROWS = Path(__file__).with_name("rows.h")


def include_dir():
    """Where the headers are: ZORSL9_INCLUDE, the source tree this folder stands in, or what pkg-config tells."""
    tree = Path(__file__).resolve().parent.parent / "include"
    if "ZORSL9_INCLUDE" in os.environ:
        return Path(os.environ["ZORSL9_INCLUDE"])
    if tree.is_dir():
        return tree
    return Path(subprocess.run(["pkg-config", "--variable=includedir", "zorsl9"], check=True, capture_output=True,
                               text=True).stdout.strip())


def library_dir():
    """Where the libraries are: ZORSL9_LIBDIR, or what pkg-config tells."""
    if "ZORSL9_LIBDIR" in os.environ:
        return Path(os.environ["ZORSL9_LIBDIR"])
    return Path(subprocess.run(["pkg-config", "--variable=libdir", "zorsl9"], check=True, capture_output=True,
                               text=True).stdout.strip())


def preprocess(include, *flags):
    text = "".join(f'#include "{name}"\n' for name in HEADERS)
    return subprocess.run([os.environ.get("CC", "cc"), "-E", *flags, "-I", str(include), "-x", "c", "-"], input=text,
                          check=True, capture_output=True, text=True).stdout


def declarations(include):
    """The headers' own declarations without the system's, bodies of inline functions cut off."""
    own, lines = False, []
    for line in preprocess(include).splitlines():
        marker = re.match(r'# \d+ "(.*?)"', line)
        if marker:
            own = marker.group(1).startswith(str(include))
        elif own:
            lines.append(line)
    text = re.sub(r"static inline ([^{;]*?)\s*\{.*?\n\}", r"\1;", "\n".join(lines), flags=re.S)
    return re.sub(r"\n\s*\n+", "\n", text)


def constants(include):
    """The headers' numeric macros."""
    return re.findall(r"^#define (ZOR_\w+) \w+$", preprocess(include, "-dM"), flags=re.M)


def prototypes(text):
    """{name: prototype}; a statement with parentheses that is none stops the build."""
    found = {}
    flat = re.sub(r"\s+", " ", re.sub(r"\{.*?\}", "{}", text, flags=re.S))
    for statement in flat.split(";"):
        statement = statement.strip()
        if "(" in statement:
            match = re.fullmatch(r"((?:const )?\w+ ?\*?) ?(\w+)\(([^()]*)\)", statement)
            if not match:
                raise SystemExit(f"build_raw: not a prototype: {statement}")
            found[match.group(2)] = statement
    return found


def families(include):
    """The comment of each family and the functions that it is about: [(comment, {names})]."""
    result = []
    for header in sorted((include / "zors").glob("*.h")):
        for comment, body in re.findall(r"/\*\* (@name .*?)\*/(.*?)/\*\* @\} \*/", header.read_text(), flags=re.S):
            text = "\n".join(re.sub(r"^\s*\* ?", "", line).rstrip() for line in comment.splitlines())
            text = text.replace("@name ", "").replace("@{", "").strip()
            result.append((text, re.findall(r"\b(zors\w+)\(", body)))
    return result


def stub(protos, names):
    """raw.pyi: what is an array, a handle or a number."""
    def kind(parameter):
        base = re.sub(r"\b(const|Zor8u|\w+)\b.*", r"\1", parameter)
        if "* const*" in parameter:
            return "Sequence[Any]"
        if re.search(r"Zor\w*(State|Spec)\w*", parameter):
            return "Handle | None"
        if "*" in parameter:
            return "Array"
        return {"Zor32f": "float", "Zor64f": "float", "Zor32fc": "complex", "Zor64fc": "complex",
                "Zor8sc": "complex", "Zor16sc": "complex", "Zor32sc": "complex"}.get(base, "int")

    lines = ["# Made by build_raw.py from the headers.", "from collections.abc import Sequence",
             "from typing import Any", "import numpy as np", "from numpy.typing import NDArray",
             "from ._errors import ZorsError as ZorsError, ZorsWarning as ZorsWarning",
             "Array = NDArray[Any] | Handle | None", "complex_dtypes: dict[str, np.dtype[Any]]",
             "class Handle:", "    def __init__(self, block: NDArray[Any] | None = ...) -> None: ...",
             "    @property", "    def closed(self) -> bool: ...", "    def close(self) -> None: ...",
             "class Memory:", "    def array(self) -> NDArray[Any]: ...", "def prototype(name: str) -> str: ...",
             "def __dir__() -> list[str]: ..."]
    lines += [f"{name}: int" for name in names]
    for name, text in protos.items():
        result, parameters = re.fullmatch(r"(.*?)\w+\((.*)\)", text).groups()
        parameters = [] if parameters == "void" else [p.strip() for p in parameters.split(",")]
        args = ", ".join(f"{re.sub(r'.*[ *]', '', p)}: {kind(p)}" for p in parameters)
        result = result.strip()
        returns = {"ZorStatus": "int", "void": "None", "const char*": "str"}.get(
            result, "Memory | None" if "*" in result and "Version" not in result else "Any" if "*" in result else "int")
        lines.append(f"def {name}({args}) -> {returns}: ...")
    return "\n".join(lines) + "\n"


def write(package):
    """Writes _prototypes.py and raw.pyi into the folder package."""
    include = include_dir()
    text = declarations(include)
    protos = prototypes(text)
    about = families(include)
    of = {name: number for number, (_, names) in enumerate(about) for name in names}
    enums = [name for body in re.findall(r"enum\s*\{(.*?)\}", text, flags=re.S) for name in re.findall(r"(\w+) =", body)]
    package = Path(package)
    out = ['"""Made by build_raw.py from the headers: do not edit."""', "PROTOTYPES = {"]
    out += [f"    {name!r}: {proto!r}," for name, proto in protos.items()]
    out += ["}", "FAMILY = {"] + [f"    {name!r}: {of[name]}," for name in protos if name in of] + ["}", "FAMILIES = ("]
    out += [f"    {comment!r}," for comment, _ in about] + [")"]
    (package / "_prototypes.py").write_text("\n".join(out) + "\n")
    (package / "raw.pyi").write_text(stub(protos, enums + constants(include)))


def builder():
    """The cffi extension."""
    include = include_dir()
    ffi = FFI()
    helpers = ROWS.read_text()
    exported = re.findall(r"^/\* python \*/ static (.*?) \{", helpers, flags=re.M | re.S)
    ffi.cdef(declarations(include) + "".join(f"\n#define {name} ..." for name in constants(include)) +
             "".join(f"\n{prototype};" for prototype in exported))
    ffi.set_source("zorsl9._zorsl9", "".join(f'#include "{name}"\n' for name in HEADERS) + helpers,
                   include_dirs=[str(include)], library_dirs=[str(library_dir())],
                   libraries=["zorsl9", ":" + os.path.basename(str(next(library_dir().glob("libzorcore*.so"))))],
                   extra_compile_args=["-O1", "-g0", "-Wno-unused-function"], extra_link_args=["-Wl,-rpath,$ORIGIN/lib"],
                   py_limited_api=False)
    return ffi
