"""The window as a screen reader meets it: names, roles, states and presses through the accessibility bus. Import it
when the environment is that of the desktop under test."""

import contextlib

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from desktop import wait_until  # noqa: E402

Atspi.init()
Atspi.set_timeout(60000, 60000)  # milliseconds: a program that is slow to reply is not gone


def _all_below(node):
    """Every element below the node; one that goes away meanwhile is left out."""
    try:
        children = [node.get_child_at_index(index) for index in range(node.get_child_count())]
    except GLib.Error:
        return
    for child in filter(None, children):
        yield child
        yield from _all_below(child)


def _role_name(node):
    """The same in all releases: newer ones say "button" for short."""
    name = node.get_role_name()
    return "push button" if name == "button" else name


def _matches(node, role, name):
    try:
        found = node.get_name() or ""
        return (role is None or _role_name(node) == role) and found.startswith(name)
    except GLib.Error:
        return False


def _press(node):
    actions = node.get_action_iface()
    names = [actions.get_action_name(index) for index in range(actions.get_n_actions())]
    actions.do_action(names.index("Press"))


class Application:
    def __init__(self, name, program):
        self._name = name
        self._program = program

    def _root(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        with contextlib.suppress(GLib.Error):  # one has just ended
            for index in range(desktop.get_child_count()):
                child = desktop.get_child_at_index(index)
                if child and child.get_name() == self._name:
                    child.clear_cache()
                    return child
        return None

    def elements(self, role=None, name=""):
        """Those that show now, of the role, with names that begin so."""
        root = self._root()
        return [node for node in _all_below(root) if _matches(node, role, name) and is_showing(node)] if root else []

    def wait_for(self, role, name, gone=False):
        if gone:
            return wait_until(lambda: self._root() and not self.elements(role, name), f"end of {role} {name!r}", self._program)
        return wait_until(lambda: self.elements(role, name), f"{role} {name!r}", self._program)[0]

    def press(self, name, role="push button"):
        """Presses through the accessibility interface, as assistive technology does."""
        _press(self.wait_for(role, name))

    def press_if_shown(self, name, role="push button"):
        """Tells whether it was there."""
        found = self.elements(role, name)
        for node in found[:1]:
            with contextlib.suppress(GLib.Error, AttributeError, ValueError):  # it has just gone, with what it can do
                _press(node)
        return bool(found)


def is_showing(node):
    try:
        return node.get_state_set().contains(Atspi.StateType.SHOWING)
    except GLib.Error:
        return False
