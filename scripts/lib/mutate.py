#!/usr/bin/env python3
"""Changes lines of C++, one at a time, and asks of each change whether the tests notice it.

It knows no C++, only how clang-format writes it: operators with two sides have blanks around them,
the brackets of templates have none.
"""

import argparse
import collections
import filecmp
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import time

Change = collections.namedtuple("Change", "begin end replacement what")
Mutant = collections.namedtuple("Mutant", "file line change")

KILLED, TOO_LONG, NOT_BUILT, SURVIVED = "killed", "too long", "not built", "survived"

# What is no code: comments, texts, characters, lines for the preprocessor.
NO_CODE = re.compile(
    r"""//[^\n]*|/\*.*?\*/"""
    r"""|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'"""
    r"""|^[ \t]*\#(?:\\\n|[^\n])*""",
    re.DOTALL | re.MULTILINE)

OPERATORS = {
    "<": ["<=", ">"], "<=": ["<", ">="], ">": [">=", "<"], ">=": [">", "<="],
    "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "+=": ["-="], "-=": ["+="],
}
WORDS = {"true": ["false"], "false": ["true"]}

OPERATOR = re.compile(r"(?<=\s)(?:%s)(?=\s)" % "|".join(
    re.escape(operator) for operator in sorted(OPERATORS, key=len, reverse=True)))
WORD = re.compile(r"\b(?:%s)\b" % "|".join(WORDS))
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9A-Fa-f']+|\d[\d']*)([uUlL]*)(?![\w.'])")
CONDITION = re.compile(r"\b(?:if|while) \(")
# A call, an assignment or a jump that fills a line. What has a blank in front of its brackets
# declares something.
STATEMENT = re.compile(
    r"^[ \t]+((?:[\w:.<>*()\[\]-]+\(.*\)|[\w:.>*()\[\]-]+ [-+|&]?= .+|(?:\+\+|--)[\w.>\[\]-]+"
    r"|break|continue|return);)[ \t]*$", re.MULTILINE)
SPEED = re.compile(r"\breserve\(")  # changes nothing but that


def code_of(text):
    """The text with blanks for all that is no code, so that places stay what they are."""
    return NO_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def closing_bracket(code, begin):
    """Where the bracket that opens at `begin` is closed; None if it is not."""
    depth = 0
    for place in range(begin, len(code)):
        depth += {"(": 1, ")": -1}.get(code[place], 0)
        if depth == 0:
            return place
    return None


def replacements(text, code, pattern, table):
    for match in pattern.finditer(code):
        line = text[text.rfind("\n", 0, match.start()) + 1:text.find("\n", match.end())]
        if match.group() in ("+", "+=") and '"' in line:
            continue  # it joins texts, and - would not build
        for new in table[match.group()]:
            yield Change(match.start(), match.end(), new, f"{match.group()} became {new}")


def other_numbers(code):
    for match in NUMBER.finditer(code):
        digits, suffix = match.groups()
        hexadecimal = digits[:2] in ("0x", "0X")
        value = int(digits.replace("'", ""), 16 if hexadecimal else 10)
        for other in (value + 1, value - 1):
            if other >= 0:
                new = (f"0x{other:0{len(digits) - 2}X}" if hexadecimal else str(other)) + suffix
                yield Change(match.start(), match.end(), new, f"{match.group()} became {new}")


def negations(text, code):
    for match in CONDITION.finditer(code):
        begin = match.end()
        end = closing_bracket(code, begin - 1)
        # A variable may be declared first; what comes behind it is the condition.
        begin = max(begin, code.rfind("; ", begin, end) + 2)
        condition = text[begin:end]
        if end is not None and not re.search(r"[^=!<>]=[^=]", code[begin:end]):
            yield Change(begin, end, f"!({condition})", f"{' '.join(condition.split())} negated")


def omissions(text, code):
    for match in STATEMENT.finditer(code):
        before = code[:match.start()].rstrip()
        statement = match.group(1)
        whole = statement.count("(") == statement.count(")")
        if whole and not SPEED.search(statement) and before[-1:] in tuple(";{}:"):
            begin, end = match.span(1)
            yield Change(begin, end, ";", f"{text[begin:end]} left out")


def changes_of(text):
    """Every change that can be made to a source file."""
    code = code_of(text)
    return [*replacements(text, code, OPERATOR, OPERATORS),
            *replacements(text, code, WORD, WORDS), *other_numbers(code),
            *negations(text, code), *omissions(text, code)]


def changed(text, change):
    return text[:change.begin] + change.replacement + text[change.end:]


def choose(texts, count, seed):
    """So many mutants of the files (a dictionary of their texts), spread over their lines."""
    dice = random.Random(seed)
    by_line = collections.defaultdict(list)
    for file, text in sorted(texts.items()):
        for change in changes_of(text):
            by_line[file, text.count("\n", 0, change.begin) + 1].append(change)
    lines = sorted(by_line.items())
    dice.shuffle(lines)
    for _, changes in lines:
        dice.shuffle(changes)
    longest = max((len(changes) for _, changes in lines), default=0)
    mutants = [Mutant(*where, changes[turn])
               for turn in range(longest) for where, changes in lines if turn < len(changes)]
    # File by file, so that little has to be compiled again when one is put back.
    return sorted(mutants[:count])


def run(command, limit=None, **options):
    """The exit status; None if it took longer than its limit (seconds)."""
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          stdin=subprocess.DEVNULL, start_new_session=True, **options) as process:
        try:
            return process.wait(limit)
        except subprocess.TimeoutExpired:
            return None
        finally:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)


