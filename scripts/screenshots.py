#!/usr/bin/python3
"""screenshots.py FOLDER: what screenshots.sh does, with the programs in FOLDER on this display."""

import os
import re
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FOLDER = os.path.abspath(sys.argv[1])
sys.path.insert(0, os.path.join(ROOT, "tests", "program"))

from indicator_at_work import Indicator  # noqa: E402  (found by the line above)
from operator_at_work import Program, wait_for, xdotool  # noqa: E402
from practice import INDICATOR, Desk  # noqa: E402

BLOCK = os.path.join(FOLDER, "Plant.VRB")
MAIN_WINDOW = "VarnoTicketFormatter 1.0.2"
# What a dark desktop says of itself: the window toolkit reads the colours of KDE without its help.
DARK_DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true",
                "KDE_SESSION_VERSION": "5"}
DARK, DARKER, BUTTON, LIGHT, ACCENT = (
    "42,46,50", "27,30,32", "49,54,59", "252,252,252", "61,174,233")
DARK_COLOURS = {"Window": (DARK, LIGHT), "View": (DARKER, LIGHT), "Button": (BUTTON, LIGHT),
                "Selection": (ACCENT, LIGHT), "Tooltip": (BUTTON, LIGHT)}


def picture_of_the_screen():
    return subprocess.run(["import", "-window", "root", "rgb:-"], stdout=subprocess.PIPE,
                          check=True).stdout


def settle():
    """Until two pictures of the screen, taken shortly after each other, are the same."""
    before = None
    for _ in range(25):
        now = picture_of_the_screen()
        if now == before:
            return
        before = now
        time.sleep(0.1)


class Photographer:
    """A user who uses indicator and program for the first time, and shows all their windows."""

    def __init__(self, program, indicator, theme, scale):
        self.program = program
        self.indicator = indicator
        self.theme = theme
        self.scale = scale

    def shoot(self, name, tutorial=False, ready=settle):
        """Into the gallery; the light one at 200 % is also the tutorial's, if it wants it."""
        ready()
        path = os.path.join("docs", "screenshots", f"{name}-{self.theme}-{self.scale}00.png")
        subprocess.run(["import", "-window", xdotool("getactivewindow"), "-strip",
                        "PNG8:" + os.path.join(ROOT, path)], check=True)
        if tutorial and self.theme == "light" and self.scale == 2:
            picture = os.path.join(ROOT, "tutorial", "pictures", name + ".png")
            subprocess.run(["convert", os.path.join(ROOT, path), "-units", "PixelsPerInch",
                            "-density", "192", "PNG8:" + picture], check=True)
        print(path)

    def show(self, title, *keys):
        for key in keys:
            self.program.keys(key)
        self.program.await_window(title)

    def close(self):
        self.program.keys("Escape")
        self.program.await_window(MAIN_WINDOW)

    def click(self, name):
        settle()
        # The bus measures in pixels before scaling.
        x, y = self.program.centre_of(self.program.find(name))
        xdotool("mousemove", x * self.scale, y * self.scale, "click", 1)

    def await_blink(self):
        """Until the prompt, which blinks, has just come again."""
        for shown in (False, True):
            wait_for(lambda: self.program.status_is_shown() == shown, "the blinking of the prompt")

    def picture_block_and_codes(self):
        self.click("212 P")
        self.click("Move ticket to editor")
        self.program.await_focus("Ticket editor")
        self.program.keys("ctrl+Home")
        self.click("212 P")
        self.shoot("main", tutorial=True)
        self.click("Ticket editor")
        self.program.keys("ctrl+Home")
        for key, title, code, name, tutorial in (
                ("alt+c", "Varno Control Codes", "017", "control-codes", True),
                ("alt+p", "Varno Print Codes", "011", "print-codes", False),
                ("alt+a", "ASCII Codes", "27", "ascii-codes", True)):
            self.show(title, key)
            self.program.type(code)
            self.shoot(name, tutorial)
            self.close()

    def picture_boxes_and_tutorial(self):
        for title, keys, name, tutorial in (
                ("COM Port Parameters", ("alt+v", "s"), "serial-port", True),
                ("Varno Ticket Formatter", ("alt+h", "a"), "about", False),
                ("Tutorial", ("alt+h", "t"), "tutorial", False)):
            self.show(title, *keys)
            self.shoot(name, tutorial)
            self.close()

    def picture_the_paper(self):
        """Of three tickets of the block."""
        for row, ticket in (("212 P", "212"), ("210 O", "210"), ("300", "300")):
            self.click(row)
            self.show("Ticket Preview", "F7")
            self.shoot("preview-" + ticket, tutorial=ticket == "212")
            self.close()

    def picture_the_line(self):
        self.indicator.tell("speed 9600")
        self.show("Warning", "alt+v", "u")
        self.shoot("warning")
        self.show(MAIN_WINDOW, "Return")
        self.shoot("upload", tutorial=True, ready=self.await_blink)
        self.indicator.tell("stall 3000")
        self.indicator.tell("77")
        wait_for(lambda: re.search(r" 3\d%", self.program.status()), "a third of the block")
        self.shoot("receiving")
        self.indicator.tell("stall")
        wait_for(lambda: self.program.status() == "", "the end of the upload")
        self.show("Terminal Window", "alt+t")
        self.indicator.tell("77")
        wait_for(lambda: len(self.program.text("Line")) > 8000, "what the indicator sends")
        self.shoot("terminal", tutorial=True)

    def picture_the_history(self):
        """After a deletion, which it takes back."""
        self.click("212 P")
        self.program.keys("Delete")
        self.show("History", "F6")
        wait_for(lambda: self.program.find("Before a ticket was deleted"), "the last copy")
        self.shoot("history", tutorial=True)
        self.program.keys("alt+o")
        self.program.await_message("Save the current ticket block?")
        self.show(MAIN_WINDOW, "alt+n")
        self.show("History", "F6")
        self.close()  # it stands in front of the main window


