"""Prints the text of each flat XML document of LibreOffice as one line, in the notation of
marked_text_picture.h. Paragraphs and line breaks, the last one aside, are CR LF in plain black."""

import re
import sys
import xml.etree.ElementTree as ElementTree

LETTERS = {  # attribute: letter of the style, value that switches it off
    "font-weight": ("b", "normal"),
    "font-style": ("i", "normal"),
    "text-underline-style": ("u", "none"),
    "text-line-through-style": ("s", "none"),
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
        for paragraph in root.find("{*}body").iter():
            if re.fullmatch("{.*text:.*}[ph]", paragraph.tag):
                self.runs.append(({}, "|"))
                self.read(paragraph, {})

    def applied(self, around, name):
        style = self.styles.get(name)
        return {**self.applied(around, style["parent"]), **style} if style else around

    def read(self, element, around):
        own = self.applied(around, attributes(element).get("style-name"))
        text = {"s": " " * int(attributes(element).get("c", 1)), "tab": "<9>"}
        tag = re.sub("{.*}", "", element.tag)
        self.runs.append(({}, "|") if tag == "line-break" else (own, text.get(tag, "")))
        self.runs.append((own, element.text or ""))
        for child in element:
            self.read(child, own)
            self.runs.append((own, child.tail or ""))

    def picture(self):
        shown, last = "", "[]"
        for format, text in self.runs[1:]:
            colour = format.get("color", "#000000")[1:].replace("000000", "")
            letters = "".join(letter for name, (letter, off) in LETTERS.items()
                              if format.get(name, off) != off)
            change = f"[{' '.join(filter(None, (colour, letters)))}]"
            shown += change + text if text and change != last else text
            last = change if text else last
        return shown


for path in sys.argv[1:]:
    print(Document(ElementTree.parse(path).getroot()).picture())
