"""The windows as assistive technology sees them."""
import contextlib

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from tests.harness import desktop  # noqa: E402

# Nodes raise this when their window has closed meanwhile.
unless_gone = contextlib.suppress(GLib.Error)


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def descendants(node, closed=()):
    """All nodes below this one; what is inside of the roles in `closed` is left out."""
    for child in children(node):
        yield child
        if child.get_role_name() not in closed:
            yield from descendants(child, closed)


def window(caption):
    """The first window whose caption begins so, or None."""
    root = Atspi.get_desktop(0)
    root.clear_cache()
    with unless_gone:
        return next((shown for program in children(root) for shown in children(program)
                     if shown.get_name().startswith(caption)), None)
    return None


def nodes(caption, closed=()):
    """All that is in a window, up to where it closes."""
    with unless_gone:
        top = window(caption)
        yield from descendants(top, closed) if top else ()


def shows(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def find(caption, name, *roles):
    """The first showing control of a window with this name and one of the roles."""
    with unless_gone:
        return next((node for node in nodes(caption) if node.get_name() == name
                     and node.get_role_name() in roles and shows(node)), None)
    return None


def showing(caption):
    """Role, name and whether it takes the focus, of all that shows in a window."""
    found = []
    with unless_gone:
        for node in filter(shows, nodes(caption)):
            found.append((node.get_role_name(), node.get_name(),
                          node.get_state_set().contains(Atspi.StateType.FOCUSABLE)))
    return found


def focused(caption, closed, parts):
    """The name of the control with the focus, whose role is none of `parts`; empty without one."""
    with unless_gone:
        return next((node.get_name() for node in nodes(caption, closed)
                     if node.get_state_set().contains(Atspi.StateType.FOCUSED)
                     and node.get_role_name() not in parts), "")
    return ""


def text(node):
    """The content of a text control; empty when there is none."""
    with unless_gone:
        return Atspi.Text.get_text(node.get_text_iface(), 0, -1) if node else ""
    return ""


def entries(node):
    """The lines of a list or the cells of a table, and their texts."""
    with unless_gone:
        return [(child, child.get_name()) for child in descendants(node)
                if child.get_role_name() in ("list item", "table cell")] if node else []
    return []


def box(node):
    return node.get_extents(Atspi.CoordType.SCREEN)


def click(node, from_left=None, scale=1.0):
    """A real click into the middle of the control, or so far from its left edge.

    The toolkit tells places in its own pixels; the scale says how many of the display one has."""
    at = box(node)
    x = at.x + (at.width / 2 if from_left is None else from_left)
    desktop.click(int(x * scale), int((at.y + at.height / 2) * scale))


def dump():
    """A line for each node; empty without a window."""
    lines = []

    def add(node, depth):
        lines.append("  " * depth + f"{node.get_role_name()} '{node.get_name()}'")
        for child in children(node):
            add(child, depth + 1)

    try:
        for program in children(Atspi.get_desktop(0)):
            add(program, 0)
    except GLib.Error:
        lines.append("(a window closed)")
    return "\n".join(lines)
