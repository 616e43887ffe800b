#!/usr/bin/python3
"""The whole program, driven by keyboard from an empty start to a saved block and back.

whole_program.py FOLDER: FOLDER holds the program, its catalogues and the simulated indicator.
"""

import os
import subprocess
import sys
import tempfile

from indicator_at_work import Indicator
from operator_at_work import Failure, Program, expect, pyatspi, wait_for, xdotool

FOLDER = os.path.abspath(sys.argv[1])
PROGRAM = os.path.join(FOLDER, "VarnoTicketFormatter")


def memory_of(path):
    subprocess.run([os.path.join(FOLDER, "varno-tickets"), "check", path], check=True)
    with open(path, "rb") as file:
        return file.read().decode("ascii")[1:8001]


def choose_file_item(program, ups):
    """Chooses from the File menu, counted from its end."""
    program.keys("alt+f")
    program.keys(*["Up"] * ups)
    program.keys("Return")


def save_block(program, path):
    choose_file_item(program, 2)
    program.await_window("Save As")
    program.keys("ctrl+a")
    program.type(path)
    program.keys("Return")
    wait_for(lambda: os.path.exists(path), f"the file {path}")
    program.await_window("VarnoTicketFormatter 1.0.2")


def answer(program, message, key):
    program.await_message(message)
    program.keys(key)


def write_first_ticket(folder):
    """Type, number, put, save, quit."""
    path = os.path.join(folder, "Plant.VRB")
    program = Program(PROGRAM)
    try:
        program.await_focus("Ticket editor")
        program.type("Net 5")
        program.keys("Return")
        program.await_text("Ticket editor", "Net÷5¬\n")

        # Keys of this desktop that the toolkit knows, too.
        program.keys("Up", "End", "ctrl+d")
        program.await_text("Ticket editor", "Net÷5")
        program.keys("Return", "Up", "ctrl+k")
        program.await_text("Ticket editor", "¬\n")
        program.keys("ctrl+z", "ctrl+End")
        program.await_text("Ticket editor", "Net÷5¬\n")

        program.keys("alt+c")
        program.await_window("Varno Control Codes")
        program.type("005")
        program.keys("Return")
        program.await_window("VarnoTicketFormatter 1.0.2")
        program.keys("alt+p")
        program.await_window("Varno Print Codes")
        program.type("012")
        program.keys("Return")
        program.await_window("VarnoTicketFormatter 1.0.2")
        wait_for(lambda: "\nC005 " in program.text("Ticket editor"), "the control code")
        wait_for(lambda: "\nP012 " in program.text("Ticket editor"), "the print code")

        program.keys("Tab")
        program.await_focus("Ticket number")
        program.type("2x12")
        program.await_text("Ticket number", "212")
        program.keys("Tab", "space")
        program.await_rows(["212"])
        program.await_focus("Ticket editor")

        tab_to(program, "Tickets")
        program.keys("Down", "p")
        program.await_rows(["212  P"])
        save_block(program, path)
        program.quit()
        answer(program, "Save the current ticket?", "alt+n")
        program.await_end()
    finally:
        program.kill()
    expect(memory_of(path).startswith(
        "08D4" "004E00650074" "0020" "0035" "000D000A" "2005" "400C" "1000" "8000" "00D4"),
        "the memory holds another ticket")
    return path


def tab_to(program, name):
    for _ in range(12):
        if program.is_focused(name):
            return
        program.keys("Tab")
    program.await_focus(name)


def find_it_again(path):
    """The next start shows the row; a double click brings the ticket back into the editor."""
    program = Program(PROGRAM, path)
    try:
        program.await_rows(["212 P"])
        x, y = program.centre_of(program.find("212 P", "list item"))
        xdotool("mousemove", x, y, "click", "--repeat", 2, "--delay", 60, 1)
        wait_for(lambda: program.text("Ticket editor").startswith("Net÷5¬\nC005 "), "the ticket")
        program.await_focus("Ticket editor")
        program.quit()
        program.await_end()
    finally:
        program.kill()


def set_port(port):
    with open(os.path.join(os.environ["XDG_CONFIG_HOME"], "VarnoTicketFormatter.ini"),
              "w", encoding="ascii") as settings:
        settings.write(f'[Communications]\nCOM={port}\nSettings="115200,n,8,1"\n')


