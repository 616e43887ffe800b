#!/usr/bin/python3
"""The practice desk: the tutorial's ten steps as they are written there, and every way to end it.

practice.py FOLDER: FOLDER holds the programs. For root all but the steps is done as another user.
"""

import os
import signal
import subprocess
import sys
import tempfile

from operator_at_work import Failure, Program, expect, root_of, wait_for, xdotool

FOLDER = os.path.abspath(sys.argv[1])
TUTORIAL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tutorial")
sys.path.insert(0, TUTORIAL)

import source  # noqa: E402  (found by the line above)

KEYS = {"Enter": "Return", "Esc": "Escape", "Space": "space", "P": "p", "D": "d", "U": "u",
        "Alt+V": "alt+v", "Alt+N": "alt+n", "Alt+P": "alt+p"}
PROGRAM = "VarnoTicketFormatter 1.0.2"
INDICATOR = "Varno Indicator (SIMULATED)"


class Joined(Program):
    """A program that somebody else has started."""

    def __init__(self, pid):
        self.root = wait_for(lambda: root_of(pid), f"process {pid} on the accessibility bus")


def is_alive(pid):
    """A killed program holds its files until the last of its threads has ended, not only the first."""
    def runs(thread):
        try:
            with open(f"/proc/{pid}/task/{thread}/stat", encoding="ascii") as stat:
                return stat.read().rsplit(")", 1)[1].split()[0] not in "ZX"
        except OSError:
            return False

    try:
        return any(map(runs, os.listdir(f"/proc/{pid}/task")))
    except OSError:
        return False


def files_in(folder):
    found = {}
    for path, _, names in os.walk(folder):
        for name in names:
            status = os.lstat(os.path.join(path, name))
            found[os.path.join(path, name)] = (status.st_size, status.st_mtime_ns)
    return found


class Desk:
    """One practice desk of a user whose home is `home`."""

    def __init__(self, home, user=None, environment=None):
        self.runtime = os.path.join(home, "runtime")
        self.process = subprocess.Popen(
            [os.path.join(FOLDER, "varno-practice")], cwd=home, user=user, group=user,
            extra_groups=None if user is None else [],
            env={**os.environ, "HOME": home, "XDG_RUNTIME_DIR": self.runtime,
                 **(environment or {})})
        self.indicator = self.process.pid
        self.program = wait_for(lambda: self.child("VarnoTicketForm"), "the program")
        self.keeper = wait_for(lambda: self.child("practice-keeper"), "the keeper")
        self.window(self.program, PROGRAM)
        self.window(self.indicator, INDICATOR)

    def child(self, name):
        found = subprocess.run(["pgrep", "-x", "-P", str(self.indicator), name],
                               capture_output=True, text=True, check=False).stdout.split()
        return int(found[0]) if found else None

    @staticmethod
    def window(pid, title):
        """Windows tell by their owner, so that two desks can be told from each other."""
        def owned():
            numbers = xdotool("search", "--onlyvisible", "--name", "^" + title.split("(")[0])
            return next((n for n in numbers.split() if xdotool("getwindowpid", n) == str(pid)),
                        None)
        return wait_for(owned, f"the window {title!r} of {pid}")

    def press(self, pid, title, *keys):
        xdotool("windowactivate", "--sync", self.window(pid, title))
        xdotool("key", "--clearmodifiers", "--delay", 40, *keys)

    def has_ended(self):
        self.process.poll()
        return not any(map(is_alive, (self.indicator, self.program, self.keeper)))

    def await_nothing_left(self, how):
        wait_for(self.has_ended, f"the end of the desk after: {how}")
        expect(os.listdir(self.runtime) == [], f"a folder is left after: {how}")

    def kill(self):
        for pid in (self.program, self.indicator, self.keeper):
            if is_alive(pid):
                os.kill(pid, signal.SIGKILL)
        self.process.wait()


# The ten steps

def ten_steps():
    with open(os.path.join(TUTORIAL, "tutorial.md"), encoding="utf-8") as file:
        blocks = source.parse(file.read())
    heading = next(i for i, block in enumerate(blocks) if isinstance(block, source.Heading)
                   and block.spans[0].text.endswith("Practise in ten steps"))
    steps = next(block for block in blocks[heading:] if isinstance(block, source.List)).items
    expect(len(steps) == 10, f"the tutorial has {len(steps)} steps")
    return steps


def active_pid():
    return xdotool("getactivewindow", "getwindowpid")


def switch_programs():
    """Alt+Tab, as often as it takes to come to the other program."""
    before = active_pid()
    for presses in range(1, 6):
        xdotool("keydown", "alt", *["key", "Tab"] * presses, "keyup", "alt")
        try:
            wait_until_other(before)
            return
        except Failure:
            pass
    raise Failure("Alt+Tab does not lead to the other program")


def wait_until_other(before):
    for _ in range(20):
        if active_pid() not in (before, ""):
            return
        xdotool("sleep", 0.05)
    raise Failure("the same program")


def do(step, before):
    """What is bold in a step is pressed, what is set as code is typed, each when the program is ready
    for it: `before` has the conditions for what opens windows or takes time."""
    for span in step:
        if span.ticket or not (span.bold or span.fixed):
            continue
        wait_for(before.get(span.text, lambda: True), f"the time for {span.text}")
        if span.fixed:
            xdotool("type", "--delay", 20, span.text)
        elif span.text == "Alt+Tab":
            switch_programs()
        else:
            xdotool("key", "--clearmodifiers", KEYS.get(span.text, span.text))
        xdotool("sleep", 0.2)


