"""What an assistive tool does with a program on the accessibility bus: find, read, act, wait.

To be imported on a desktop whose buses run: the bus is met at once.
"""

import contextlib
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 15  # seconds, for anything to happen
LOOK_AGAIN = 100  # milliseconds without news
KEYS = {"Return": 0xFF0D, "Escape": 0xFF1B, "Up": 0xFF52, "Down": 0xFF54, "Menu": 0xFF67, "Delete": 0xFFFF,
        "F1": 0xFFBE, "F6": 0xFFC3}  # by the display's key symbols


def children(node):
    """The children that are still there."""
    return (child for child in node if child is not None)


def below(node):
    """All that stands below `node`, parents before their children."""
    for child in children(node):
        yield child
        yield from below(child)


def states(node):
    return {pyatspi.stateToString(state) for state in node.getState().getStates()}


def find(node, role, name=None):
    """The first one below `node` with this role, whose name begins like that; None without one."""
    return next((found for found in below(node) if found.getRoleName() == role
                 and (name is None or found.name.startswith(name))), None)


def act(node, action):
    """Does the node's action of this name."""
    actions = node.queryAction()
    names = [actions.getName(number) for number in range(actions.nActions)]
    if action not in names or not actions.doAction(names.index(action)):
        raise AssertionError(f"{node.name} does not do {action}, of {names}")


def type_key(name):
    """A key as the user would press it; the tool hands it on to whatever has the keyboard."""
    pyatspi.Registry.generateKeyboardEvent(KEYS[name], None, pyatspi.KEY_SYM)


class Watch:
    """Waits for what the bus tells."""

    KINDS = "object", "document", "window", "focus"

    def __init__(self):
        self.told = set()  # what kinds of news of which rows
        pyatspi.Registry.registerEventListener(self._hear, *self.KINDS)
        self.context = GLib.MainContext.default()

    def _hear(self, event):
        with contextlib.suppress(GLib.Error):
            self.told.add((event.type.major, event.type.minor, event.source.name))

    def until(self, what, condition):
        """What `condition` gives, as soon as that is something; it is asked after each event."""
        deadline = time.monotonic() + PATIENCE
        alarm = GLib.timeout_add(LOOK_AGAIN, lambda: True)
        try:
            while time.monotonic() < deadline:
                # What is looked at may go away meanwhile.
                with contextlib.suppress(GLib.Error, LookupError, NotImplementedError):
                    if value := condition():
                        return value
                self.context.iteration(True)
        finally:
            GLib.source_remove(alarm)
        raise AssertionError(f"{PATIENCE} s passed before {what}")
