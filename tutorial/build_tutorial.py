#!/usr/bin/env python3
"""build_tutorial.py SOURCE RTF HTML: makes the document and the web page of the tutorial.

The source is described in source.py; pictures are named relative to it.
"""
import pathlib
import sys

import rtf
import source
import web_page


def main(source_file, rtf_file, html_file):
    path = pathlib.Path(source_file)
    try:
        blocks = source.parse(path.read_text(encoding="utf-8"))
        text = rtf.document(blocks, path.parent)
        page = web_page.document(blocks, path.parent)
    except (source.SourceError, OSError, ValueError) as error:
        sys.exit(f"{source_file}: {error}")
    pathlib.Path(rtf_file).write_text(text, encoding="ascii", newline="\r\n")
    pathlib.Path(html_file).write_text(page, encoding="utf-8")


main(*sys.argv[1:])
