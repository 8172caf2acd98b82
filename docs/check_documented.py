#!/usr/bin/env python3
"""Reads Doxygen's XML below the folder given: names each export without documentation (exit 1), and writes a man page for
every other one into man/man3: its prototype, its family's text and the family's other members. Names each family whose
text Doxygen has altered, too."""
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
    return " ".join("".join(node.itertext()).split())


# The paragraphs below a node; a table is one that starts with a line break.
def paragraphs_of(node):
    found = []
    for paragraph in node.iter("para") if node is not None else ():
        table = paragraph.find("verbatim")
        if table is None:
            found.append(text(paragraph))
            continue
        before, after = "".join(paragraph.itertext()).split(table.text)
        found += [" ".join(before.split()), "\n" + table.text.strip("\n"), " ".join(after.split())]
    return [part for part in found if part]


def roff(line):
    line = line.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + line if line[:1] in (".", "'") else line


def formatted(paragraph):
    if paragraph.startswith("\n"):
        return [".PP", ".nf"] + [roff(line) for line in paragraph[1:].split("\n")] + [".fi"]
    return [".PP"] + [roff(line) for line in textwrap.wrap(paragraph, 110)]


def page(name, prototype, family, paragraphs, members, notes, header):
    lines = [f'.TH {name} 3 "" "zorsl9 8.2"', ".SH NAME", roff(f"{name} - {family}"), ".SH SYNOPSIS", ".nf", f"#include <{header}>", ".PP",
             roff(prototype + ";"), ".fi", ".SH DESCRIPTION"]
    for paragraph in paragraphs:
        lines += formatted(paragraph)
    others = ", ".join(other for other in members if other != name)
    if others:
        lines += [".SH FAMILY"] + [roff(line) for line in textwrap.wrap(others, 110)]
    lines += [".SH NOTES"] + [line for note in notes for line in formatted(note)]
    with open(os.path.join(pages, name + ".3"), "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


documented = set()
for path in glob.glob(os.path.join(root, "xml", "*_8h.xml")):
    compound = xml.parse(path).getroot().find("compounddef")
    header = compound.find("location").get("file", "").removeprefix("include/")
    notes = paragraphs_of(compound.find("detaileddescription"))
    for section in compound.iter("sectiondef"):
        functions = [f for f in section.findall("memberdef") if f.get("kind") == "function" and f.findtext("name") in exports]
        members = [f.findtext("name") for f in functions]
        family = " ".join((section.findtext("header") or header).split())
        for function in functions:
            name = function.findtext("name")
            parts = paragraphs_of(function.find("briefdescription")) + paragraphs_of(function.find("detaileddescription"))
            parts = parts or paragraphs_of(section.find("description"))
            if not parts:
                continue
            documented.add(name)
            prototype = text(function.find("type")) + " " + name + function.findtext("argsstring")
            page(name, prototype, family, parts, members if section.findtext("header") else [name], notes, header)

missing = sorted(exports - documented)
for name in missing:
    print(f"not documented: {name}")
print(f"{len(exports) - len(missing)} of {len(exports)} exports documented, {len(os.listdir(pages))} man pages")


def squeezed(words):
    return re.sub(r"[\s`]+", "", words)


altered = 0
for path in sorted(glob.glob("include/zors/*.h")):
    with open(path, encoding="utf-8") as file:
        families = re.findall(r"/\*\* @name ([^\n]*)\n(.*?)@\{", file.read(), re.S)
    tree = xml.parse(os.path.join(root, "xml", os.path.basename(path).replace(".h", "_8h.xml"))).getroot()
    seen = squeezed("".join(tree.itertext()))
    for family, words in families:
        if squeezed(re.sub(r"(?m)^ \*", "", words)) not in seen:
            print(f"{path}: the text of {family} is altered")
            altered += 1
sys.exit(1 if missing or altered else 0)
