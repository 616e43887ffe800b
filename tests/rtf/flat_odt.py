"""Prints the text of each flat XML document of LibreOffice in the notation of
tests/codec/picture.h. Paragraphs and line breaks, the last one aside, are CR LF in plain black."""

import re
import sys
import xml.etree.ElementTree as ElementTree

# Hebrew, Arabic and their like with the blanks between them: these have styles of their own.
COLOURS = {0: "k", 0xFF00FF: "m", 0xFF: "r", 0xFF0000: "b", 0xA000: "g", 0x808000: "x"}
EMPHASIS = "font-weight", "font-style"
COMPLEX = "([\u0590-\u08ff][\u0590-\u08ff ]*)"
LETTERS = {  # attribute: letter of the style, value that switches it off
    "font-weight": ("B", "normal"),
    "font-style": ("I", "normal"),
    "text-underline-style": ("U", "none"),
    "text-line-through-style": ("S", "none"),
}


def attributes(element):
    return {re.sub("{.*}", "", name): value for name, value in element.attrib.items()}


class Document:
    def __init__(self, root):
        self.runs = []  # (format, text)
        self.styles = {}
        for style in root.iterfind(".//{*}style"):
            own = {"parent": attributes(style).get("parent-style-name")}
            for properties in style.iterfind("{*}text-properties"):
                own.update(attributes(properties))
            self.styles[attributes(style)["name"]] = own
        self.read_paragraphs(root.find("{*}body"))

    # The paragraphs of a box stand in front of the one that holds the box.
    def read_paragraphs(self, around):
        for child in around:
            self.read_paragraphs(child)
            if re.fullmatch("{.*text:.*}[ph]", child.tag):
                self.runs.append(({}, "\n"))
                self.read(child, {})

    def applied(self, around, name):
        style = self.styles.get(name)
        return {**self.applied(around, style["parent"]), **style} if style else around

    def read(self, element, around):
        own = self.applied(around, attributes(element).get("style-name"))
        text = {"s": " " * int(attributes(element).get("c", 1)), "tab": "\t"}
        tag = re.sub("{.*}", "", element.tag)
        self.runs.append(({}, "\n") if tag == "line-break" else (own, text.get(tag, "")))
        self.add(own, element.text or "")
        for child in element:
            if "drawing:" not in child.tag:
                self.read(child, own)
            self.add(own, child.tail or "")

    def add(self, own, text):
        for i, part in enumerate(re.split(COMPLEX, text)):
            complex = {name: own.get(name + "-complex", "normal") for name in EMPHASIS if i % 2}
            self.runs.append(({**own, **complex}, part))

    def picture(self):
        shown, last = "", "{k}"
        for format, text in self.runs[1:]:
            number = int.from_bytes(bytes.fromhex(format.get("color", "#000000")[1:]), "little")
            letters = "".join(letter for name, (letter, off) in LETTERS.items()
                              if format.get(name, off) != off)
            change = "{" + COLOURS.get(number, f"x{number}") + letters + "}"
            shown += change + text if text and change != last else text
            last = change if text else last
        return shown


for path in sys.argv[1:]:
    print(Document(ElementTree.parse(path).getroot()).picture())