def transfer(folder, path):
    """Down to the simulated indicator, and up again from it."""
    with Indicator(FOLDER) as indicator:
        set_port(indicator.port)
        program = Program(PROGRAM, path)
        try:
            indicator.tell("78")
            program.keys("alt+v")
            program.keys("d")
            answer(program, "Start TICKET BUFFER CAPTURING", "Return")
            indicator.hear(r"captured, 1 ticket")
            program.keys("alt+v")
            program.keys("u")
            answer(program, "Items in ticket block will be lost.", "Return")
            wait_for(lambda: program.status().startswith("Start TICKET BUFFER"), "the prompt")
            indicator.tell("77")
            wait_for(lambda: program.status() == "", "the end of the upload")
            program.await_rows(["212 P"])
            copy = os.path.join(folder, "Copy.VRB")
            save_block(program, copy)
            program.quit()
            program.await_end()
            expect(memory_of(copy) == memory_of(path), "the block came back changed")
        finally:
            program.kill()


def open_everything(path):
    """Every menu command that opens something, by its access keys, and back by keyboard."""
    main_window = "VarnoTicketFormatter 1.0.2"
    set_port(200)
    program = Program(PROGRAM, path)
    try:
        program.type("A")
        for keys, title, back in (
            (("alt+f", "o", "Return"), "Open", ("Escape",)),
            (("alt+f", "Down", "Down", "Return"), "Save As", ("Escape",)),
            (("alt+f", "a"), "Save As", ("Escape",)),
            (("alt+f", "Up", "Up", "Up", "Return"), "Open", ("Escape",)),
            (("alt+f", "Up", "Up", "Return"), "Save As", ("Escape",)),
            (("alt+v", "s"), "COM Port Parameters", ("Escape",)),
            (("alt+c",), "Varno Control Codes", ("Escape",)),
            (("alt+p",), "Varno Print Codes", ("Escape",)),
            (("alt+a",), "ASCII Codes", ("Escape",)),
            (("alt+t",), "Error", ("Return",)),  # port 200 is not there, which the terminal says
            ((), "Terminal Window", ("alt+e",)),
            (("alt+h", "t"), "Tutorial", ("Escape",)),
            (("alt+h", "a"), "Varno Ticket Formatter", ("Return",)),
        ):
            if keys:
                program.keys(*keys)
            if title == "Open" and "Save the current ticket?" in " ".join(program.labels()):
                program.keys("alt+n")
            program.await_window(title)
            program.keys(*back)
            if title != "Error":
                program.await_window(main_window)
        program.quit()
        answer(program, "Save the current ticket?", "alt+n")
        program.await_end()
    finally:
        program.kill()


def paper_of_the_indicator(folder, path):
    paper = os.path.join(folder, "paper.txt")
    with Indicator(FOLDER, "--paper", paper, path) as indicator:
        indicator.tell("P")
        return wait_for(lambda: open(paper, encoding="utf-8").read(), "what is printed")


def preview(folder, path):
    """The paper by F7 and by the context menus: in window, tool and indicator the same."""
    main_window = "VarnoTicketFormatter 1.0.2"
    paper = subprocess.run([os.path.join(FOLDER, "varno-tickets"), "print", path, "212"],
                           capture_output=True, text=True, check=True).stdout
    expect(paper_of_the_indicator(folder, path) == paper, "the indicator prints another paper")
    program = Program(PROGRAM, path)
    try:
        program.type("Net 5")
        program.keys("F7")
        program.await_window("Ticket Preview")
        program.await_text("Printed ticket", "Net 5\n")
        program.keys("F7")
        program.await_window(main_window)
        program.keys("Return")
        program.await_text("Ticket editor", "Net÷5¬\n")
        program.await_text("Printed ticket", "Net 5\n")
        program.keys("F7")
        program.await_window("Ticket Preview")
        program.keys("Escape")
        program.await_window(main_window)
        for key in ("Menu", "shift+F10"):
            program.keys(key)
            program.find_if(lambda node: node.getRoleName() == "popup menu", f"a menu by {key}")
            program.keys("v")
            program.await_window("Ticket Preview")
            program.keys("Escape")
            program.await_window(main_window)
        tab_to(program, "Tickets")
        program.keys("Down")
        program.keys("Menu")
        program.find_if(lambda node: node.getRoleName() == "popup menu", "a menu of the list")
        program.keys("v")
        program.await_window("Ticket Preview")
        program.await_text("Printed ticket", paper)
        expect(program.find("Printed ticket").getState().contains(pyatspi.STATE_READ_ONLY),
               "the paper can be changed")
        program.keys("alt+c")
        program.await_window(main_window)
        program.await_text("Ticket editor", "Net÷5¬\n")
        program.quit()
        answer(program, "Save the current ticket?", "alt+n")
        program.await_end()
    finally:
        program.kill()


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.environ["XDG_CONFIG_HOME"] = folder
        os.environ["XDG_DATA_HOME"] = folder
        os.environ["XDG_STATE_HOME"] = folder
        path = write_first_ticket(folder)
        find_it_again(path)
        open_everything(path)
        preview(folder, path)
        transfer(folder, path)
    print("the whole program: written, found again, sent and received")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
