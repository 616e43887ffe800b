#!/usr/bin/python3
"""What a screen reader is told: what is spoken, the roles and the states of what is on the screen.

assistive_technology.py FOLDER: FOLDER holds the program, its catalogues and the simulated indicator.
"""

import os
import sys
import tempfile

from gi.repository import GLib
from indicator_at_work import Indicator
from operator_at_work import Failure, Program, expect, pyatspi, wait_for
from practice import INDICATOR, Desk, make_home

FOLDER = os.path.abspath(sys.argv[1])
PROGRAM = os.path.join(FOLDER, "VarnoTicketFormatter")

MAIN_WINDOW = "VarnoTicketFormatter 1.0.2"
EDITOR = "Ticket editor"


class Listener:
    """Hears what the programs announce."""

    def __init__(self):
        self.heard = []
        pyatspi.Registry.registerEventListener(
            lambda event: self.heard.append(event.any_data), "object:announcement")

    def hear(self, what, fits):
        def found():
            while GLib.MainContext.default().iteration(False):
                pass
            return [text for text in self.heard if fits(text)]

        return wait_for(found, f"{what} among {self.heard}")


def where_the_caret_is(program, listener):
    program.await_focus(EDITOR)
    program.type("Net")
    program.keys("Return", "alt+c")
    program.await_window("Varno Control Codes")
    program.type("005")
    program.keys("Return")
    program.await_window(MAIN_WINDOW)
    program.keys("ctrl+Home", "F2")
    listener.hear("a letter", lambda text: text == "Printed line 1, column 1 of the paper. "
                                                   'The character "N".')
    program.keys("Down", "F2")
    listener.hear("a code", lambda text: text.startswith(
        "Printed line 2, column 1 of the paper. Control code 005, LINE FEED, "))
    before = program.text(EDITOR)
    program.keys("F8", "F2")
    expect(program.text(EDITOR) == before, "F2 or F8 changed the text")


def labelled(program, name):
    """The names of the labels that are tied to a control."""
    relations = program.find(name).getRelationSet()
    return [relation.getTarget(i).name for relation in relations for i in range(relation.getNTargets())
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]


def focused_rows(program):
    return [row.name for row in program.find("Tickets", "list")
            if row.getState().contains(pyatspi.STATE_FOCUSED)]


def tutorial_headings(program):
    document = program.find("Tutorial document")
    expect(document.getRoleName() == "document frame", f"a {document.getRoleName()}")
    headings = [(child.getRoleName(), child.getAttributes(), child.name) for child in document]
    for heading in (("heading", ["level:2"], "5. All keys of the editor"),
                    ("heading", ["level:3"], "Without the colours")):
        expect(heading in headings, f"{heading} is not among {headings}")
    text = document.queryText()
    expect("All keys of the editor\n" in text.getText(0, text.characterCount), "another text")


def roles_and_states(program):
    expect(labelled(program, "Ticket number") == ["#"], "the number has no label")
    program.keys("Tab")
    program.type("212")
    program.keys("Tab", "space")
    program.await_rows(["212"])
    program.keys("Tab", "Tab", "Tab")
    program.await_focus("Tickets")
    program.keys("Down", "p")
    program.await_rows(["212  P"])
    wait_for(lambda: program.has_state("Print", pyatspi.STATE_CHECKED), "the key pressed")
    roles = [program.find(key).getRoleName() for key in ("Print", "Start", "In", "Out")]
    expect(roles == ["toggle button"] * 4, f"the keys are {roles}")
    expect(not program.has_state("Start", pyatspi.STATE_CHECKED), "another key is pressed")
    expect(focused_rows(program) == ["212  P"], "the row has not the focus")
    program.keys("shift+Tab")
    wait_for(lambda: not program.is_focused("Tickets"), "the focus elsewhere")
    expect(focused_rows(program) == [], "a row has the focus of another control")
    for keys, title in ((("alt+c",), "Varno Control Codes"), (("alt+h", "t"), "Tutorial")):
        program.keys(*keys)
        program.await_window(title)
        roles = [w.getRoleName() for w in program.shown_windows() if w.name == title]
        expect(roles == ["dialog"], f"{title!r} is no dialog")
        if title == "Tutorial":
            tutorial_headings(program)
        program.keys("Escape")
        program.await_window(MAIN_WINDOW)


def transfer(program, listener, indicator):
    listener.heard.clear()
    program.keys("alt+v", "u")
    program.await_message("Items in ticket block will be lost.")
    program.keys("Return")
    listener.hear("the prompt", lambda text: text.startswith("Start TICKET BUFFER"))
    indicator.tell("77")
    listener.hear("the end", lambda text: text == "The transfer has ended.")
    percents = [text for text in listener.heard if text.endswith("%")]
    expect(percents and len(percents) <= 11, f"heard {percents}")
    expect(len({text[:-2] for text in percents}) == len(percents), f"heard {percents}")


def what_the_indicator_does(listener, home):
    desk = Desk(home)
    try:
        for _ in range(2):
            desk.press(desk.indicator, INDICATOR, "alt+p")
        listener.hear("each ticket", lambda text: text == "Print: ticket 212"
                      and listener.heard.count(text) == 2)
    finally:
        desk.kill()


def main():
    with tempfile.TemporaryDirectory() as folder:
        for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
            os.environ[name] = folder
        listener = Listener()
        with Indicator(FOLDER) as indicator:
            with open(os.path.join(folder, "VarnoTicketFormatter.ini"), "w",
                      encoding="ascii") as settings:
                settings.write(f'[Communications]\nCOM={indicator.port}\nSettings="9600,n,8,1"\n')
            program = Program(PROGRAM)
            try:
                where_the_caret_is(program, listener)
                roles_and_states(program)
                transfer(program, listener, indicator)
            finally:
                program.kill()
        what_the_indicator_does(listener, make_home(folder, "operator", None))
    print("assistive technology is told what is on the screen")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
