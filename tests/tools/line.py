"""line.py VARNO-TICKETS: the built tool and the built simulated indicator on one line."""

import json
import os
import pty
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading

TOOL = os.path.realpath(sys.argv[1])
PLANT = os.path.join(os.path.dirname(TOOL), "Plant.VRB")
START = "Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)"
PATIENCE = 120  # seconds after which a program hangs
PAUSE = 3  # seconds in which even a busy machine moves a character


def same(got, expected, about=""):
    assert got == expected, f"{about}: got {got!r}, not {expected!r}"


def contents(path):
    with open(path, "rb") as file:
        return file.read()


class Indicator:
    """Holds a block; in the window's settings it is the port."""

    def __init__(self, block=PLANT):
        self.process = subprocess.Popen(
            [os.path.join(os.path.dirname(TOOL), "varno-indicator"), block],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        self.port, self.device = self.hear(r"(COM\d+) \((.+)\)").groups()
        with open(os.environ["XDG_CONFIG_HOME"] + "/VarnoTicketFormatter.ini", "w") as settings:
            settings.write(f'[Communications]\nCOM={self.port[3:]}\nSettings="4000000,n,8,1"\n')

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.terminate()
        self.process.wait()

    def tell(self, *commands):
        for command in commands:
            self.process.stdin.write(command + "\n")

    def hear(self, pattern):
        for line in self.process.stdout:
            if found := re.search(pattern, line):
                return found
        raise AssertionError(f"the indicator never said {pattern}")


class Tool:
    """The running tool; what it waits for is told to the indicator."""

    def __init__(self, *arguments, **options):
        self.process = subprocess.Popen([TOOL, *arguments], stdout=subprocess.PIPE,
                                        stdin=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                        text=True, **options)

    def await_start(self):
        same(self.process.stderr.readline().strip(), START)
        return self

    def end(self):
        """Its exit code and what it said."""
        output, errors = self.process.communicate(timeout=PATIENCE)
        return self.process.returncode, output + errors


def transfer(indicator, *arguments, tell=("77",)):
    tool = Tool(*arguments).await_start()
    indicator.tell(*tell)
    return tool.end()


def moves_blocks():
    with Indicator() as indicator:
        same(transfer(indicator, "receive", "got.VRB", "--backup", "copies"), (0, ""))
        same(contents("got.VRB"), contents(PLANT))
        same(Tool("receive", "got.VRB").end(),
             (3, "varno-tickets: got.VRB exists already; --force replaces it\n"))
        same(transfer(indicator, "verify", "got.VRB"), (0, ""))
        subprocess.run([TOOL, "delete", "got.VRB", "300"], check=True)
        subprocess.run([TOOL, "bind", "got.VRB", "900", "Start"], check=True)
        told = "ticket 300 is only in the indicator\nkey Start prints 900 in got.VRB, none in the indicator\n"
        same(transfer(indicator, "verify", "got.VRB"), (1, told))
        told = told.replace("the indicator", indicator.port)
        same(transfer(indicator, "diff", "got.VRB", indicator.port), (1, told))

        indicator.tell("78")
        capturing = "Start TICKET BUFFER CAPTURING in Varno (parameter 78).\n"
        same(Tool("send", "got.VRB", "--port", indicator.device, "--backup=copies").end(), (0, capturing))
        indicator.hear("captured, 5 tickets")
        indicator.tell("save there.VRB")
        indicator.hear("saved")
        same(contents("there.VRB"), contents("got.VRB"))
        copies = sorted(contents("copies/" + name) for name in os.listdir("copies"))
        same(copies, sorted([contents(PLANT), contents("got.VRB")]), "the copies")
        listed = subprocess.check_output([TOOL, "history", "--backup=copies"], text=True)
        for what in f"After an upload from {indicator.port}", f"Before a download to {indicator.device}":
            assert re.search(f"block got  {what} +sound", listed), listed


def keeps_what_came_before_it_stood_still():
    for offset in 0, 1, 4096, 8006, 8007, 8008:
        with Indicator() as indicator:
            stall = f"stall {offset}"
            code, said = transfer(indicator, "receive", "new.VRB", f"--wait={PAUSE}", tell=(stall, "77"))
            same(code, 3 if offset == 0 else 1 if offset < 8007 else 0, stall + said)
            kept = "new.VRB" if code == 0 else "new damaged.VRB"
            same([name for name in os.listdir(".") if name.startswith("new")], [kept] if offset else [], stall)
            if offset == 0:
                same(said, "varno-tickets: Nothing came for too long.\n")
                continue
            same(contents(kept), contents(PLANT)[:min(offset, 8007)] + b"\r\n", stall)
            os.remove(kept)
            if code == 1:
                assert f"It has {offset} characters; a block has 8007." in said, said


def keeps_what_came_before_the_cable_was_pulled():
    """What came last goes with the cable, unless it has been read already."""
    for offset in 0, 1, 4096, 8006, 8008:
        with Indicator() as indicator:
            cut = f"cut {offset}"
            code, said = transfer(indicator, "receive", "new.VRB", tell=("speed 38400", cut, "77"))
            assert code == 1 or (code == 3 and offset < 2) or (code == 0 and offset == 8008), cut + said
            assert os.path.exists("new.VRB") == (code == 0), cut
            if code != 0:
                assert "has gone away. Is its adapter still connected?" in said, cut + said
            if code == 1:
                came = contents("new damaged.VRB").removesuffix(b"\r\n")
                assert contents(PLANT)[:offset].startswith(came), cut
                os.remove("new damaged.VRB")
            elif code == 0:
                os.remove("new.VRB")


def tells_what_was_not_sent():
    """Behind these places the line has taken all, and a sender cannot know what becomes of it."""
    for fault in "cut", "stall":
        for offset in 0, 1, 4096:
            with Indicator() as indicator:
                about = f"{fault} {offset}"
                indicator.tell("speed 115200", "78", about, "list")
                indicator.hear("^200")  # it has understood
                code, said = Tool("send", PLANT, f"--wait={PAUSE}").end()
                same(code, 3, about + said)


def refuses_damage():
    damaged = contents(PLANT).replace(b"0048", b"0049", 1)
    with open("damaged.VRB", "wb") as file:
        file.write(damaged)
    same(Tool("send", "damaged.VRB").end()[0], 1)
    with Indicator("damaged.VRB") as indicator:
        code, said = transfer(indicator, "verify", PLANT)
        assert code == 1 and "came damaged" in said and "%" not in said, said
        # At a terminal it shows how far it is, and asks whether to try again.
        terminal, slave = pty.openpty()
        tool = subprocess.Popen([TOOL, "receive", "bad.VRB"], stdin=slave, stderr=slave)
        os.close(slave)
        said = b""

        def answer(question, command):
            nonlocal said
            while not said.endswith(question):
                said += os.read(terminal, 1000)
            said = b""
            command()

        answer(START.encode() + b"\r\n", lambda: indicator.tell("77"))
        answer(b"again? [Y/n] ", lambda: os.write(terminal, b"\n"))
        answer(START.encode() + b"\r\n", lambda: indicator.tell("77"))
        while b"[Y/n]" not in said:
            said += os.read(terminal, 1000)
        assert b"Receiving ticket buffer from Varno ... " in said and b"checksum" in said, said
        os.write(terminal, b"n\n")
        same(tool.wait(PATIENCE), 1)
        os.close(terminal)
        assert not os.path.exists("bad.VRB")
        for kept in "bad damaged.VRB", "bad damaged-2.VRB":
            same(contents(kept), damaged, kept)


def ends_at_once():
    with Indicator() as indicator:
        indicator.tell("speed 9600")
        for arguments, before in ((("receive", "stopped.VRB"), ()), (("receive", "stopped.VRB"), ("77",)),
                                  (("send", PLANT), ("78",))):
            tool = Tool(*arguments)
            tool.process.stderr.readline()
            indicator.tell(*before, "list")
            indicator.hear("^200")
            tool.process.send_signal(signal.SIGINT)
            same(tool.end()[0], -signal.SIGINT, arguments)
        assert not [name for name in os.listdir(".") if name.startswith("stopped")]
        indicator.tell("speed 0")
        same(transfer(indicator, "receive", "after.VRB", "--wait=9", tell=("77",))[0], 0)


def says_why_a_port_cannot_be_used():
    with Indicator() as indicator:
        name = f"{indicator.port} ({indicator.device})"
        held = Tool("receive", "held.VRB").await_start()
        same(Tool("receive", "second.VRB").end(),
             (3, f"varno-tickets: {name} is in use by another program. End its use there and try again.\n"))
        held.process.terminate()
        same(held.end()[0], -signal.SIGTERM)
        for port in "COM77", "/dev/ttyNONE":
            for command in ("receive", "none.VRB"), ("send", PLANT):
                code, said = Tool(*command, "--port", port).end()
                assert code == 3 and said.startswith(f"varno-tickets: There is no {port}. The "), said
        for option, value in ("--port", "77"), ("--settings", "9600"), ("--wait", "x"):
            same(Tool("receive", "none.VRB", option, value).end()[0], 2, option)
        forbidden = (3, f"varno-tickets: You have no permission to use {name}. Ask the administrator to add you "
                     'to the group "dialout", then log in again.\n')
        os.chmod(indicator.device, 0)
        user = {"user": 65534, "group": 65534, "extra_groups": []} if os.getuid() == 0 else {}
        same(Tool("receive", "none.VRB", **user).end(), forbidden)
        os.chmod(indicator.device, 0o600)


def numbers_ports():
    with Indicator() as indicator:
        def devices():
            listed = json.loads(subprocess.check_output([TOOL, "ports", "--json"]))["ports"]
            return {row["port"]: row["device"] for row in listed}

        same(devices()[indicator.port], indicator.device)
        line = f"{indicator.port} +{indicator.device}\n"
        assert re.search(line, subprocess.check_output([TOOL, "ports"], text=True)), line
        link = ("ports", "--link", "COM99", indicator.device)
        same(Tool(*link).end(), (0, ""))
        same(devices()["COM99"], indicator.device)
        same(Tool(*link).end(), (3, f"varno-tickets: COM99 is {indicator.device} already.\n"))
        for port in "COM99", "com99", os.path.relpath(indicator.device):
            same(transfer(indicator, "receive", "linked.VRB", "--force", "--port", port), (0, ""))
        same(Tool("ports", "--unlink=COM99").end(), (0, ""))
        same(Tool("ports", "--unlink=COM99").end(), (3, "varno-tickets: COM99 is not linked.\n"))
        same(Tool("ports", "--link=COM98", "/dev/none").end(), (3, "varno-tickets: /dev/none is no serial device.\n"))
        assert not {"COM98", "COM99"} & devices().keys()


def runs_the_examples_of_the_manual():
    """Every command, as it stands there; the indicator's panel is worked when it is asked for."""
    manual = contents(os.path.join(os.path.dirname(__file__), "../../docs/man/varno-tickets.1")).decode()
    examples = manual.split(".SH EXAMPLES")[1].split(".nf\n")[1].split(".fi")[0].replace("\\-", "-")
    commands = set(subprocess.check_output([TOOL, "--help"], text=True).split("\n\n")[1].split("\n"))
    missing = {row.split()[0] for row in commands} - set(re.findall(r"varno-tickets (\w+)", examples))
    assert not missing, f"no examples of {missing}"
    os.mkdir("manual")
    os.chdir("manual")
    for name in "Plant.VRB", "Weighbridge.VRT":
        shutil.copy(os.path.join(os.path.dirname(PLANT), name), name)
    os.environ["PATH"] = os.path.dirname(TOOL) + ":" + os.environ["PATH"]
    with Indicator() as indicator:
        for line in examples.replace("COM3", indicator.port).splitlines():
            indicator.tell(*["78"] * ("send" in line))
            tool = subprocess.Popen(line, shell=True, stderr=subprocess.PIPE, stdout=subprocess.DEVNULL,
                                    stdin=subprocess.DEVNULL, text=True)
            if "receive" in line or "verify" in line:
                same(tool.stderr.readline().strip(), START)
                indicator.tell("77")
            _, errors = tool.communicate(timeout=PATIENCE)
            same(tool.returncode, 0, line + errors)
            if "send" in line:
                indicator.hear("captured, ")


def completes_in_bash():
    script = """source completion; COMP_WORDS=(varno-tickets {}); COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1))
        _varno_tickets; echo "${{COMPREPLY[*]}}" """
    for words, completed in (("rec", "receive"), ("print --", "--catalogues --force --svg --values --width "
                                                  "--help --version"), ("check Pla", "Plant.VRB Plant.txt"),
                             ("history re", "restore"),
                             ("history show --", "--backup --catalogues --json --help --version")):
        got = subprocess.check_output(["bash", "-c", script.format(words)], text=True)
        same(sorted(got.split()), sorted(completed.split()), words)


def answers_scripts():
    def asked(*arguments):
        return json.loads(subprocess.run([TOOL, *arguments, "--json"], capture_output=True, check=False).stdout)

    same(asked("list", PLANT)["tickets"][1], {"number": 210, "keys": ["Out"]})
    same(asked("check", PLANT)["sound"], True)
    with open(b'q"\\\xff.VRB', "w") as file:
        file.write(":")
    told = asked("check", b'q"\\\xff.VRB')
    same((told["block"], told["sound"]), ('q"\\\ufffd.VRB', False))
    subprocess.run([TOOL, "new", "empty.VRB"], check=True)
    told = asked("diff", "empty.VRB", PLANT)
    same((told["equal"], told["differences"][0]), (False, f"ticket 200 is only in {PLANT}"))


folder = tempfile.mkdtemp()
try:
    os.chdir(folder)
    os.chmod(folder, 0o755)
    for name in "data", "config", "state":
        os.mkdir(name)
        os.environ[f"XDG_{name.upper()}_HOME"] = os.path.join(folder, name)
    watchdog = threading.Timer(10 * PATIENCE, lambda: os._exit("It hangs."))
    watchdog.daemon = True
    watchdog.start()
    moves_blocks()
    keeps_what_came_before_it_stood_still()
    keeps_what_came_before_the_cable_was_pulled()
    tells_what_was_not_sent()
    refuses_damage()
    ends_at_once()
    says_why_a_port_cannot_be_used()
    numbers_ports()
    runs_the_examples_of_the_manual()
    completes_in_bash()
    answers_scripts()
finally:
    shutil.rmtree(folder)
