#!/usr/bin/env python3
"""Tells what the tests are worth: makes single changes ("mutants") in the rules, one at a time in a
copy of the tree, and runs the tests, cheapest first, until one notices.

  scripts/mutate.py --count 120   until so many have been tried, drawn by chance; goes on where it
                                  was stopped
  scripts/mutate.py --again       the survivors once more, against the tests of today
  scripts/mutate.py NAME...       only these; a name is FILE:LINE:COLUMN:KIND

A mutant that does not compile does not count. build/mutation/ holds the copy and the results.
"""
import argparse
import collections
import json
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TREE = ROOT / "build/mutation/tree"
RESULTS = ROOT / "build/mutation/results.json"
FOLDERS = ("codec", "block", "editor", "link", "app")

# What a kind of mutant looks for in a line and what it puts there, given the whole find and its
# groups. Only "text" looks into strings.
SWAPS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "+": "-", "-": "+",
         "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "&&": "||", "||": "&&",
         "true": "false", "false": "true"}
KINDS = {
    "comparison": (r"(?<= )(==|!=|<=?|>=?)(?= )", lambda sign, _: SWAPS[sign]),
    "operator": (r"(?<= )([-+*/%]|&&|\|\||[-+]=)(?= )", lambda sign, _: SWAPS[sign]),
    "truth": (r"\b(true|false)\b", lambda word, _: SWAPS[word]),
    "constant": (r"\b(0[xX][0-9A-Fa-f]+|\d+)(?=U?\b)", lambda number, _: str(int(number, 0) + 1)),
    "character": (r"(?<=')\w(?=')", lambda letter: chr(ord(letter) + 1)),
    "condition": (r"(?<=\bif \().*(?=\) \{)|(?<=\bwhile \().*(?=\) \{)", lambda term: f"!({term})"),
    "choice": (r"(?<=\? )([^?:]+) : ([^?:,;]+)(?=[,;)])", lambda _, yes, no: f"{no} : {yes}"),
    "arguments": (r"(?<=\()([\w.:]+), ([\w.:]+)(?=[,)])", lambda _, one, two: f"{two}, {one}"),
    "call": (r"(?<=^ {4}) *(?!return)[\w:.>\[\]-]+\(.*\);$", lambda _: ";"),
    "assignment": (r"(?<=^ {4}) *[\w:.>\[\]-]+ [-+|&]?= .*;$", lambda _: ";"),
    "exit": (r"(?<=^ {4}) *(return|break|continue);$", lambda _, __: ";"),
    "text": (r'(?<=")[^"\\, ][^"\\]*(?=")', lambda text: text[:-1]),
}

# The tests of a stage, what is built for it, after how many seconds a test hangs.
WINDOW = "window_test|window_editor_test|line_test"
WHOLE = ("whole_program|every_command|practice|assistive_technology|new_windows|"
         "rtf_other_programs_test|.*_at_.*")
RULES = ("-E", f"^({WINDOW}|window_random_test|{WHOLE})$")
STAGES = (
    (("-R", "^{own}_test$"), ["{own}_test"], 60),
    (RULES, None, 60),
    (("-R", f"^({WINDOW})$"), WINDOW.split("|"), 300),
    (("-R", "^window_random_test$"), ["window_random_test"], 600),
    (("-R", f"^({WHOLE})$"), ["all"], 900),
)


def run(command, **options):
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          cwd=TREE, check=False, **options)


def copy_tree():
    """Only what differs is copied, so that little is built again."""
    TREE.mkdir(parents=True, exist_ok=True)
    names = subprocess.check_output(["git", "-C", ROOT, "ls-files", "-z"], text=True)
    for name in names.split("\0")[:-1]:
        source, target = ROOT / name, TREE / name
        if not target.exists() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    configured = run(["cmake", "--preset", "dev", "-DCMAKE_BUILD_TYPE=", "-DCMAKE_CXX_FLAGS=-w",
                      *launcher])
    if configured.returncode != 0:
        sys.exit(configured.stdout)


