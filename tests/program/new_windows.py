#!/usr/bin/python3
"""The history, the preview and the indicator through the accessibility bus alone: no key, no mouse.

new_windows.py FOLDER: FOLDER holds the programs and their samples.
"""

import os
import shutil
import subprocess
import sys
import tempfile

from assistive_technology import Listener
from history_at_work import same
from operator_at_work import Failure, Program, can_act, expect, pyatspi, wait_for
from practice import Desk, Joined, make_home

FOLDER = os.path.abspath(sys.argv[1])
PROGRAM = os.path.join(FOLDER, "VarnoTicketFormatter")
EDITOR = "Ticket editor"
PAPER = "Printed ticket"


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def printed(block, ticket, *options):
    return output_of(os.path.join(FOLDER, "varno-tickets"), "print", block, str(ticket), *options)


def choose_copy(program, words, row):
    """Returns what differs."""
    program.context_menu("Tickets", "History", "list")
    program.write("Words to find", words)
    table = wait_for(lambda: program.find("Copies").queryTable(), "the copies")
    wait_for(lambda: table.nRows == row + 1 and table.addRowSelection(row), f"{row + 1} copies")
    wait_for(lambda: table.isRowSelected(row), f"row {row} selected")
    return wait_for(lambda: [line.name for line in program.find("What differs") if line.name],
                    "what differs")


def history(program, folder, block):
    rows = program.rows()
    for ticket in ("200 I", "210 O"):
        program.select("Tickets", program.rows().index(ticket))
        program.press("Delete ticket")
        wait_for(lambda: ticket not in program.rows(), f"{ticket!r} deleted")
    differences = choose_copy(program, "deleted", 1)
    for ticket in (200, 210):
        expect(f"ticket {ticket} is only in the copy" in differences, f"read {differences}")
    program.choose("Ticket of the copy whose paper is shown", "ticket 210")
    program.await_text(PAPER, printed(block, 210))
    kept = os.path.join(folder, "Kept.VRB")
    program.press("Save copy as ...")
    program.choose_file("Save As", kept, "Save")
    wait_for(lambda: same(block, kept), "the copy in a file")
    program.context_menu("Copies", "Back to the work")
    program.press("Close")
    wait_for(lambda: "History" not in program.windows(), "the history closed")

    choose_copy(program, "deleted", 1)
    program.press("Open")
    program.await_message("Save the current ticket block?")
    expect(not can_act(program.find("Delete ticket")), "a ticket is deleted behind a question")
    expect(not program.find(EDITOR).queryEditableText().setTextContents("lost"),
           "text is written behind a question")
    program.answer("Save the current ticket block?", "No")
    program.await_rows(rows)
    program.press("Close")


def preview(program, folder, block):
    program.write(EDITOR, "Gross and net")
    program.context_menu(EDITOR, "Ticket Preview")
    program.await_text(PAPER, "Gross and net\n")
    program.find(PAPER).queryText().setCaretOffset(6)
    wait_for(lambda: program.find(EDITOR).queryText().caretOffset == 6, "the caret at its place")

    def size():
        return program.find(PAPER).queryText().getCharacterExtents(0, pyatspi.DESKTOP_COORDS)[2:]

    before = size()
    program.context_menu(PAPER, "Zoom in")
    wait_for(lambda: size() > before, "larger letters")
    program.context_menu(PAPER, "Copy as text")
    program.context_menu(PAPER, "Back to the ticket")
    program.context_menu(EDITOR, "Select All")
    program.context_menu(EDITOR, "Paste")
    program.await_text(EDITOR, "Gross÷and÷net¬\n")

    program.select("Tickets", program.rows().index("212 P"))
    program.await_text(PAPER, printed(block, 212))
    program.choose("Paper width", "24 columns")
    program.await_text(PAPER, printed(block, 212, "--width=24"))
    program.choose("Paper width", "40 columns")
    program.await_text(PAPER, printed(block, 212))
    pdf = os.path.join(folder, "Ticket.pdf")
    program.press("Save as PDF ...")
    program.choose_file("Save As", pdf, "Save")
    wait_for(lambda: os.path.exists(pdf), "the PDF")
    pages = output_of("pdftotext", "-layout", pdf, "-")
    expect(pages.count("\f") == 1, "the PDF has more than a page")
    rows = printed(block, 212).partition("✂")[0]  # the cut is drawn
    both = rows + "Blue: sample values Framed: unknown effects"
    expect("".join(pages.split()) == "".join(both.split()), f"the PDF holds {pages}")
    program.press("Print ...")
    program.find("Print", "dialog")
    program.press("Cancel")
    program.press("Close")
    wait_for(lambda: "Ticket Preview" not in program.windows(), "the preview closed")


