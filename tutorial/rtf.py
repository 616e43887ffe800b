"""Writes blocks of the tutorial's source as a Rich Text Format document.

Measures are twips (1440 to the inch). Every list item carries its bullet or number as text too, for
readers that know no lists.
"""
import pathlib
import struct

from source import Heading, Lines, List, Paragraph, Picture, Table

PAGE = (11906, 16838, 1134)  # A4: width, height, margin
TEXT_WIDTH = PAGE[0] - 2 * PAGE[2]
# The tutorial window is narrower than a page; wider pictures would be cut there.
PICTURE_WIDTH = 6900
TABLE_WIDTH = 7000
INDENT = 400

FONTS = r"{\fonttbl{\f0\fswiss\fcharset0 Arial;}{\f1\fmodern\fcharset0 Courier New;}}"
COLOURS = {
    "black": 0,  # the automatic colour
    "magenta": 1,
    "red": 2,
    "blue": 3,
    "green": 4,
    "heading": 5,
    "rule": 6,
    "head": 7,
    "ticket": 8,
}
COLOUR_TABLE = (
    r"{\colortbl;\red255\green0\blue255;\red255\green0\blue0;\red0\green0\blue255;"
    r"\red0\green160\blue0;\red31\green78\blue110;\red150\green160\blue166;"
    r"\red226\green233\blue238;\red246\green246\blue240;}"
)
# Name, paragraph format, character format; index 0 is running text, 1 to 3 the headings.
STYLES = [
    ("Normal", r"\sb0\sa120\sl264\slmult1", r"\f0\fs20"),
    ("heading 1", r"\sb360\sa160\keepn\outlinelevel0", r"\f0\fs36\b\cf5"),
    ("heading 2", r"\sb320\sa120\keepn\outlinelevel1", r"\f0\fs28\b\cf5"),
    ("heading 3", r"\sb240\sa80\keepn\outlinelevel2", r"\f0\fs23\b\cf5"),
    ("caption", r"\sb40\sa240\qc", r"\f0\fs18\i"),
    ("list", r"\sb0\sa60\sl264\slmult1", r"\f0\fs20"),
    ("table", r"\sb40\sa40", r"\f0\fs20"),
    ("picture", r"\sb120\sa0\keepn\qc", r"\f0\fs20"),
    ("ticket", r"\sb60\sa160\keep\li400\ri400\cbpat8", r"\f1\fs20"),
]
CAPTION, LIST, TABLE, PICTURE, TICKET = 4, 5, 6, 7, 8