def practise(home):
    desk = Desk(home)
    try:
        program, indicator = Joined(desk.program), Joined(desk.indicator)

        def is_active(title):
            return lambda: xdotool("getactivewindow", "getwindowname") == title

        def asks(text):
            return lambda: any(text in label for label in program.labels())

        def displays(text):
            return lambda: text in indicator.labels()

        seven = ["200 I", "210 O", "212", "220", "250 P", "300", "900"]
        steps = (  # what keys wait for, and what is there at the end
            ({}, lambda: active_pid() == str(desk.program)),
            ({}, lambda: program.text("Ticket editor") == "Northfield÷Quarry¬\n"),
            ({"011": is_active("Varno Print Codes")},
             lambda: program.text("Ticket editor").endswith("\nP011 GROSS WEIGHT\n¬\n")),
            ({"Esc": lambda: program.text("Printed ticket").startswith("Northfield Quarry\nGross:")},
             lambda: program.windows() == [PROGRAM] and program.is_focused("Ticket editor")),
            ({}, lambda: "250" in program.rows()),
            ({}, lambda: "250  P" in program.rows()),
            ({"Alt+Tab": asks("Start TICKET BUFFER CAPTURING")}, displays("capturing")),
            ({}, lambda: displays("captured, 7 tickets")() and program.status() == ""),
            ({}, lambda: "Northfield Quarry\nGross:" in indicator.text("Printed tickets")),
            ({"Enter": asks("Items in ticket block will be lost."),
              "Alt+7": lambda: program.status().startswith("Start TICKET BUFFER"),
              "Alt+F4": lambda: program.rows() == seven and program.status() == "",
              "Alt+N": asks("Save the current ticket block?")}, desk.has_ended),
        )
        for number, (step, (before, is_reached)) in enumerate(zip(ten_steps(), steps), 1):
            if number > 1 or active_pid() == str(desk.indicator):
                do(step, before)
            wait_for(is_reached, f"what step {number} says")
        desk.await_nothing_left("the ten steps")
    finally:
        desk.kill()


# Every end

def close_indicator(desk):
    desk.press(desk.indicator, INDICATOR, "alt+F4")


def close_program(desk):
    desk.press(desk.program, PROGRAM, "alt+F4")


def send(number, *names):
    def act(desk):
        for name in names:
            os.kill(getattr(desk, name), number)
    return act


ENDS = (
    ("closing the indicator", close_indicator),
    ("closing the program", close_program),
    ("killing the indicator", send(signal.SIGKILL, "indicator")),
    ("killing the program", send(signal.SIGKILL, "program")),
    ("killing both", send(signal.SIGKILL, "program", "indicator")),
    ("killing the keeper, then closing", lambda desk: (send(signal.SIGKILL, "keeper")(desk),
                                                       close_indicator(desk))),
    ("Ctrl+C", send(signal.SIGINT, "indicator", "program", "keeper")),
    ("logging out", send(signal.SIGTERM, "keeper", "indicator", "program")),
)


def end_in_every_way(home, user):
    for how, act in ENDS:
        desk = Desk(home, user)
        try:
            act(desk)
            desk.await_nothing_left(how)
        finally:
            desk.kill()


def ask_first(home, user):
    """Closing, killing and ending the indicator leave unsaved work to its operator."""
    for how, act in (ENDS[0], ENDS[2], ("ending", send(signal.SIGTERM, "indicator"))):
        desk = Desk(home, user)
        try:
            desk.press(desk.program, PROGRAM, "N", "e", "t")
            act(desk)
            desk.press(desk.program, "Ticket changed", "Escape", "alt+n")
            desk.await_nothing_left(how + " with unsaved work")
        finally:
            desk.kill()


def two_desks(home, user):
    first, second = Desk(home, user), Desk(home, user)
    try:
        expect(len(os.listdir(first.runtime)) == 2, "the desks share a folder")
        close_program(first)
        wait_for(first.has_ended, "the end of the first desk")
        expect(not second.has_ended(), "the second desk ended too")
        for pid in (second.keeper, second.indicator, second.program):
            os.kill(pid, signal.SIGKILL)  # so that nobody can tidy up
        wait_for(second.has_ended, "the end of the killed desk")
        third = Desk(home, user)
        try:
            expect(len(os.listdir(third.runtime)) == 1, "the killed desk is still there")
            close_program(third)
            third.await_nothing_left("the desk of a killed one")
        finally:
            third.kill()
    finally:
        first.kill()
        second.kill()


def make_home(folder, name, user):
    """With settings that are not to be touched."""
    home = os.path.join(folder, name)
    for path in (".config", ".local/share/VarnoTicketFormatter/ports", "runtime"):
        os.makedirs(os.path.join(home, path), mode=0o700)
    for path in (".config/VarnoTicketFormatter.ini", ".config/kdeglobals"):
        with open(os.path.join(home, path), "w", encoding="ascii") as settings:
            settings.write("[Communications]\nCOM=77\n")
    if user is not None:
        subprocess.run(["chown", "-R", f"{user}:{user}", home], check=True)
    return home


def main():
    other = 65534 if os.geteuid() == 0 else None
    for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"):
        os.environ.pop(name, None)
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        for name, user, acts in (("operator", None, (lambda home, _: practise(home),)),
                                 ("other", other, (end_in_every_way, ask_first, two_desks))):
            home = make_home(folder, name, user)
            before = files_in(home)
            for act in acts:
                act(home, user)
            expect(files_in(home) == before, f"the user has other files: {files_in(home)}")
    print("the practice desk: ten steps done, nothing left after any end")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