def commands_of_the_editor(program, opened, listener):
    program.find(EDITOR).queryText().setCaretOffset(0)
    program.context_menu(EDITOR, "Where the Caret Is")
    listener.hear("the caret", lambda text: text.endswith('The character "G".'))
    program.context_menu(EDITOR, "Frame the Codes")
    program.context_menu(EDITOR, "Tutorial in the Browser")
    wait_for(lambda: "Tutorial.html" in open(opened, encoding="utf-8").read(), "the browser")
    menu = program.open_context_menu(EDITOR)
    expect([item.name for item in menu if item.getState().contains(pyatspi.STATE_CHECKED)] ==
           ["Frame the Codes"], "no tick at the frames")


def leave(program):
    program.menu("Exit")
    program.await_message("Save the current ticket block?")
    program.press("No")


def indicator(home):
    desk = Desk(home)
    try:
        program, panel = Joined(desk.program), Joined(desk.indicator)

        def await_label(description, text):
            wait_for(lambda: text in panel.find_if(
                lambda node: node.description == description, description).name, text)

        paper = ""
        panel.press("Start")
        await_label("Display", "no ticket is bound to Start")
        for key, ticket in (("Print", 212), ("In", 200), ("Out", 210)):
            panel.press(key)
            paper += printed(os.path.join(FOLDER, "Plant.VRB"), ticket)
            panel.await_text("Printed tickets", paper)
        panel.context_menu("Printed tickets", "Copy as text")
        panel.menu("Tear off")
        panel.await_text("Printed tickets", "")

        panel.menu("1200 baud")
        await_label("Line", "at 1200 baud, not open")
        panel.menu("As fast as it goes")
        program.select("Tickets", 0)
        program.press("Delete ticket")
        program.press("Download to indicator")
        program.await_message("Start TICKET BUFFER CAPTURING")
        panel.press("Parameter 78: capture tickets")
        await_label("Display", "capturing")
        program.press("OK")
        await_label("Display", "captured, 5 tickets")
        program.press("Upload from indicator")
        program.answer("Items in ticket block will be lost.", "OK")
        wait_for(lambda: program.status().startswith("Start TICKET BUFFER"), "the prompt")
        panel.menu("Stand still in the middle of the next transfer")
        panel.press("Parameter 77: transmit tickets")
        await_label("Line", "the line stands still")
        panel.menu("Go on without fault")
        program.await_rows(["210 O", "212 P", "220", "300", "900"])
        leave(program)
        desk.await_nothing_left("the exit by the bus")
    finally:
        desk.kill()


def main():
    with tempfile.TemporaryDirectory() as folder:
        for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
            os.environ[name] = folder
        block, opened = os.path.join(folder, "Plant.VRB"), os.path.join(folder, "opened")
        shutil.copy(os.path.join(FOLDER, "Plant.VRB"), block)
        with open(os.path.join(folder, "xdg-open"), "w", encoding="ascii") as browser:
            browser.write(f'#!/bin/sh\necho "$1" >"{opened}"\n')
        os.chmod(browser.name, 0o755)
        listener = Listener()
        program = Program(PROGRAM, block, environment={"PATH": folder + ":" + os.environ["PATH"]})
        try:
            history(program, folder, block)
            preview(program, folder, block)
            commands_of_the_editor(program, opened, listener)
            program.write(EDITOR, "")
            leave(program)
            program.await_end()
        finally:
            program.kill()
        indicator(make_home(folder, "operator", None))
    print("the new windows work through the accessibility bus")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
