#!/usr/bin/python3
"""byScreenReader.py PROGRAM: goes the whole way through the demo as a person who does not see the
screen, by what the accessibility bus tells and does."""

import os

import pyatspi

from desk import chosen, description, do, find, has, item, read, until
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


def press(window, role, name):
    """Presses something; what that opens is waited for by whoever needs it."""
    thing = find(window, role, name)
    until(lambda: has(thing, pyatspi.STATE_ENABLED), f"{name} is switched off")
    do(thing, "Press")


def choose(window, label, entry):
    """Chooses an entry in the box with this label, by its name."""
    box = find(window, "combo box", label)
    found = until(lambda: item(box, entry), f"no entry \"{entry}\" under {label}")
    do(found, "Press")
    until(lambda: chosen(box) == [entry], f"{entry} is not chosen under {label}")
    until(lambda: box.name.strip() == entry, f"the box {label} does not tell its choice")


def choose_from_menu(window, menu, entry):
    bar = find(window, "menu item", menu, into=("menu bar",))
    # Entries of a menu can be pressed without opening it.
    entries = [each for popup in bar for each in popup if each.name == entry]
    expect(len(entries) == 1, f"no {entry} in {menu}")
    do(entries[0], "Press")


def answer_panel(program, title, path, button):
    """Enters a path into a file panel and accepts it."""
    panel = program.window("dialog", title)
    field = find(panel, "text", "File name:")
    field.queryEditableText().setTextContents(path)
    find(panel, "combo box", "Files of type:")
    find(panel, "combo box", "Look in:")
    press(panel, "push button", button)


def save(program, path):
    choose_from_menu(program.window(*MAIN), "File", "Save Preset...")
    answer_panel(program, "Specify the Tormelk file name", path, "Save")
    program.window(*MAIN)
    return wait_for_preset(path)


def load(program, path):
    choose_from_menu(program.window(*MAIN), "File", "Load Preset...")
    answer_panel(program, "Open", path, "Open")


def change_assignment(main):
    press(main, "radio button", "Strip 3, Solo")
    solo = find(main, "radio button", "Strip 3, Solo")
    until(lambda: has(solo, pyatspi.STATE_CHECKED), "Strip 3, Solo is not selected")
    read(main, "Strip 3, Solo")
    read(main, "Layer 1")
    choose(main, "Message type", "CC")
    choose(main, "Channel", "5")
    choose(main, "Number", "64 Sustain")
    choose(main, "Trigger mode", "Toggle")
    read(main, SENTENCE)
    until(lambda: description(solo) == SENTENCE, "Strip 3, Solo does not tell what it sends")


def change_pads(program):
    press(program.window(*MAIN), "radio button", "Pad layer 3")
    editor = program.window("dialog", "Pad Editor")
    until(lambda: has(editor, pyatspi.STATE_MODAL), "the pad editor does not say it is modal")
    layer = find(editor, "radio button", "Pad layer 3")
    until(lambda: has(layer, pyatspi.STATE_CHECKED), "pad layer 3 is not the one edited")
    press(editor, "radio button", "Pad 5")
    pad = find(editor, "radio button", "Pad 5")
    until(lambda: has(pad, pyatspi.STATE_CHECKED), "Pad 5 is not selected")
    choose(editor, "Note", "4(C)")
    choose(editor, "Channel", "3")
    choose(editor, "Interval", "40 ms")
    choose(editor, "Velocity curve", "Const")
    press(editor, "push button", "Done")


def choose_device(program):
    press(program.window(*MAIN), "push button", "MIDI Devices...")
    dialog = program.window("dialog", "MIDI Devices")
    choose(dialog, "Input", "Tormelk MIDI 1")
    choose(dialog, "Output", "Tormelk MIDI 1")
    press(dialog, "push button", "OK")


def answer(program, title, text, button):
    alert = program.window("alert", title)
    read(alert, text)
    press(alert, "push button", button)


def go(program, folder):
    main = program.window(*MAIN)
    choose(main, "DAW mode", "User Defined Mode")
    before = save(program, os.path.join(folder, "before.Tormelk"))
    change_assignment(main)
    change_pads(program)
    after = save(program, os.path.join(folder, "after.Tormelk"))
    check_files(before, after)

    choose(main, "Channel", "9")
    load(program, os.path.join(folder, "before.Tormelk"))
    question = "Your changes on User-Defined Mode hasn't been saved.\n\nLoad file continue?"
    answer(program, "Confirm", question, "OK")
    main = program.window(*MAIN)
    solo = find(main, "radio button", "Strip 3, Solo")
    until(lambda: description(solo).startswith("Note 10"), "the load is not told")
    load(program, os.path.join(folder, "after.Tormelk"))
    main = program.window(*MAIN)
    until(lambda: description(solo) == SENTENCE, "the second load is not told")
    again = save(program, os.path.join(folder, "again.Tormelk"))
    expect(again == after, "what was loaded is not what was saved")

    choose_device(program)
    main = program.window(*MAIN)
    read(main, "Tormelk MIDI 1")
    press(main, "push button", "Send")
    answer(program, "Tormelk Wyro", "Send Done", "OK")
    main = program.window(*MAIN)
    read(main, "Sent 4 layers to Tormelk MIDI 1")
    check_controller(program, after)
    status = program.end_by(lambda: choose_from_menu(main, "File", "Quit"))
    expect(status == 0, "the program ended with a failure")
    check_left_behind(folder, ["before.Tormelk", "after.Tormelk", "again.Tormelk"])


if __name__ == "__main__":
    start(go)
