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


def main():
    with tempfile.TemporaryDirectory() as folder:
        for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
            os.environ[name] = folder
        listener = Listener()
        program = Program(PROGRAM)
        try:
            where_the_caret_is(program, listener)
        finally:
            program.kill()
    print("assistive technology is told what is on the screen")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
