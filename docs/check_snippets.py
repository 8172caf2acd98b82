#!/usr/bin/env python3
"""Compiles every fenced C and C++ snippet of the Markdown files given, without warnings, against a build folder; whole
programs are linked and run, and what they print must be the `text` block behind them, where there is one.
Snippets without a main are taken as the body of a function, after those of the same file that declare what they use."""
import os
import re
import subprocess
import sys
import tempfile

build, *paths = sys.argv[1:]
libraries = os.path.abspath(os.path.join(build, "src"))
fence = re.compile(r"^```(c|cpp)\n(.*?)^```\n(?:\n*```text\n(.*?)^```)?", re.M | re.S)
# What the README's fragment takes as given.
given = "  std::vector<float> block(512), signal(480), levels(241);\n"
faults = count = 0
with tempfile.TemporaryDirectory() as work:
    for path in paths:
        with open(path, encoding="utf-8") as file:
            found = fence.findall(file.read())
        for number, (language, code, expected) in enumerate(found, 1):
            count += 1
            where = f"{path}, snippet {number}"
            if "main(" not in code:
                lines = code.splitlines()
                includes = [line for line in lines if line.startswith("#include")]
                body = ["  " + line for line in lines if not line.startswith("#include")]
                if language == "cpp":
                    includes = ["#include <complex>", "#include <vector>"] + includes + ["#include <zors.hpp>"]
                    body.insert(0, given)
                code = "\n".join(["#include <zors.h>"] + includes + ["int main(void) {"] + body + ["  return 0;", "}", ""])
            source, program = os.path.join(work, "snippet." + language), os.path.join(work, "snippet")
            with open(source, "w", encoding="utf-8") as file:
                file.write(code)
            command = {"c": ["cc", "-std=c99"], "cpp": ["c++", "-std=c++20"]}[language]
            result = subprocess.run(command + ["-O1", "-Wall", "-Wextra", "-Werror", "-Wno-unused-variable", "-Wno-unused-but-set-variable", "-Iinclude", source, "-o", program,
                                     "-L" + libraries, "-Wl,-rpath," + libraries, "-lzorsl9", "-lzorcore-8.2", "-lm"], capture_output=True, text=True)
            if result.returncode:
                print(f"{where} does not compile:\n{result.stderr}")
                faults += 1
                continue
            result = subprocess.run([program], capture_output=True, text=True)
            if result.returncode or (expected and result.stdout != expected):
                print(f"{where} ends with {result.returncode}, prints:\n{result.stdout}")
                faults += 1
print(f"{count} snippets, {faults} faults")
sys.exit(1 if faults else 0)
