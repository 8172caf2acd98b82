#!/usr/bin/env python3
"""Doxygen's view of a file: comments of the headers are plain text, so what Doxygen would take for markup is escaped."""
import re
import sys

path = sys.argv[1]
with open(path, encoding="utf-8") as file:
    text = file.read()
entities = {"<": "&lt;", ">": "&gt;", "&": "&amp;"}
table = re.compile(r"((?:^ \* {3,4}\S.*\n(?:^ \* {5,}\S.*\n)*)+)", re.M)  # lines farther in keep their columns


def plain(words):
    words = re.sub(r"[<>\\#%&]", lambda c: entities.get(c.group(0), "\\" + c.group(0)), words)
    words = re.sub(r"(?<=\w)_(?!\w)|(?<!\w)_|(?<!\n )(?<!\n)(?<!^ )(?<!^)\*", lambda c: "\\" + c.group(0), words)  # emphasis
    words = re.sub(r"\n \* +\\\* ", r" \\* ", words)  # a factor at the begin of a line is no bullet
    return re.sub(r"(?m)^( \* +\d+)\. ", r"\1\\. ", words)  # lists


def block(match):
    comment = match.group(0)
    # A note of several lines that stands alone holds for the whole section.
    if comment.startswith("/*  ") and "\n" in comment:
        comment = "/** @file\n *\n *" + comment[2:]
    if not comment.startswith("/**"):
        return comment
    parts = table.split(comment[3:-2])
    parts[0::2] = map(plain, parts[0::2])
    parts[1::2] = ("@verbatim\n" + re.sub(r"(?m)^ \*", "", part) + "@endverbatim\n" for part in parts[1::2])
    return comment[:3] + "".join(parts) + "*/"


if path.endswith((".h", ".hpp")):
    text = re.sub(r"(?m)^/\*.*?\*/", block, text, flags=re.S)
sys.stdout.write(text)
