#!/usr/bin/env python3
"""build_tutorial.py SOURCE RTF: makes the tutorial document from its source.

The source is described in source.py; pictures are named relative to it.
"""
import pathlib
import sys

import rtf
import source


def main(source_file, rtf_file):
    path = pathlib.Path(source_file)
    try:
        blocks = source.parse(path.read_text(encoding="utf-8"))
        text = rtf.document(blocks, path.parent)
    except (source.SourceError, OSError, ValueError) as error:
        sys.exit(f"{source_file}: {error}")
    pathlib.Path(rtf_file).write_text(text, encoding="ascii", newline="\r\n")


main(*sys.argv[1:])
