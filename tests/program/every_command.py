#!/usr/bin/python3
"""Every command once, through the accessibility bus alone: no key is pressed, no mouse moved.

every_command.py FOLDER: FOLDER holds the program, its catalogues and the simulated indicator.
"""

import os
import sys
import tempfile

from indicator_at_work import Indicator
from operator_at_work import Failure, Program, expect, wait_for

FOLDER = os.path.abspath(sys.argv[1])
PROGRAM = os.path.join(FOLDER, "VarnoTicketFormatter")

EDITOR = "Ticket editor"
NUMBER = "Ticket number"


def block_and_editor(program):
    program.write(EDITOR, "Net")
    program.write(NUMBER, "212")
    program.press("Put ticket into block")
    program.await_rows(["212"])
    program.write(NUMBER, "300")
    program.press("Put ticket into block")
    program.await_rows(["212", "300"])

    for letter, key in zip("PSIO", ("Print", "Start", "In", "Out")):
        program.select("Tickets", 0)
        program.press(key)
        program.await_rows([f"212  {letter}", "300"])
    program.select("Tickets", 1)
    program.press("Move ticket to editor")
    program.answer("Save the current ticket?", "No")
    program.await_text(EDITOR, "Net")
    program.select("Tickets", 1)
    program.press("Delete ticket")
    program.await_rows(["212  O"])


def files(program, folder):
    program.menu("Save Ticket As ...")
    ticket, block = os.path.join(folder, "Shop1.VRT"), os.path.join(folder, "Plant.VRB")
    program.choose_file("Save As", ticket, "Save")
    wait_for(lambda: os.path.exists(ticket), "the ticket file")
    program.find("Shop1", "label")
    program.write(EDITOR, "Gross")
    program.menu("Save Ticket")
    program.menu("Open Ticket")
    program.choose_file("Open", ticket, "Open")
    program.await_text(EDITOR, "Gross")
    program.menu("Save Ticket Block As ...", opens="File")
    program.choose_file("Save As", block, "Save")
    program.find("Plant", "label")
    program.menu("Open Ticket Block")
    program.choose_file("Open", block, "Open")
    program.await_rows(["212 O"])


def codes(program):
    for menu, title, code, button in (
        ("Control Codes", "Varno Control Codes", "005", "Insert Control Code in Ticket"),
        ("Print Codes", "Varno Print Codes", "012", "Insert Print Code in Ticket"),
    ):
        program.menu(menu)
        program.find(title)
        program.write("Code", code)
        program.press(button)
        wait_for(lambda: f"{menu[0]}{code} " in program.text(EDITOR), f"code {code}")
    program.menu("ASCII Codes")
    program.write("Number", "27")
    program.press("Insert ASCII Code in Ticket")
    wait_for(lambda: "A27 " in program.text(EDITOR), "the ASCII code")


def line(program, indicator):
    program.menu("Serial Port Configuration")
    entry = program.find("COM Port Parameters")
    field = wait_for(lambda: next(c for c in entry if c.getRoleName() == "text"), "the entry")
    expect(field.queryText().getText(0, -1) == "1:9600,n,8,1", "the entry offers the defaults")
    field.queryEditableText().setTextContents(f"{indicator.port}:115200,n,8,1")
    program.press("OK")

    for start in (lambda: program.press("Download to indicator"),
                  lambda: program.menu("Download Ticket Block to Varno")):
        indicator.tell("78")
        start()
        program.answer("Start TICKET BUFFER CAPTURING", "OK")
        indicator.hear(r"captured, 1 ticket")
        wait_for(lambda: program.status() == "", "the end of the download")
    for start in (lambda: program.press("Upload from indicator"),
                  lambda: program.menu("Upload Ticket Block from Varno")):
        start()
        program.answer("Items in ticket block will be lost.", "OK")
        wait_for(lambda: program.status().startswith("Start TICKET BUFFER"), "the prompt")
        indicator.tell("77")
        wait_for(lambda: program.status() == "", "the end of the upload")
        program.await_rows(["212 O"])
    program.menu("Upload Ticket Block from Varno")
    program.answer("Items in ticket block will be lost.", "OK")
    wait_for(lambda: program.status().startswith("Start TICKET BUFFER"), "the prompt")
    program.menu("Abort Communications with Varno")
    wait_for(lambda: program.status() == "", "the end of the aborted upload")


def windows(program, indicator):
    program.menu("Terminal Window")
    program.find("Terminal Window")
    indicator.tell("77")
    wait_for(lambda: ":08D4" in program.text("Line"), "what the indicator sends")
    program.press("Clear")
    program.press("Exit")
    program.menu("Tutorial")
    wait_for(lambda: "ticket" in program.text("Tutorial document"), "the tutorial")
    program.press("Exit")
    program.menu("About")
    program.answer("Varno TICKET FORMATTER version 1.0.2", "OK")


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.environ["XDG_CONFIG_HOME"] = folder
        os.environ["XDG_DATA_HOME"] = folder
        os.environ["XDG_STATE_HOME"] = folder
        with Indicator(FOLDER) as indicator:
            program = Program(PROGRAM)
            try:
                block_and_editor(program)
                files(program, folder)
                codes(program)
                line(program, indicator)
                windows(program, indicator)
                program.write(EDITOR, "")
                program.menu("Exit")
                program.await_end()
            finally:
                program.kill()
    print("every command works through the accessibility bus")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