def rule_tests():
    """The programs of the second stage: whatever is registered and belongs to no other."""
    listed = run(["ctest", "--test-dir", "build/dev", "--show-only", *RULES]).stdout
    return [name for name in re.findall(r": (\w+)$", listed, re.M) if name.endswith("_test")]


def mutants_of(name):
    """Each mutant of a file: its own name, and the line that it makes of which."""
    blank = lambda match: match[0][0] + " " * (len(match[0]) - 2) + match[0][-1]
    for number, line in enumerate((TREE / name).read_text().splitlines(), 1):
        if re.match(r"\s*(#|//|static_assert|namespace|using|template)", line):
            continue
        code = re.sub(r"//.*", blank, re.sub(r'"([^"\\]|\\.)*"', blank, line))
        for kind, (pattern, change) in KINDS.items():
            for match in re.finditer(pattern, line if kind == "text" else code):
                found = [line[match.start(i):match.end(i)] for i in range(len(match.groups()) + 1)]
                changed = line[:match.start()] + change(*found) + line[match.end():]
                yield f"{name}:{number}:{match.start() + 1}:{kind}", (line, changed)


def all_mutants():
    files = sorted(path.relative_to(TREE).as_posix() for folder in FOLDERS
                   for path in (TREE / folder).glob("*.[ch]*"))
    return {name: lines for file in files for name, lines in mutants_of(file)}


def drawn(mutants, seed):
    """All mutants in an order of chance in which the kinds take turns."""
    by_kind = collections.defaultdict(list)
    for name in mutants:
        by_kind[name.rsplit(":", 1)[1]].append(name)
    for names in by_kind.values():
        random.Random(seed).shuffle(names)
    while any(by_kind.values()):
        yield from [names.pop() for names in by_kind.values() if names]


def verdict_on_tree(folder, others):
    for (choice, tests), targets, limit in STAGES:
        tests = tests.replace("{own}", folder)
        targets = [target.replace("{own}", folder) for target in targets or others]
        built = run(["cmake", "--build", "build/dev", "--target", *targets])
        if built.returncode != 0:
            return "does not compile"
        tested = run(["ctest", "--test-dir", "build/dev", choice, tests,
                      "--stop-on-failure", "--timeout", str(limit)],
                     env=dict(os.environ, GTEST_FAIL_FAST="1", HOME=str(TREE.parent)))
        if tested.returncode != 0:
            failed = re.findall(r"\d+ - (\S+) \((\w+)", tested.stdout)
            return "caught by " + (" ".join(failed[0]) if failed else "?")
    return "survived"


def try_mutant(name, lines, others):
    file, number, _ = name.split(":", 2)
    whole = (TREE / file).read_text()
    text = whole.split("\n")
    text[int(number) - 1] = lines[1]
    (TREE / file).write_text("\n".join(text))
    try:
        return verdict_on_tree(file.split("/")[0], others)
    finally:
        (TREE / file).write_text(whole)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=120)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--again", action="store_true")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()

    copy_tree()
    others = rule_tests() + ["varno-tickets", "varno-indicator", "samples"]
    results = json.loads(RESULTS.read_text()) if RESULTS.exists() else {}
    if not results and (verdict := verdict_on_tree(FOLDERS[0], others)) != "survived":
        sys.exit(f"The tree without any change: {verdict}.")
    mutants = all_mutants()
    counted = lambda: sum(result["verdict"] != "does not compile" for result in results.values())
    survivors = [name for name in results if results[name]["verdict"] == "survived"]
    fixed = options.names or (survivors if options.again else None)
    for name in fixed or drawn(mutants, options.seed):
        if not fixed and (name in results or counted() >= options.count):
            continue
        before, after = mutants[name]
        results[name] = {"before": before.strip(), "after": after.strip(),
                         "verdict": try_mutant(name, mutants[name], others)}
        RESULTS.write_text(json.dumps(results, indent=1))
        print(f"{results[name]['verdict']}: {name}\n    {before.strip()}\n    {after.strip()}",
              flush=True)
    caught = sum(result["verdict"].startswith("caught") for result in results.values())
    print(f"{caught} of {counted()} mutants caught")


main()
