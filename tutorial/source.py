"""Reads the source of the tutorial, a small subset of Markdown.

Blocks, parted by empty lines:
    # Heading            one to three "#"
    - item               a bulleted list; lines that go on are indented
    1. item              a numbered list; it counts by itself
    | a | b |            a table; its second line is |---|---|
    > line               ticket lines as the editor or the paper shows them
    ![caption](file)     a picture, alone in its block
    anything else        a paragraph

In the text: **bold**, *italic*, `typed or shown text`, {red:ticket text in a colour of the editor}
with the colours black, magenta, red, blue and green. "\\" takes the meaning from what follows it.
"""
import dataclasses
import re

COLOURS = ("black", "magenta", "red", "blue", "green")


@dataclasses.dataclass(frozen=True)
class Span:
    text: str
    bold: bool = False
    italic: bool = False
    fixed: bool = False  # in the font of the ticket editor
    colour: str = "black"
    ticket: bool = False  # as the editor or the paper shows it


@dataclasses.dataclass
class Heading:
    level: int
    spans: list


@dataclasses.dataclass
class Paragraph:
    spans: list


@dataclasses.dataclass
class List:
    numbered: bool
    items: list  # of lists of spans


@dataclasses.dataclass
class Table:
    rows: list  # of lists of cells, a cell is a list of spans; the first row is the head


@dataclasses.dataclass
class Lines:
    lines: list  # of lists of spans


@dataclasses.dataclass
class Picture:
    caption: list
    file: str


class SourceError(Exception):
    """Says in which line of the source something cannot be read."""


INLINE = re.compile(
    r"\\(?P<plain>.)"
    r"|(?P<bold>\*\*)"
    r"|(?P<italic>\*)"
    r"|`(?P<fixed>[^`]*)`"
    r"|\{(?P<colour>\w+):(?P<coloured>[^}]*)\}"
    r"|(?P<text>[^\\*`{]+|\{)"
)


def parse_inline(text, line):
    spans, bold, italic = [], False, False
    for match in INLINE.finditer(text):
        kind = match.lastgroup
        if kind == "bold":
            bold = not bold
        elif kind == "italic":
            italic = not italic
        elif kind == "fixed":
            spans.append(Span(match["fixed"], bold, italic, fixed=True))
        elif kind == "coloured":
            if match["colour"] not in COLOURS:
                raise SourceError(f"line {line}: there is no colour {match['colour']}")
            spans.append(Span(match["coloured"], bold, italic, True, match["colour"], True))
        else:
            spans.append(Span(match["plain"] or match["text"], bold, italic))
    if bold or italic:
        raise SourceError(f"line {line}: bold or italic is not ended")
    return spans


def parse_list(lines, number, numbered):
    items = []
    for line in lines:
        start = re.match(r"(- |\d+\. )", line)
        if start:
            items.append(line[start.end():])
        elif line.startswith("  "):
            items[-1] += " " + line.strip()
        else:
            raise SourceError(f"line {number}: a line of a list goes on without being indented")
    return List(numbered, [parse_inline(item, number) for item in items])


def parse_table(lines, number):
    if len(lines) < 2 or not re.fullmatch(r"\|(-+\|)+", lines[1]):
        raise SourceError(f"line {number}: a table without |---| in its second line")
    rows = []
    for offset, line in enumerate(lines):
        if offset != 1:
            cells = line.strip("|").split("|")
            rows.append([parse_inline(cell.strip(), number + offset) for cell in cells])
    if len({len(row) for row in rows}) != 1:
        raise SourceError(f"line {number}: the rows of a table differ in length")
    return Table(rows)


def parse_block(lines, number):
    first = lines[0]
    heading = re.fullmatch(r"(#{1,3}) (.+)", first)
    picture = re.fullmatch(r"!\[(.*)\]\((.+)\)", first)
    if heading and len(lines) == 1:
        return Heading(len(heading[1]), parse_inline(heading[2], number))
    if picture and len(lines) == 1:
        return Picture(parse_inline(picture[1], number), picture[2])
    if first.startswith("- ") or re.match(r"\d+\. ", first):
        return parse_list(lines, number, not first.startswith("- "))
    if first.startswith("> "):
        return Lines([parse_inline(line.removeprefix(">").strip(), number) for line in lines])
    if first.startswith("|"):
        return parse_table(lines, number)
    return Paragraph(parse_inline(" ".join(lines), number))


def parse(text):
    """The blocks of a source, in order. Raises SourceError."""
    blocks, lines, number = [], [], 0
    for number, line in enumerate(text.splitlines() + [""], 1):
        if line.strip():
            lines.append(line.rstrip())
        elif lines:
            blocks.append(parse_block(lines, number - len(lines)))
            lines = []
    return blocks
