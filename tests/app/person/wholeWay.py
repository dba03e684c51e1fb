"""What the whole way through the program has to come to, however it is gone: what the files and the
controller hold at its end."""

import pathlib
import sys
import tempfile

from desk import Lost, Program, do, everything_in, find, until

BLOCK = 254
LAYERS = 4
CHANNELS, NUMBERS, MODES, CURVE, MODE, INTERVAL = 7, 87, 167, 247, 248, 249

SOLO = 9  # strip 3
PAD = 66  # the middle one of the pad editor
PAD_BLOCK = 2  # of pad layer 3

# What is changed on the way: bytes of the image and what they come to be.
EDITS = {
    MODES + SOLO: 0x4B,  # a control change that toggles
    CHANNELS + SOLO: 4,  # channel 5
    NUMBERS + SOLO: 64,  # sustain
    PAD_BLOCK * BLOCK + NUMBERS + PAD: 60,
    PAD_BLOCK * BLOCK + CHANNELS + PAD: 2,  # channel 3
    PAD_BLOCK * BLOCK + INTERVAL: 40,
    PAD_BLOCK * BLOCK + CURVE: 84,  # a constant velocity, the first one there is
}
SENTENCE = "Control change 64 Sustain, channel 5, toggle"


def start(go):
    """Starts the program named on the command line in a folder of its own, and goes the way."""
    with tempfile.TemporaryDirectory() as folder, Program([sys.argv[1]], folder) as program:
        go(program, folder)


def expect(right, what):
    if not right:
        raise Lost(what)


def preset(path):
    """The bytes of a preset file, which has one a line."""
    text = pathlib.Path(path).read_text(encoding="ascii")
    values = [int(line) for line in text.splitlines()]
    expect(len(values) == LAYERS * BLOCK, f"{path} has {len(values)} lines")
    expect(text == "".join(f"{value}\n" for value in values), f"{path} is written otherwise")
    return values


def wait_for_preset(path):
    until(lambda: pathlib.Path(path).stat().st_size > 0, f"{path} was not written")
    return preset(path)


def check_files(before, after):
    """The two differ in what was changed on the way and in nothing else."""
    expect(before[:7] == [0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, 1], "the file begins otherwise")
    for layer in range(LAYERS):
        expect(before[layer * BLOCK + MODE] == 0, "the mode is not User Defined")
    differences = {
        place: after[place] for place in range(LAYERS * BLOCK) if before[place] != after[place]
    }
    expect(differences == EDITS, f"{differences} was changed and not {EDITS}")


def held_by_controller(program):
    """The bytes of the four layers, read in the window of the simulated controller."""
    windows = [window for window in program.windows() if window.name == "Simulated Tormelk"]
    expect(len(windows) == 1, f"no simulated controller: {program.titles()}")
    window = windows[0]
    table = find(window, "table", "The layers it holds")
    dump = find(window, "text", "The bytes of the selected layer")
    held = []
    for layer in range(LAYERS):
        cells = [
            cell
            for cell in everything_in(table)
            if cell.getRoleName() == "table cell" and cell.name == str(layer + 1)
        ]
        do(cells[0], "Toggle")

        def line_of_layer(number=layer):
            content = dump.queryText().getText(0, -1)
            values = [int(word, 16) for line in content.splitlines() for word in line.split()[1:]]
            return values if len(values) == BLOCK and values[6] == number + 1 else None

        held += until(line_of_layer, f"the controller holds no layer {layer + 1}")
    return held


def check_controller(program, image):
    expect(held_by_controller(program) == image, "the controller holds something else")


def check_left_behind(folder, files):
    """Nothing but the presets is left where the program ran."""
    found = sorted(path.name for path in pathlib.Path(folder).iterdir())
    expect(found == sorted(files), f"{found} is left behind")
