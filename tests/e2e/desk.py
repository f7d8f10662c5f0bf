"""The real program in a real window, seen and worked from outside: the accessibility bus tells
what stands where, and the display passes on what mouse and keyboard do."""

import json
import os
import subprocess
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PROGRAM = os.environ["QUENORIA_PROGRAM"]
HOME = Path(os.environ["HOME"])
PICTURES = Path(os.environ["QUENORIA_PICTURES"])
LIMIT = 30  # seconds that one step may take, also with the sanitizers
GLANCE = 0.03  # seconds between two looks
DOUBLE_CLICK = 0.5  # seconds within which a second click on one place is no click of its own

State, Role = Atspi.StateType, Atspi.Role
LISTS = (Role.TABLE, Role.TREE, Role.TREE_TABLE, Role.LIST)
CONTROLS = (Role.PUSH_BUTTON, Role.CHECK_BOX, Role.TEXT, Role.COMBO_BOX, Role.MENU_ITEM,
            Role.CHECK_MENU_ITEM)


def until(what, look, limit=LIMIT):
    """Looks until there is something to return: the program changes while it is looked at."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        try:
            if found := look():
                return found
        except (GLib.Error, OSError, LookupError, StopIteration, json.JSONDecodeError):
            pass
        time.sleep(GLANCE)
    subprocess.run(["import", "-window", "root", PICTURES / "e2e-en-vain.png"], check=False)
    raise AssertionError(f"Attendu en vain : {what}")


def act(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, timeout=LIMIT)


def key(*names):
    act("key", "--delay", "4", *names)


last_click = {}  # by place, when


def click(node):
    box = node.get_extents(Atspi.CoordType.SCREEN)
    place = (box.x + box.width // 2, box.y + box.height // 2)
    time.sleep(max(0, last_click.get(place, 0) + DOUBLE_CLICK - time.monotonic()))
    act("mousemove", *place, "click", 1)
    last_click[place] = time.monotonic()


def has(node, state):
    return node.get_state_set().contains(state)


def children(node):
    every = map(node.get_child_at_index, range(node.get_child_count()))
    return [child for child in every if child]


def walk(node):
    """All that is shown, from a node on; lists are not entered."""
    yield node
    for child in children(node) if node.get_role() not in LISTS else ():
        if has(child, State.SHOWING):
            yield from walk(child)


def entries(node):
    """The entries of the menus, closed as they are."""
    for child in children(node) if node.get_role() not in LISTS else ():
        if child.get_role() == Role.MENU_ITEM:
            yield child
        yield from entries(child)


def named(nodes, name):
    """The first whose name begins so."""
    return next(node for node in nodes if node.get_name().startswith(name))


def place_of(names, name):
    return next(place for place, found in enumerate(names) if found.startswith(name))


class Program:
    """One run of the program on a data folder."""

    def __init__(self, data, *options):
        self.data = Path(data)
        desktop = Atspi.get_desktop(0)  # the bus must be there before the program looks for it
        self.process = subprocess.Popen([PROGRAM, "--data-dir", data, *options])
        self.application = until("le programme", lambda: next(
            application for application in children(desktop)
            if application.get_process_id() == self.process.pid))
        self.application.set_cache_mask(Atspi.Cache.NONE)
        until("sa fenêtre", self.front)

    def file(self, name):
        return json.loads((self.data / f"{name}.json").read_text())

    def front(self):
        """The window that has the keyboard."""
        return next(top for top in children(self.application) if has(top, State.ACTIVE))

    def until_front(self, title):
        return until(f"la fenêtre « {title} »", lambda: named([self.front()], title))

    def find(self, name, roles=CONTROLS):
        """What stands in front under that beginning of a name."""
        return until(f"« {name} »", lambda: named(
            (node for node in walk(self.front()) if node.get_role() in roles), name))

    def press(self, name):
        """A button, or the menu entry of a command for which the window has no room."""
        def look():
            controls = (node for node in walk(self.front()) if node.get_role() in CONTROLS)
            found = next((node for node in controls if node.get_name().startswith(name)), None)
            return found or named(entries(self.front()), name)

        node = until(f"« {name} »", look)
        until(f"« {name} » disponible", lambda: has(node, State.ENABLED))
        if node.get_role() == Role.MENU_ITEM and not has(node, State.SHOWING):
            node.get_action_iface().do_action(0)
        else:
            click(node)

    def read(self, text):
        return self.find(text, (Role.LABEL, Role.ALERT, Role.DIALOG))

    def type(self, field, text):
        node = self.find(field, (Role.TEXT,))
        click(node)
        key("ctrl+a")
        act("type", "--delay", "4", text)
        until(f"« {text} » dans « {field} »", lambda: Atspi.Text.get_text(node, 0, -1) == text)

    def choose(self, path, panel):
        """Types a path into a file panel."""
        self.until_front(panel)
        act("type", "--delay", "4", path)
        key("Return")
        until(f"la fin de « {panel} »", lambda: self.front().get_name() != panel)

    def table(self):
        return self.find("Contacts", LISTS)

    def column(self, header):
        headers = map(self.table().get_column_header, range(self.table().get_n_columns()))
        return place_of((found.get_name() for found in headers), header)

    def contacts(self):
        """The rows in their order, as they are read aloud."""
        table, column = self.table(), self.column("Contact")
        return [table.get_accessible_at(row, column).get_name().removeprefix("Contact : ")
                for row in range(table.get_n_rows())]

    def place(self, contact, header):
        return place_of(self.contacts(), contact), self.column(header)

    def cell(self, contact, header):
        return self.table().get_accessible_at(*self.place(contact, header))

    def go(self, contact, header):
        """To a cell, with the keyboard alone."""
        self.until_front("Quenoria")
        row, column = until(contact, lambda: self.place(contact, header))
        key("ctrl+f", "Tab", "ctrl+Home", *["Down"] * row, *["Right"] * column)
        until(f"{header} de {contact}", lambda: has(self.cell(contact, header), State.FOCUSED))

    def use(self, contact, header):
        self.go(contact, header)
        key("space")

    def until_cell(self, contact, header, *texts):
        """Until a screen reader would say those texts."""
        until(f"{texts} dans {header} de {contact}", lambda: all(
            text in self.cell(contact, header).get_name() for text in texts))

    def quit(self):
        self.until_front("Quenoria")
        key("ctrl+q")
        return self.process.wait(LIMIT)

    def kill(self):
        self.process.kill()
        self.process.wait(LIMIT)
