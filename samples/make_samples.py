#!/usr/bin/env python3
"""Makes Plant.VRB and the ticket files out of Plant.txt.

usage: make_samples.py PATH-OF-VARNO-TICKETS [FOLDER]

The files are written into FOLDER (the folder of this script unless given).
"""

import pathlib
import re
import subprocess
import sys
import tempfile

COLOURS = [(0, 0, 0), (255, 0, 255), (255, 0, 0), (0, 0, 255)]
COLOUR_OF = {"A": 2, "C": 3, "P": 4}
CODE = re.compile(r"\{([ACP])(\d+)\}")


def rtf_text(text):
    """Black ticket text, its spaces as markers."""
    units = (f"\\u{ord(c)}?" if ord(c) > 126 else "\\" + c if c in "\\{}" else c
             for c in text.replace(" ", "\u00f7"))
    return "{\\cf1 " + "".join(units) + "}" if text else ""


def rtf_line(line):
    pieces = CODE.split(line)  # text, letter, digits, text, ...
    rtf = rtf_text(pieces[0])
    for letter, digits, text in zip(pieces[1::3], pieces[2::3], pieces[3::3]):
        rtf += f"{{\\cf{COLOUR_OF[letter]} {letter}{digits}}}" + rtf_text(text)
    only_codes = line.startswith("{") and not re.sub(r"\{C\d+\}|\{A\d+\}", "", line)
    return rtf + ("" if only_codes else rtf_text("\u00ac")) + "\\par\n"


def rtf_document(lines):
    colours = "".join(f"\\red{r}\\green{g}\\blue{b};" for r, g, b in COLOURS)
    return f"{{\\rtf1\\ansi{{\\colortbl;{colours}}}\n{''.join(map(rtf_line, lines))}}}\n"


def tickets(source):
    """Number, options and lines of every ticket."""
    for section in re.split(r"^== ", source, flags=re.MULTILINE)[1:]:
        head, *lines = section.strip().split("\n")
        number, *options = head.split()
        yield number, options, lines


def main(tool, folder=None):
    here = pathlib.Path(__file__).parent
    folder = pathlib.Path(folder or here)
    block = folder / "Plant.VRB"
    block.unlink(missing_ok=True)

    def run(command, *operands):
        subprocess.run([tool, command, "--force", block, *operands], check=True)

    with tempfile.TemporaryDirectory() as scratch:
        for number, options, lines in tickets((here / "Plant.txt").read_text("utf-8")):
            ticket = pathlib.Path(scratch) / "ticket.VRT"
            ticket.write_text(rtf_document(lines), "ascii")
            run("put", number, ticket)
            for option in options:
                if option.endswith(".VRT"):
                    run("extract", number, folder / option, "--catalogues", here)
                else:
                    run("bind", number, option)


if __name__ == "__main__":
    main(*sys.argv[1:])
