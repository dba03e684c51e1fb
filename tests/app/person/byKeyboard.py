#!/usr/bin/python3
"""byKeyboard.py PROGRAM: goes the whole way through the demo as a person without a mouse. The keys
come from the display, as those of a keyboard do; the accessibility bus only tells what is seen."""

import os
import subprocess

import pyatspi

from desk import chosen, description, find, focused, has, names_of, read, until
from wholeWay import (
    SENTENCE,
    check_controller,
    check_files,
    check_left_behind,
    expect,
    start,
    wait_for_preset,
)

MAIN = ("frame", "Tormelk Wyro")
MOST_TABS = 40  # there are fewer stops in every window


def key(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


def focus_of(window):
    """What has the focus, once something has."""
    return until(lambda: focused(window), f"nothing in {window.name} has the focus")


def is_at(window, role, name):
    thing = focused(window)
    return thing is not None and thing.getRoleName() == role and name in names_of(thing)


def wait_at(window, role, name):
    until(
        lambda: is_at(window, role, name),
        lambda: f"{names_of(focus_of(window))} has the focus, not {role} \"{name}\"",
    )


def press_and_wait_at(window, keys, role, name):
    key(keys)
    wait_at(window, role, name)


def tab_to(window, role, name, keys="Tab"):
    """Presses Tab until the focus is where it is wanted."""
    seen = []
    for _ in range(MOST_TABS):
        before = focus_of(window)
        if is_at(window, role, name):
            return before
        seen.append(names_of(before))
        key(keys)
        until(lambda old=before: focus_of(window) != old, f"{keys} leads nowhere from {seen[-1]}")
    raise AssertionError(f"Tab leads to {seen} and never to {role} \"{name}\"")


def pick_by_typing(window, label, typed, entry):
    """Looks for an entry by its first letters and takes it."""
    box = tab_to(window, "combo box", label)
    write(typed)
    # The open list has the focus, at what was found, and nothing is chosen before Enter.
    until(lambda: is_at(window, "list item", entry), f"\"{typed}\" does not find \"{entry}\"")
    key("Return")
    until(lambda: chosen(box) == [entry], f"{entry} is not chosen under {label}")
    wait_at(window, "combo box", label)


def enter_path(program, title, path):
    panel = program.window("dialog", title)
    wait_at(panel, "text", "File name:")
    key("ctrl+a")
    write(path)
    field = find(panel, "text", "File name:")
    until(lambda: field.queryText().getText(0, -1) == path, f"{path} was not taken")
    key("Return")


def save(program, path):
    key("ctrl+s")
    enter_path(program, "Specify the Tormelk file name", path)
    program.window(*MAIN)
    return wait_for_preset(path)


def change_assignment(main):
    tab_to(main, "radio button", "Strip 1, Select")
    press_and_wait_at(main, "Right", "radio button", "Strip 2, Select")
    press_and_wait_at(main, "Right", "radio button", "Strip 3, Select")
    press_and_wait_at(main, "Down", "radio button", "Strip 3, Solo")
    read(main, "Strip 3, Solo")
    read(main, "Layer 1")
    pick_by_typing(main, "Message type", "cc", "CC")
    pick_by_typing(main, "Channel", "5", "5")
    pick_by_typing(main, "Number", "sus", "64 Sustain")
    trigger = tab_to(main, "combo box", "Trigger mode")
    key("Down")
    until(lambda: chosen(trigger) == ["Toggle"], "the arrow key does not choose Toggle")
    read(main, SENTENCE)


def change_pads(program):
    main = program.window(*MAIN)
    tab_to(main, "radio button", "Strip 3, Solo", "shift+Tab")
    key("alt+3")
    editor = program.window("dialog", "Pad Editor")
    tab_to(editor, "radio button", "Pad 1")
    key("Right")
    key("Down")
    pad = find(editor, "radio button", "Pad 5")
    until(lambda: has(pad, pyatspi.STATE_CHECKED), "Pad 5 is not selected")
    pick_by_typing(editor, "Note", "60", "4(C)")
    pick_by_typing(editor, "Channel", "3", "3")
    pick_by_typing(editor, "Interval", "40", "40 ms")
    pick_by_typing(editor, "Velocity curve", "con", "Const")
    key("Escape")
    program.window(*MAIN)


def load(program, path):
    key("ctrl+o")
    enter_path(program, "Open", path)


def answer(program, title, text):
    """The button that is highlighted, by Enter."""
    alert = program.window("alert", title)
    read(alert, text)
    wait_at(alert, "push button", "OK")
    key("Return")


def choose_device(program):
    key("ctrl+m")
    dialog = program.window("dialog", "MIDI Devices")
    pick_by_typing(dialog, "Input", "tor", "Tormelk MIDI 1")
    pick_by_typing(dialog, "Output", "tor", "Tormelk MIDI 1")
    key("Return")
    program.window(*MAIN)


def go(program, folder):
    main = program.window(*MAIN)
    wait_at(main, "combo box", "DAW mode")
    pick_by_typing(main, "DAW mode", "user", "User Defined Mode")
    before = save(program, os.path.join(folder, "before.Tormelk"))
    change_assignment(program.window(*MAIN))
    change_pads(program)
    after = save(program, os.path.join(folder, "after.Tormelk"))
    check_files(before, after)

    main = program.window(*MAIN)
    pick_by_typing(main, "Channel", "9", "9")
    load(program, os.path.join(folder, "before.Tormelk"))
    question = "Your changes on User-Defined Mode hasn't been saved.\n\nLoad file continue?"
    answer(program, "Confirm", question)
    main = program.window(*MAIN)
    solo = find(main, "radio button", "Strip 3, Solo")
    until(lambda: description(solo).startswith("Note 10"), "the load is not told")
    load(program, os.path.join(folder, "after.Tormelk"))
    main = program.window(*MAIN)
    until(lambda: description(solo) == SENTENCE, "the second load is not told")
    again = save(program, os.path.join(folder, "again.Tormelk"))
    expect(again == after, "what was loaded is not what was saved")

    program.window(*MAIN)
    choose_device(program)
    key("ctrl+Return")
    answer(program, "Tormelk Wyro", "Send Done")
    main = program.window(*MAIN)
    read(main, "Sent 4 layers to Tormelk MIDI 1")
    check_controller(program, after)
    key("ctrl+q")
    expect(program.wait_for_end() == 0, "the program ended with a failure")
    check_left_behind(folder, ["before.Tormelk", "after.Tormelk", "again.Tormelk"])


if __name__ == "__main__":
    start(go)