def escape(text):
    pieces = []
    for character in text:
        code = character.encode("cp1252", "ignore")
        if character in "\\{}":
            pieces.append("\\" + character)
        elif " " <= character <= "~":
            pieces.append(character)
        elif code:
            pieces.append(f"\\'{code[0]:02x}")
        else:
            units = struct.unpack("<%dh" % (len(character.encode("utf-16-le")) // 2),
                                  character.encode("utf-16-le"))
            pieces.extend(f"\\u{unit}?" for unit in units)
    return "".join(pieces)


def runs(spans, bold=False):
    pieces = []
    for span in spans:
        words = "".join((
            r"\b" if span.bold or bold else "",
            r"\i" if span.italic else "",
            r"\f1" if span.fixed else "",
            rf"\cf{COLOURS[span.colour]}" if span.colour != "black" else "",
        ))
        text = escape(span.text)
        pieces.append(f"{{{words} {text}}}" if words else text)
    return "".join(pieces)


def start(style, extra=""):
    return rf"\pard\plain\s{style}{STYLES[style][1]}{extra}{STYLES[style][2]} "


def paragraph(style, content, extra=""):
    return start(style, extra) + content + "\\par\n"


def list_block(block, number):
    indent = rf"\ls{number}\ilvl0\fi-{INDENT}\li{INDENT}\tx{INDENT}"
    lines = []
    for count, item in enumerate(block.items, 1):
        label = f"{count}." if block.numbered else r"\'95"
        space = r"\sa120" if count == len(block.items) else ""
        lines.append(paragraph(LIST, rf"{{\listtext {label}\tab}}" + runs(item), indent + space))
    return "".join(lines)


def list_tables(lists):
    """The definitions of the document's lists; each numbered list begins at 1."""
    table, overrides = [], []
    for number, block in enumerate(lists, 1):
        kind, text = (0, r"\'02\'00.;") if block.numbered else (23, r"\'01\'95;")
        places = r"\'01;" if block.numbered else ";"
        level = (rf"{{\listlevel\levelnfc{kind}\levelnfcn{kind}\leveljc0\leveljcn0\levelfollow0"
                 rf"\levelstartat1\levelspace0\levelindent0{{\leveltext{text}}}"
                 rf"{{\levelnumbers{places}}}\f0\fi-{INDENT}\li{INDENT}\jclisttab\tx{INDENT}}}")
        table.append(rf"{{\list\listtemplateid{number}\listsimple1{level}"
                     rf"{{\listname ;}}\listid{1000 + number}}}")
        overrides.append(rf"{{\listoverride\listid{1000 + number}\listoverridecount0\ls{number}}}")
    return ("{\\*\\listtable\n" + "\n".join(table) + "}\n{\\*\\listoverridetable"
            + "".join(overrides) + "}\n")


def column_edges(rows):
    """Right edges of the columns: no word is broken, and the rest goes to the longer texts."""
    def text(cell):
        return "".join(span.text for span in cell)
    columns = [[text(row[c]) for row in rows] for c in range(len(rows[0]))]
    needs = [max(len(word) for cell in column for word in cell.split(" ")) * 125 + 200
             for column in columns]
    wishes = [min(max(map(len, column)), 60) for column in columns]
    edges, edge = [], 0
    for need, wish in zip(needs, wishes):
        edge += need + max(0, TABLE_WIDTH - sum(needs)) * wish // sum(wishes)
        edges.append(edge)
    return edges


def table_block(block):
    border = "".join(rf"\clbrdr{side}\brdrs\brdrw10\brdrcf{COLOURS['rule']}" for side in "tlbr")
    edges = column_edges(block.rows)
    lines = []
    for index, row in enumerate(block.rows):
        head = index == 0
        shade = rf"\clcbpat{COLOURS['head']}" if head else ""
        lines.append(r"\trowd\trgaph90\trleft0\trkeep" + (r"\trhdr" if head else "")
                     + "".join(rf"{border}{shade}\cellx{edge}" for edge in edges) + "\n")
        lines.extend(start(TABLE, r"\intbl") + runs(cell, bold=head) + "\\cell\n" for cell in row)
        lines.append("\\row\n")
    return "".join(lines) + paragraph(TABLE, "")


def lines_block(block):
    return paragraph(TICKET, "\\line\n".join(runs(line) for line in block.lines))


def png_size(data, name):
    """Width and height in pixels, and the pixels to the inch."""
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError(f"{name} is no PNG picture")
    width, height = struct.unpack(">II", data[16:24])
    density, place = 96.0, 8
    while place < len(data):
        length, kind = struct.unpack(">I4s", data[place:place + 8])
        if kind == b"pHYs":
            across, _, unit = struct.unpack(">IIB", data[place + 8:place + 17])
            density = across * 0.0254 if unit == 1 else density
        place += length + 12
    return width, height, density


def picture_block(block, folder):
    data = pathlib.Path(folder, block.file).read_bytes()
    width, height, density = png_size(data, block.file)
    shown = min(round(width * 1440 / density), PICTURE_WIDTH)
    digits = data.hex()
    lines = "\n".join(digits[i:i + 128] for i in range(0, len(digits), 128))
    pict = (rf"{{\pict\pngblip\picw{width}\pich{height}\picwgoal{shown}"
            rf"\pichgoal{round(shown * height / width)}" + f"\n{lines}}}")
    return paragraph(PICTURE, pict) + paragraph(CAPTION, runs(block.caption))


def document(blocks, folder):
    """The whole document; pictures are read from `folder`."""
    lists = [block for block in blocks if isinstance(block, List)]
    title = next("".join(span.text for span in b.spans) for b in blocks if isinstance(b, Heading))
    parts = [
        r"{\rtf1\ansi\ansicpg1252\deff0\deflang2057\uc1", FONTS, COLOUR_TABLE,
        r"{\stylesheet" + "".join(rf"{{\s{i}{para}{char} {name};}}"
                                  for i, (name, para, char) in enumerate(STYLES)) + "}",
        list_tables(lists) + rf"{{\info{{\title {escape(title)}}}}}",
        rf"\paperw{PAGE[0]}\paperh{PAGE[1]}\margl{PAGE[2]}\margr{PAGE[2]}\margt{PAGE[2]}"
        rf"\margb{PAGE[2]}\viewkind4",
    ]
    number = 0
    for block in blocks:
        if isinstance(block, Heading):
            parts.append(paragraph(block.level, runs(block.spans)))
        elif isinstance(block, Paragraph):
            parts.append(paragraph(0, runs(block.spans)))
        elif isinstance(block, List):
            number += 1
            parts.append(list_block(block, number))
        elif isinstance(block, Table):
            parts.append(table_block(block))
        elif isinstance(block, Lines):
            parts.append(lines_block(block))
        elif isinstance(block, Picture):
            parts.append(picture_block(block, folder))
    return "\n".join(parts) + "}\n"