def move_in(home, theme):
    """A user's home, with the settings of the desktop."""
    os.makedirs(os.path.join(home, ".config"))
    os.environ["HOME"] = home
    if theme == "dark":
        with open(os.path.join(home, ".config", "kdeglobals"), "w", encoding="ascii") as colours:
            for part, (back, fore) in DARK_COLOURS.items():
                colours.write(f"[Colors:{part}]\nBackgroundNormal={back}\n"
                              f"ForegroundNormal={fore}\n")
            colours.write(f"[Colors:View]\nForegroundLink={ACCENT}\n")


def picture_all(home, theme, scale):
    move_in(home, theme)
    with Indicator(FOLDER, BLOCK) as indicator:
        with open(os.path.join(home, ".config", "VarnoTicketFormatter.ini"), "w",
                  encoding="ascii") as settings:
            settings.write(f'[Communications]\nCOM={indicator.port}\nSettings="9600,n,8,1"\n')
        desktop = DARK_DESKTOP if theme == "dark" else {}
        program = Program(os.path.join(FOLDER, "VarnoTicketFormatter"), BLOCK,
                          environment={"QT_SCALE_FACTOR": str(scale), **desktop})
        try:
            photographer = Photographer(program, indicator, theme, scale)
            photographer.picture_block_and_codes()
            photographer.picture_boxes_and_tutorial()
            photographer.picture_the_paper()
            photographer.picture_the_history()
            photographer.picture_the_line()
        finally:
            program.kill()
    picture_the_practice(home, theme, scale)


def picture_the_practice(home, theme, scale):
    os.makedirs(os.path.join(home, "runtime"), mode=0o700)
    desktop = DARK_DESKTOP if theme == "dark" else {}
    desk = Desk(home, environment={"QT_SCALE_FACTOR": str(scale), **desktop})
    try:
        desk.press(desk.indicator, INDICATOR, "alt+p")
        Photographer(None, None, theme, scale).shoot("indicator", tutorial=True)
    finally:
        desk.kill()


def main():
    for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
        os.environ.pop(name, None)
    with tempfile.TemporaryDirectory() as scratch:
        for scale in (1, 2):
            for theme in ("light", "dark"):
                picture_all(os.path.join(scratch, f"{theme}-{scale}"), theme, scale)


if __name__ == "__main__":
    main()