class Room:
    """The sources of a room, how its test program is built and where it is."""

    def __init__(self, sources, build, program, patience=20):
        self.texts = {file: file.read_text() for file in sources}
        self.build = build
        self.program = program
        self.patience = patience  # seconds more than the unchanged program may need
        self.limit = None

    def test(self):
        environment = dict(os.environ, GTEST_FAIL_FAST="1", GTEST_BRIEF="1")
        return run([self.program], self.limit, cwd=self.program.parent, env=environment)

    def prepare(self):
        """Builds and tests what is not changed, and takes the time."""
        if run(self.build) != 0:
            sys.exit(f"cannot build it unchanged: {' '.join(map(str, self.build))}")
        began = time.monotonic()
        if self.test() != 0:
            sys.exit(f"the tests fail without a change: {self.program}")
        self.limit = self.patience + 10 * (time.monotonic() - began)

    def verdict(self, mutant):
        text = self.texts[mutant.file]
        try:
            mutant.file.write_text(changed(text, mutant.change))
            if run(self.build) != 0:
                return NOT_BUILT
            status = self.test()
        finally:
            mutant.file.write_text(text)
        return {0: SURVIVED, None: TOO_LONG}.get(status, KILLED)

    def hunt(self, count, seed, name=str):
        """Prints the survivors as they come, and the score. `name` tells how a file is called."""
        self.prepare()
        mutants = choose(self.texts, count, seed)
        score = collections.Counter()
        for mutant in mutants:
            verdict = self.verdict(mutant)
            score[verdict] += 1
            if verdict == SURVIVED:
                line = self.texts[mutant.file].splitlines()[mutant.line - 1].strip()
                print(f"{name(mutant.file)}:{mutant.line}: {mutant.change.what}:  {line}",
                      flush=True)
        print(f"{len(mutants)} changes: {score[KILLED] + score[TOO_LONG]} killed "
              f"({score[TOO_LONG]} of them by taking too long), {score[SURVIVED]} survived, "
              f"{score[NOT_BUILT]} did not build", flush=True)


def copy(source, target):
    """Makes `target` hold what `source` does, without touching files that are the same."""
    for folder, folders, files in os.walk(source):
        if folder == source:
            for names in (folders, files):
                names[:] = [name for name in names if name not in ("build", ".git")]
        here = os.path.join(target, os.path.relpath(folder, source))
        os.makedirs(here, exist_ok=True)
        for name in files:
            old, new = os.path.join(folder, name), os.path.join(here, name)
            if not os.path.exists(new) or not filecmp.cmp(old, new, shallow=False):
                shutil.copy(old, new)
        for name in set(os.listdir(here)) - {*files, *folders, "build"}:
            gone = os.path.join(here, name)
            shutil.rmtree(gone) if os.path.isdir(gone) else os.remove(gone)


def mutate_room(room, tree, count, seed, skip):
    tree = pathlib.Path(tree).resolve()
    skipped = {tree / file for file in skip}
    sources = set((tree / "src" / room).glob("*.cpp")) - skipped
    target = room.replace("/", "-") + "-tests"
    build = tree / "build" / "debug"
    # The tests of a room inside a room may be built by the outer one.
    folder = tree / "tests" / room
    if not (folder / "CMakeLists.txt").exists():
        folder = folder.parent
    Room(sources, ["ninja", "-C", build, target], build / folder.relative_to(tree) / target).hunt(
        count, seed, lambda file: file.relative_to(tree))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    actions = parser.add_subparsers(required=True)
    copying = actions.add_parser("copy")
    copying.add_argument("source")
    copying.add_argument("target")
    copying.set_defaults(act=copy)
    mutating = actions.add_parser("room")
    mutating.add_argument("room")
    mutating.add_argument("--tree", required=True)
    mutating.add_argument("--count", type=int, required=True)
    mutating.add_argument("--seed", type=int, required=True)
    mutating.add_argument("--skip", action="append", default=[])
    mutating.set_defaults(act=mutate_room)
    arguments = vars(parser.parse_args())
    arguments.pop("act")(**arguments)


if __name__ == "__main__":
    main()
