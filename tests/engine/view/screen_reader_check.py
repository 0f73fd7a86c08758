"""Reads a view as a screen reader does, through the accessibility bus. Usage: screen_reader_check.py HOST

A user presses real keys; what the bus says of the caret, its line, word and character is compared with what stands there.
"""

import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # seconds that a machine which is busy elsewhere may take


class Failure(Exception):
    pass


def check(what, seen, wanted):
    if seen != wanted:
        raise Failure(f"{what}: {seen!r} instead of {wanted!r}")


def wait_for(what, found):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = found()
        if result:
            return result
        # Events of the bus are delivered in the main loop.
        GLib.MainContext.default().iteration(False)
        time.sleep(0.02)
    raise Failure(f"waited in vain: {what}")


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    for index in range(desktop.childCount):
        child = desktop.getChildAtIndex(index)
        if child and child.name == "accessible_host":
            return child
    return None


def named(node, name):
    if node.name == name and "Text" in pyatspi.listInterfaces(node):
        return node
    for index in range(node.childCount):
        child = node.getChildAtIndex(index)
        found = child and named(child, name)
        if found:
            return found
    return None


def press(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


class Reader:
    """Keeps what the bus tells, and asks for more."""

    def __init__(self, view):
        self.view = view
        self.text = view.queryText()
        self.events = []
        for kind in ("object:text-caret-moved", "object:text-changed", "object:text-selection-changed"):
            pyatspi.Registry.registerEventListener(self.take, kind)

    def take(self, event):
        if event.source == self.view:
            self.events.append((str(event.type), event.detail1, event.detail2, event.any_data))

    def heard(self, beginning):
        return [event for event in self.events if event[0].startswith(beginning)]

    def caret_comes_to(self, offset):
        wait_for(f"the caret at {offset}, it is at {self.text.caretOffset}, told {self.events}",
                 lambda: self.text.caretOffset == offset
                 and any(event[1] == offset for event in self.heard("object:text-caret-moved")))

    def at_caret(self, boundary):
        return self.text.getTextAtOffset(self.text.caretOffset, boundary)

    def says(self, line, word, character):
        check("line", self.at_caret(pyatspi.TEXT_BOUNDARY_LINE_START), line)
        check("word", self.at_caret(pyatspi.TEXT_BOUNDARY_WORD_START), word)
        check("character", self.at_caret(pyatspi.TEXT_BOUNDARY_CHAR), character)


def attributes_at(text, offset):
    pairs, start, end = text.getAttributes(offset)
    return dict(pair.strip().split(":", 1) for pair in pairs.split(";") if pair.strip()), start, end


def read(view):
    check("role", view.getRole() in (pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY), True)
    states = view.getState()
    for state in (pyatspi.STATE_EDITABLE, pyatspi.STATE_MULTI_LINE, pyatspi.STATE_FOCUSABLE):
        check(f"state {state}", states.contains(state), True)
    wait_for("the focus", lambda: view.getState().contains(pyatspi.STATE_FOCUSED))

    reader = Reader(view)
    text = reader.text
    check("characters", text.characterCount, 41)
    check("text", text.getText(0, -1), "First line here\r\nsecond bold words\r\nthird")

    # A user walks through the text.
    press("Right")
    reader.caret_comes_to(1)
    reader.says(("First line here\r\n", 0, 17), ("First ", 0, 6), ("i", 1, 2))
    press("Down")
    wait_for("the second line", lambda: 17 <= text.caretOffset < 36)
    press("Home", "ctrl+Right")
    reader.caret_comes_to(24)
    reader.says(("second bold words\r\n", 17, 36), ("bold ", 24, 29), ("b", 24, 25))

    # What it looks like, and where it is.
    seen, start, end = attributes_at(text, 25)
    check("extent of the bold text", (start, end), (24, 28))
    check("weight", seen.get("weight") in ("bold", "700"), True)  # later versions of Qt say the number
    check("size", seen.get("size"), "12")
    check("font", "Liberation Sans" in seen.get("family-name", ""), True)
    x, y, width, height = text.getCharacterExtents(25, pyatspi.DESKTOP_COORDS)
    check("the character has an extent", width > 0 and height > 0, True)
    check("character at its place", text.getOffsetAtPoint(x + width // 2, y + height // 2, pyatspi.DESKTOP_COORDS), 25)

    # What is selected and typed is told.
    press("shift+End")
    wait_for("a selection", lambda: text.getNSelections() == 1 and reader.heard("object:text-selection-changed"))
    check("selection", text.getSelection(0), (24, 34))
    press("x")
    wait_for("the typed letter", lambda: text.getText(17, 25) == "second x")
    wait_for("the news of it", lambda: any(event[1] == 24 and event[3] == "x"
                                           for event in reader.heard("object:text-changed:insert")))
    check("what it replaced", [event[3] for event in reader.heard("object:text-changed:delete")], ["bold words"])

    # The reader moves the caret itself, and writes.
    check("moved", text.setCaretOffset(3), True)
    reader.caret_comes_to(3)
    view.queryEditableText().insertText(0, "> ", 2)
    wait_for("what the reader wrote", lambda: text.getText(0, 7) == "> First")


def main():
    host = subprocess.Popen([sys.argv[1]])
    try:
        program = wait_for("the program on the bus", application)
        view = wait_for("its view", lambda: named(program, "Report"))
        read(view)
    except Failure as failure:
        print(failure)
        return 1
    finally:
        host.terminate()
        host.wait()
    print("the view reads well")
    return 0


if __name__ == "__main__":
    sys.exit(main())
