"""What a person perceives of a program: its windows and what is in them, read from the accessibility
bus. Everything is found by its role and its name, never by its place."""

import subprocess
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # seconds for anything to happen, on a machine that does other things, too
COUNTLESS = ("combo box", "table", "tree", "menu bar", "list")  # not looked through for others


class Lost(Exception):
    """Something is not there, or did not happen."""


def until(wanted, what):
    """The first true value of `wanted()`; what vanishes while it is looked at is looked for anew."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            value = wanted()
            if value:
                return value
        except (GLib.Error, LookupError, NotImplementedError, AttributeError, RuntimeError):
            pass
        if time.monotonic() > end:
            raise Lost(what() if callable(what) else what)
        time.sleep(0.02)


def has(thing, state):
    return thing.getState().contains(state)


def is_shown(thing):
    return has(thing, pyatspi.STATE_SHOWING)


def children(thing):
    return [child for child in (thing.getChildAtIndex(i) for i in range(thing.childCount)) if child]


def everything_in(thing, into=()):
    """What is shown in a thing, itself not included."""
    for child in children(thing):
        if not is_shown(child):
            continue
        yield child
        role = child.getRoleName()
        if role not in COUNTLESS or role in into:
            yield from everything_in(child, into)


def names_of(thing):
    """Its own name and those of its labels."""
    names = {thing.name}
    for relation in thing.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            names.update(relation.getTarget(i).name for i in range(relation.getNTargets()))
    return names


def description(thing):
    return thing.description


def describe(window):
    """For whoever reads why a test failed."""
    lines = []
    for thing in everything_in(window):
        states = [pyatspi.stateToString(s) for s in thing.getState().getStates()]
        lines.append(f"  {thing.getRoleName()} {names_of(thing)} {thing.description!r} {states}")
    return "\n".join(lines)


class Program:
    """A program that was started, and its windows."""

    def __init__(self, command, folder):
        pyatspi.Registry.getDesktop(0).setCacheMask(pyatspi.Atspi.Cache.NONE)
        self.process = subprocess.Popen(command, cwd=folder)
        self.application = until(self._find, "the program does not appear on the bus")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def _find(self):
        if self.process.poll() is not None:
            raise Lost(f"the program ended with {self.process.returncode}")
        for application in children(pyatspi.Registry.getDesktop(0)):
            if application.get_process_id() == self.process.pid:
                return application
        return None

    def windows(self):
        return [window for window in children(self.application) if is_shown(window)]

    def window(self, role, title):
        """The window with this title, once it is there and has the focus."""

        def find():
            for window in self.windows():
                if (window.getRoleName(), window.name.rstrip("*")) == (role, title):
                    return window if has(window, pyatspi.STATE_ACTIVE) else None
            return None

        return until(find, lambda: f"no {role} \"{title}\": {self.titles()}")

    def titles(self):
        return [
            (window.getRoleName(), window.name, has(window, pyatspi.STATE_ACTIVE))
            for window in self.windows()
        ]

    def wait_for_end(self):
        """The exit status."""
        return self.process.wait(PATIENCE)

    def end_by(self, way):
        """The exit status after `way()`, which makes the program end and may get no answer then."""
        try:
            way()
        except GLib.Error:
            until(lambda: self.process.poll() is not None, "the program gave no answer and goes on")
        return self.wait_for_end()


def find(window, role, name, into=()):
    """The one thing of this role and name in a window."""

    def look():
        found = [
            thing
            for thing in everything_in(window, into)
            if thing.getRoleName() == role and name in names_of(thing)
        ]
        return found[0] if len(found) == 1 else None

    return until(look, lambda: f"not one {role} \"{name}\" in\n{describe(window)}")


def read(window, text):
    """Waits until a label with this text can be read in the window."""
    find(window, "label", text)


def focused(window):
    """What has the focus in a window; none while nothing has."""
    for thing in everything_in(window, ("combo box", "list")):
        holds_it = thing.getRoleName() in ("panel", "list")  # for what is in it
        if not holds_it and has(thing, pyatspi.STATE_FOCUSED):
            return thing
    return None


def item(box, name):
    """An entry of a box's list, shown or not."""
    lists = [child for child in children(box) if child.getRoleName() == "list"]
    entries = [entry for each in lists for entry in children(each) if entry.name.strip() == name]
    return entries[0] if len(entries) == 1 else None


def chosen(box):
    """The names of the entries that count as chosen."""
    lists = [child for child in children(box) if child.getRoleName() == "list"]
    return [
        entry.name.strip()
        for each in lists
        for entry in children(each)
        if has(entry, pyatspi.STATE_SELECTED)
    ]


def do(thing, action):
    """Has a thing do what it offers under this name."""
    offered = thing.queryAction()
    names = [offered.getName(i) for i in range(offered.nActions)]
    if action not in names:
        raise Lost(f"{thing.getRoleName()} \"{thing.name}\" offers {names}, not {action}")
    offered.doAction(names.index(action))
