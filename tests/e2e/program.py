"""The program as it is seen through the accessibility bus and worked from outside."""
import os
import subprocess
import time

import gi

os.environ["ATSPI_NO_CACHE"] = "1"  # every answer is asked anew
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402  its version is chosen first

BY_MOUSE = "DISPLAY" in os.environ


class Fault(Exception):
    """What a user would have noticed."""


def wait(what, condition, seconds=20):
    """The first true answer of `condition`; what can't be asked yet is not so yet."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        error = ""
        try:
            if answer := condition():
                return answer
        except (RuntimeError, OSError, AttributeError) as not_yet:  # GLib.Error is the first
            error = f" ({not_yet!r})"
        time.sleep(0.01)
    raise Fault(f"not within {seconds} s: {what}{error}")


def children(thing):
    return [one for one in map(thing.get_child_at_index, range(thing.get_child_count())) if one]


def has(thing, state):
    return thing.get_state_set().contains(getattr(Atspi.StateType, state.upper()))


def label(thing):
    """What a user calls it: its label, else its own name."""
    labels = [relation for relation in thing.get_relation_set()
              if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY]
    return (labels[0].get_target(0) if labels else thing).get_name()


def shown(thing, entries=False):
    """It and all below it that shows; what lists hold only where that is asked for."""
    yield thing
    lists = () if entries else ("table", "combo box")
    for child in children(thing) if thing.get_role_name() not in lists else ():
        if has(child, "showing"):
            yield from shown(child, entries)


def seen():
    """All that shows in all windows, a line each."""
    for program in children(Atspi.get_desktop(0)):
        for one in shown(program, entries=True):
            states = [state for state in ("enabled", "focused", "checked") if has(one, state)]
            yield f"{one.get_role_name()} {label(one)!r} {one.get_name()!r} {states}\n"


def box(thing):
    return Atspi.Component.get_extents(thing, Atspi.CoordType.SCREEN)


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, timeout=20)


def click(thing):
    at = box(thing)
    xdotool("mousemove", at.x + at.width // 2, at.y + at.height // 2, "click", 1)


class Program:
    """One run of a command line."""

    def __init__(self, *words):
        env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        with open(os.environ["E2E_FOLDER"] + "/program.log", "ab") as log:
            self.process = subprocess.Popen(words, env=env, stdout=log, stderr=log)
        self.root = wait("its window shows", self.find_root)

    def find_root(self):
        if self.process.poll() is not None:
            raise Fault(f"the program ended by itself with {self.process.returncode}")
        return next((one for one in children(Atspi.get_desktop(0))
                     if one.get_process_id() == self.process.pid and children(one)), None)

    def windows(self):
        return [window.get_name() for window in children(self.root) if has(window, "showing")]

    def find(self, role, name):
        """The one control of that role and label that shows."""
        found = wait(f"there is a {role} {name!r}", lambda: [
            one for one in shown(self.root) if one.get_role_name() == role and label(one) == name])
        if len(found) > 1:
            raise Fault(f"{len(found)} times: {role} {name!r}")
        return found[0]

    def enabled(self, *names):
        return [name for name in names if has(self.find("push button", name), "enabled")]

    def checked(self, name):
        return has(self.find("check box", name), "checked")

    def text(self, name):
        return Atspi.Text.get_text(self.find("text", name), 0, -1)

    def press(self, name, role="push button"):
        control = self.find(role, name)
        wait(f"{name!r} is enabled", lambda: has(control, "enabled"))
        click(control) if BY_MOUSE else control.do_action(0)

    def write(self, name, text):
        field = self.find("text", name)
        if BY_MOUSE:
            click(field)
            wait(f"{name!r} has the focus", lambda: has(field, "focused"))
            xdotool("key", "ctrl+a", "type", text)
        else:
            Atspi.EditableText.set_text_contents(field, text)
        wait(f"{name!r} holds {text!r}", lambda: self.text(name) == text)

    def choose(self, name, entry):
        """Picks an entry of a combo box by keys."""
        combo = self.find("combo box", name)
        entries = [one.get_name() for one in children(combo.get_child_at_index(0))]
        click(combo)
        xdotool("key", "Home", *["Down"] * entries.index(entry), "Return")
        wait(f"{name!r} is {entry!r}", lambda: combo.get_name() == entry)

    def boxes(self):
        """The check box of each file by its name; a row of a group has one text in all cells."""
        table = self.find("table", "Files").get_table_iface()
        rows = [[table.get_accessible_at(row, column) for column in (0, 4, 5)]
                for row in range(table.get_n_rows())]
        return {name.get_name(): box for path, box, name in rows
                if name.get_name() != path.get_name()}

    def close(self):
        """By the window manager."""
        xdotool("key", "alt+F4")
        self.wait_for_end()

    def wait_for_end(self):
        if ended := self.process.wait(60):
            raise Fault(f"the program ended with {ended}")
