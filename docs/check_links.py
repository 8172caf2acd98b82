#!/usr/bin/env python3
"""Every relative link and picture of the Markdown files given leads to a file, every export that they name exists."""
import os
import re
import sys

with open("src/frame/exports.def", encoding="utf-8") as file:
    exports = set(re.findall(r"(?m)^(?:EXPORT|SHARED)\((\w+)", file.read()))
with open("include/zors_status.h", encoding="utf-8") as file:
    exports |= set(re.findall(r"(zorsStatus\w+)\(", file.read()))
faults = 0
for path in sys.argv[1:]:
    with open(path, encoding="utf-8") as file:
        text = file.read()
    for link in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text):
        if "://" not in link and not os.path.exists(os.path.join(os.path.dirname(path), link)):
            print(f"{path}: no file {link}")
            faults += 1
    # A name that ends in * stands for the family.
    for name, star in re.findall(r"\b(zors[A-Z0-9]\w*)(\*?)", text):
        if not (name in exports or (star and any(e.startswith(name) for e in exports))):
            print(f"{path}: no export {name}{star}")
            faults += 1
sys.exit(1 if faults else 0)
