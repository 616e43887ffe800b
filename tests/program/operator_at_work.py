"""An operator at the program: a real window, real keys, and what assistive technology sees of it."""

import os
import subprocess
import time

os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

import pyatspi  # noqa: E402  (reads the environment)
from gi.repository import Atspi  # noqa: E402

Atspi.set_timeout(5000, 5000)  # milliseconds

DEADLINE = 30  # seconds that any single thing may take


class Failure(Exception):
    pass


def expect(condition, what):
    if not condition:
        raise Failure(what)


def wait_for(condition, what):
    """Waits until condition() gives something true, and returns it."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        try:
            found = condition()
        except Exception:  # a widget went away while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.05)
    raise Failure(f"waited in vain: {what}")


def xdotool(*arguments):
    run = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True)
    return run.stdout.strip()


def root_of(pid):
    """A process on the accessibility bus, or None."""
    for application in pyatspi.Registry.getDesktop(0):
        if application and application.get_process_id() == pid:
            return application
    return None


class Program:
    def __init__(self, executable, *arguments, environment=None):
        self.process = subprocess.Popen(
            [executable, *arguments], env={**os.environ, **(environment or {})}
        )
        self.root = wait_for(self._find_root, "the program on the accessibility bus")
        self.await_window("VarnoTicketFormatter 1.0.2")

    def _find_root(self):
        expect(self.process.poll() is None, "the program ended at once")
        return root_of(self.process.pid)

    # Windows and keys

    def await_window(self, title):
        """Until the display and the program both take it for the active one: keys need the two."""
        wait_for(lambda: title in self.windows(), f"window {title!r}")
        wait_for(lambda: xdotool("getactivewindow", "getwindowname") == title, f"{title!r} in front")
        wait_for(lambda: any(w.name == title and w.getState().contains(pyatspi.STATE_ACTIVE)
                             for w in self.shown_windows()), f"{title!r} active")

    def windows(self):
        return [window.name for window in self.shown_windows()]

    def shown_windows(self):
        """Dialogs that are only hidden stay on the bus."""
        return [w for w in self.root if w and w.getState().contains(pyatspi.STATE_SHOWING)]

    def keys(self, *keys):
        xdotool("key", "--clearmodifiers", "--delay", 30, *keys)

    def type(self, text):
        xdotool("type", "--delay", 15, text)

    def quit(self):
        self.keys("alt+f")
        self.keys("x")

    def await_end(self):
        wait_for(lambda: self.process.poll() is not None, "the end of the program")
        expect(self.process.returncode == 0, f"exit status {self.process.returncode}")

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    # What assistive technology sees

    def find_if(self, fits, what):
        def search(node):
            for child in node:
                if child is None:
                    continue
                if fits(child):
                    return child
                found = search(child)
                if found:
                    return found
            return None

        def search_windows():
            for window in self.shown_windows():
                found = window if fits(window) else search(window)
                if found:
                    return found
            return None

        return wait_for(search_windows, what)

    def find(self, name, role=None):
        def fits(node):
            return node.name == name and (role is None or node.getRoleName() == role)

        return self.find_if(fits, f"{role or 'control'} {name!r}")

    def text(self, name):
        control = self.find(name)
        return control.queryText().getText(0, -1)

    def rows(self, name="Tickets"):
        return [row.name for row in self.find(name, "list")]

    def status_label(self):
        return self.find_if(lambda node: node.description == "Status", "the status label")

    def status(self):
        return self.status_label().name

    def status_is_shown(self):
        """It blinks."""
        return self.status_label().getState().contains(pyatspi.STATE_SHOWING)

    def await_message(self, text):
        """Waits for a message box that begins with this text."""
        self.find_if(
            lambda node: node.getRoleName() == "label" and node.name.startswith(text),
            f"the message {text!r}",
        )

    def has_state(self, name, state, role=None):
        return self.find(name, role).getState().contains(state)

    def is_focused(self, name):
        return self.has_state(name, pyatspi.STATE_FOCUSED)

    def await_focus(self, name):
        wait_for(lambda: self.is_focused(name), f"the focus on {name!r}")

    def await_text(self, name, text):
        wait_for(lambda: self.text(name) == text, f"{text!r} in {name!r}")

    def await_rows(self, rows):
        wait_for(lambda: self.rows() == rows, f"the rows {rows}")

    def centre_of(self, node):
        box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.x + box.width // 2, box.y + box.height // 2

    # Through the accessibility bus

    def press(self, name):
        """Presses a button by its name."""
        roles = ("push button", "toggle button", "check box")
        button = self.find_if(
            lambda node: node.name == name and node.getRoleName() in roles, f"button {name!r}"
        )
        act(button)

    def menu(self, caption, opens=None):
        """Chooses a menu item; `opens` is the menu whose opening decides whether it is offered."""
        if opens:
            act(self.find(opens, "menu item"))
        item = self.find(caption, "menu item")
        wait_for(lambda: item.getState().contains(pyatspi.STATE_ENABLED), f"{caption!r} offered")
        act(item)

    def write(self, name, text):
        wait_for(lambda: self.find(name).queryEditableText().setTextContents(text),
                 f"the field {name!r}")
        self.await_text(name, text)

    def select(self, list_name, row):
        rows = self.find(list_name, "list")
        rows.queryComponent().grabFocus()
        wait_for(lambda: rows.queryTable().addRowSelection(row), f"row {row} of {list_name!r}")

    def answer(self, message, button):
        self.await_message(message)
        self.press(button)
        self.await_no_message(message)

    def choose_file(self, title, path, button):
        self.find(title)
        wait_for(lambda: self.find("File name:", "text").queryEditableText()
                 .setTextContents(path), "the file name")
        self.press(button)

    def open_context_menu(self, name, role=None):
        control = self.find(name, role)
        act(control, "ShowMenu")
        return wait_for(lambda: next(c for c in control if c.getRoleName() == "popup menu"),
                        f"the menu of {name!r}")

    def context_menu(self, name, item, role=None):
        """Chooses an item of a control's context menu; the key may stand behind its name."""
        menu = self.open_context_menu(name, role)
        expect(menu.parent.name == name, f"the menu belongs to {menu.parent.name!r}")
        act(wait_for(lambda: next(i for i in menu if i.name.split("\t")[0] == item), f"{item!r}"))

    def choose(self, description, entry):
        """Chooses an entry of a list that drops down."""
        def chosen():
            control = self.find_if(lambda node: node.description == description, description)
            if control.name != entry:
                rows = [row.name for row in control[0]]
                control[0].queryTable().addRowSelection(rows.index(entry))
            return control.name == entry

        wait_for(chosen, f"{entry!r} as {description!r}")

    def await_no_message(self, text):
        wait_for(lambda: not any(text in name for name in self.labels()), f"{text!r} closed")

    def labels(self):
        names = []

        def collect(node):
            for child in node:
                if child:
                    names.append(child.name)
                    collect(child)

        for window in self.shown_windows():
            collect(window)
        return names


def can_act(node, name=None):
    """Asks a node for what it is for, or the action of this name; whether it agrees."""
    actions = node.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    return actions.doAction(names.index(name) if name else 0)


def act(node, name=None):
    """The same, but first what is in front of its window has to be gone."""
    wait_for(lambda: can_act(node, name), f"the action of {node.name!r}")
