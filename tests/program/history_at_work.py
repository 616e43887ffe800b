#!/usr/bin/python3
"""What was lost is found again by F6: after each of four mishaps, with the keyboard alone.

history_at_work.py FOLDER: FOLDER holds the program, its samples and the simulated indicator.
"""

import glob
import os
import re
import shutil
import sys
import tempfile

from indicator_at_work import Indicator
from operator_at_work import Failure, Program, expect, wait_for

FOLDER = os.path.abspath(sys.argv[1])
PROGRAM = os.path.join(FOLDER, "VarnoTicketFormatter")
MAIN_WINDOW = "VarnoTicketFormatter 1.0.2"


def tab_to(program, name):
    for _ in range(12):
        if program.is_focused(name):
            return
        program.keys("Tab")
    program.await_focus(name)


def find_copy(program, words):
    """Opens the history and chooses the newest copy of these words."""
    program.keys("F6")
    program.await_window("History")
    program.keys("shift+Tab", "ctrl+a")
    program.type(words)
    wait_for(lambda: re.match("1 (of|copy)", program.summary()), f"one copy of {words!r}")


class Operator(Program):
    def summary(self):
        return self.find_if(lambda node: node.description.startswith("What is kept"),
                            "the summary").name

    def answer(self, message, key):
        self.await_message(message)
        self.keys(key)

    def name_file(self, path):
        self.await_window("Save As")
        self.keys("ctrl+a")
        self.type(path)
        self.keys("Return")


def undo_a_deletion(program, rows):
    tab_to(program, "Tickets")
    program.keys("Home", "Delete")
    program.await_rows(rows[1:])
    find_copy(program, "deleted")
    program.keys("alt+o")
    program.answer("Save the current ticket block?", "alt+n")
    program.await_window(MAIN_WINDOW)
    program.await_rows(rows)
    program.await_focus("Tickets")


def undo_an_aborted_upload(program, indicator, rows):
    indicator.tell("speed 9600")
    program.keys("alt+v", "u")
    program.answer("Items in ticket block will be lost.", "Return")
    wait_for(lambda: program.status().startswith("Start"), "the prompt")
    indicator.tell("stall 3000")
    indicator.tell("77")
    wait_for(lambda: re.search(r" 3\d%", program.status()), "a third of the block")
    program.keys("Escape")
    indicator.tell("stall")
    program.await_rows([])
    find_copy(program, "before an upload")
    program.keys("alt+o")
    program.await_window(MAIN_WINDOW)
    program.await_rows(rows)


def undo_a_wrong_save(program, folder):
    path = os.path.join(folder, "Shop1.VRT")
    shutil.copy(os.path.join(FOLDER, "Shop1.VRT"), path)
    tab_to(program, "Ticket editor")
    program.type("wrong")
    program.keys("alt+f", "a")
    program.name_file(path)
    program.answer('"Shop1.VRT" exists.', "Return")
    program.await_window(MAIN_WINDOW)
    find_copy(program, "replaced shop1")
    program.keys("alt+s")
    program.name_file(os.path.join(folder, "Right.VRT"))
    wait_for(lambda: same(os.path.join(FOLDER, "Shop1.VRT"), os.path.join(folder, "Right.VRT")),
             "the ticket as it was")
    program.await_window("History")
    program.keys("Escape")
    program.await_window(MAIN_WINDOW)
    program.await_focus("Ticket editor")


def same(one, other):
    with open(one, "rb") as first, open(other, "rb") as second:
        return first.read() == second.read()


def lose_work(program, folder):
    program.type("mine ")
    wait_for(lambda: holds(folder, "*_unsaved_Shop1.VRT", b"mine"), "a copy of the unsaved work")
    program.kill()


def holds(folder, pattern, content):
    for path in glob.glob(os.path.join(folder, "VarnoTicketFormatter", "history", pattern)):
        with open(path, "rb") as file:
            if content in file.read():
                return True
    return False


def get_it_back(folder, block):
    program = Operator(PROGRAM, block)
    try:
        find_copy(program, "never saved ticket")
        # What assistive technology reads of its row.
        program.find("Never saved: program not closed")
        tab_to(program, "Copies")
        program.keys("Return")  # opens nothing by mistake
        expect(program.text("Ticket editor") == "", "Enter opened a copy")
        program.keys("alt+o")
        program.await_window(MAIN_WINDOW)
        wait_for(lambda: "mine" in program.text("Ticket editor"), "the lost work")
        program.keys("alt+f", *["Up"] * 5, "Return")  # Save Ticket asks for a name
        program.await_window("Save As")
        program.keys("Escape")
        program.await_window(MAIN_WINDOW)
        program.quit()
        program.answer("Save the current ticket?", "alt+n")
        program.await_end()
    finally:
        program.kill()
    expect(not holds(folder, "*_unsaved_Shop1.VRT", b""), "work that was let go counts as lost")


def main():
    with tempfile.TemporaryDirectory() as folder:
        for place in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
            os.environ[place] = folder
        block = os.path.join(folder, "Plant.VRB")
        shutil.copy(os.path.join(FOLDER, "Plant.VRB"), block)
        with Indicator(FOLDER, block) as indicator:
            with open(os.path.join(folder, "VarnoTicketFormatter.ini"), "w",
                      encoding="ascii") as settings:
                settings.write(f'[Communications]\nCOM={indicator.port}\nSettings="9600,n,8,1"\n')
            program = Operator(PROGRAM, block)
            try:
                rows = program.rows()
                undo_a_deletion(program, rows)
                undo_an_aborted_upload(program, indicator, rows)
                undo_a_wrong_save(program, folder)
                lose_work(program, folder)
            finally:
                program.kill()
        get_it_back(folder, block)
    print("after every mishap the history had it")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
