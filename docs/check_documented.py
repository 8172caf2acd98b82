#!/usr/bin/env python3
"""Reads Doxygen's XML below the folder given: names each export without documentation (exit 1), and writes a man page for
every other one into man/man3: its prototype, its family's text and the family's other members."""
import glob
import os
import re
import sys
import textwrap
import xml.etree.ElementTree as xml

root = sys.argv[1]
with open("src/frame/exports.def", encoding="utf-8") as file:
    exports = set(re.findall(r"(?m)^(?:EXPORT|SHARED)\((\w+)", file.read()))
pages = os.path.join(root, "man", "man3")
os.makedirs(pages, exist_ok=True)


def text(node):
    return " ".join("".join(node.itertext()).split()) if node is not None else ""


def roff(line):
    line = line.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + line if line[:1] in (".", "'") else line


def page(name, prototype, family, paragraphs, members, notes, header):
    lines = [f'.TH {name} 3 "" "zorsl9 8.2"', ".SH NAME", roff(f"{name} - {family}"), ".SH SYNOPSIS", ".nf", f"#include <{header}>", ".PP",
             roff(prototype + ";"), ".fi", ".SH DESCRIPTION"]
    for paragraph in paragraphs:
        lines += [".PP"] + [roff(line) for line in textwrap.wrap(paragraph, 110)]
    others = ", ".join(other for other in members if other != name)
    if others:
        lines += [".SH FAMILY"] + [roff(line) for line in textwrap.wrap(others, 110)]
    lines += [".SH NOTES"] + [line for note in notes for line in [".PP"] + [roff(l) for l in textwrap.wrap(note, 110)]]
    with open(os.path.join(pages, name + ".3"), "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


documented = set()
for path in glob.glob(os.path.join(root, "xml", "*_8h.xml")):
    compound = xml.parse(path).getroot().find("compounddef")
    header = compound.find("location").get("file", "").removeprefix("include/")
    notes = [n for n in (text(p) for p in compound.find("detaileddescription").iter("para")) if n]
    for section in compound.iter("sectiondef"):
        functions = [f for f in section.findall("memberdef") if f.get("kind") == "function" and f.findtext("name") in exports]
        members = [f.findtext("name") for f in functions]
        family = " ".join((section.findtext("header") or header).split())
        for function in functions:
            name = function.findtext("name")
            parts = [text(p) for part in ("briefdescription", "detaileddescription") for p in function.find(part).iter("para")]
            parts = [p for p in parts if p] or [p for p in [text(section.find("description"))] if p]
            if not parts:
                continue
            documented.add(name)
            prototype = text(function.find("type")) + " " + name + function.findtext("argsstring")
            page(name, prototype, family, parts, members if section.findtext("header") else [name], notes, header)

missing = sorted(exports - documented)
for name in missing:
    print(f"not documented: {name}")
print(f"{len(exports) - len(missing)} of {len(exports)} exports documented, {len(os.listdir(pages))} man pages")
sys.exit(1 if missing else 0)
