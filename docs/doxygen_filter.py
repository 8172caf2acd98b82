#!/usr/bin/env python3
"""Doxygen's view of a file: comments of the headers are plain text, so what Doxygen would take for markup is escaped."""
import re
import sys

path = sys.argv[1]
text = open(path, encoding="utf-8").read()


def block(match):
    comment = match.group(0)
    # A note of several lines that stands alone holds for the whole section.
    if comment.startswith("/*  ") and "\n" in comment:
        comment = "/** @file\n *\n *" + comment[2:]
    if not comment.startswith("/**"):
        return comment
    head, body = comment[:3], comment[3:-2]
    body = re.sub(r"[<>\\#%&]", lambda c: {"<": "&lt;", ">": "&gt;", "\\": "\\\\", "#": "\\#", "%": "\\%", "&": "&amp;"}[c.group(0)], body)
    # The table of conventions keeps its columns.
    body = re.sub(r"(?m)^( \* Conventions.*\n)((?: \*   .*\n)+)", r"\1 * @verbatim\n\2 * @endverbatim\n", body)
    return head + body + "*/"


if path.endswith((".h", ".hpp")):
    text = re.sub(r"(?m)^/\*.*?\*/", block, text, flags=re.S)
sys.stdout.write(text)
