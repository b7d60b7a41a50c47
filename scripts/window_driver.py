"""Drives a program in a window with keys and mouse, as a user does. Where a control is, is asked of the
accessibility interface, so that nothing depends on places in pixels; clicks and keys are real, by xdotool."""
import os
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

SHOWING = Atspi.StateType.SHOWING
TABLES = ("table", "tree table", "list")


class Failed(Exception):
    pass


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def wait_until(what, sign, seconds=20):
    """The first true value of the sign; fails with what was waited for."""
    end = time.monotonic() + seconds
    while True:
        try:
            value = sign()
        except GLib.Error:  # it went while it was looked at
            value = None
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"{what} did not come within {seconds} s")
        time.sleep(0.1)


class Driver:
    def __init__(self, arguments, pictures, log):
        self.pictures = pictures
        self.number = 0
        self.process = subprocess.Popen(arguments, stdout=log, stderr=log)

    # ---- looking

    def windows(self):
        """The program's windows, the one that is worked in first: the newest, or the one that is active."""
        desktop = Atspi.get_desktop(0)
        found = []
        for number in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(number)
            if program is None or program.get_process_id() != self.process.pid:
                continue
            for place in range(program.get_child_count()):
                window = program.get_child_at_index(place)
                if window is not None and window.get_state_set().contains(SHOWING):
                    found.append(window)
        found.sort(key=lambda window: not window.get_state_set().contains(Atspi.StateType.ACTIVE))
        return found

    def title(self):
        """Of the active window, as the window manager knows it."""
        return run("xdotool", "getactivewindow", "getwindowname").strip()

    def walk(self, control):
        if control is None or not control.get_state_set().contains(SHOWING):
            return
        yield control
        if control.get_role_name() in TABLES:
            return
        for number in range(control.get_child_count()):
            yield from self.walk(control.get_child_at_index(number))

    def controls(self, role, pattern):
        """Those on view of that role whose name the pattern fits, in all windows, the active one's first."""
        return [
            control
            for window in self.windows()
            for control in self.walk(window)
            # The key of a menu's entry stands behind a tabulator.
            if control.get_role_name() == role
            and re.fullmatch(pattern, control.get_name().split("\t")[0].replace("\n", " "))
        ]

    def find(self, role, pattern, seconds=20):
        return wait_until(f"a {role} {pattern!r}", lambda: next(iter(self.controls(role, pattern)), None), seconds)

    def text_of(self, control):
        return Atspi.Text.get_text(control, 0, Atspi.Text.get_character_count(control))

    def wait_text(self, pattern, seconds=20):
        """A label on view that fits; its text."""
        return self.find("label", pattern, seconds).get_name()

    def cells(self, table):
        """Rows of texts, without headers; the places of the cells are asked with cell()."""
        columns, rows = Atspi.Table.get_n_columns(table), Atspi.Table.get_n_rows(table)
        return [
            [Atspi.Table.get_accessible_at(table, row, column).get_name() for column in range(columns)]
            for row in range(rows)
        ]

    def cell(self, table, row, column):
        return Atspi.Table.get_accessible_at(table, row, column)

    def heading(self, caption):
        """Of a column of a table on view."""

        def look():
            for table in self.controls("table", ".*") + self.controls("tree table", ".*"):
                for place in range(Atspi.Table.get_n_columns(table) + 1):
                    child = table.get_child_at_index(place)
                    if child.get_role_name() == "table column header" and child.get_name() == caption:
                        return child
            return None

        return wait_until(f"a table with a column {caption!r}", look)

    def table_with(self, caption):
        """The table on view that has a column of that caption."""
        return self.heading(caption).get_parent()

    # ---- doing

    def click(self, control, times=1, button=1):
        place = control.get_extents(Atspi.CoordType.SCREEN)
        if place.width <= 0 or place.height <= 0:
            raise Failed(f"{control.get_role_name()} {control.get_name()!r} is out of sight")
        # Of a box with a caption, and of a cell, the near end is what is sure to be there.
        inset = min(place.width // 2, 40)
        run("xdotool", "mousemove", str(place.x + inset), str(place.y + place.height // 2))
        run("xdotool", "click", "--repeat", str(times), "--delay", "60", str(button))
        time.sleep(0.15)

    def press(self, pattern, role="push button"):
        control = self.find(role, pattern)
        wait_until(f"{pattern!r} to be enabled",
                   lambda: control.get_state_set().contains(Atspi.StateType.ENABLED))
        self.click(control)

    def page(self, name):
        self.press(re.escape(name), "page tab")

    def key(self, *keys):
        run("xdotool", "key", "--delay", "40", *keys)
        time.sleep(0.15)

    def type(self, text):
        run("xdotool", "type", "--delay", "15", text)
        time.sleep(0.15)

    def fill(self, control, text):
        self.click(control)
        self.key("ctrl+a")
        self.type(text)

    def menu(self, name, entry):
        self.press(name, "menu item")
        self.press(entry, "menu item")

    def picture(self, name):
        self.number += 1
        time.sleep(0.3)
        file = os.path.join(self.pictures, f"{self.number:02} {name}.png")
        run("import", "-window", "root", "-colors", "128", file)
        if not os.path.exists(file) or os.path.getsize(file) < 2000:
            raise Failed(f"there is no picture {file}")
