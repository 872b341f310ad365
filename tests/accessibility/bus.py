"""The desktop's accessibility bus as a screen reader uses it, and the panel on a simulated supply."""
import contextlib
import os
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def fail(reason):
    sys.exit(f"FAILED: {reason}")


def came(what, limit):
    """What `what` returns once that is true; nothing where that is not within `limit` seconds."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        try:
            found = what()
        except GLib.Error:  # a window that has just gone
            found = None
        if found:
            return found
        time.sleep(0.05)
    return None


def wait_for(what, description, limit=20.0):
    return came(what, limit) or fail(f"{description} did not come about in {limit} s")


def below(node):
    yield node
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield from below(child)


def find(name):
    for node in below(Atspi.get_desktop(0)):
        if node.get_name() == name and node.get_state_set().contains(Atspi.StateType.SHOWING):
            return node
    return None


def says(name, text):
    """A label shows `text`, or it is in what something is described by."""
    node = find(name)
    return find(f"{name} {text}") or (node is not None and text in node.get_description())


def press(name):
    """By its first action, as soon as it can be used."""
    def usable():
        node = find(name)
        return node is not None and node.get_n_actions() > 0 and node
    wait_for(usable, name).do_action(0)


def act(name, action):
    """The action of that name."""
    node = wait_for(lambda: find(name), name)
    names = [node.get_action_name(place) for place in range(node.get_n_actions())]
    if action not in names:
        fail(f"{name} has only the actions {names}")
    node.do_action(names.index(action))


def choose(command):
    for node in below(Atspi.get_desktop(0)):  # those of a closed menu don't show
        if node.get_name() == command:
            return node.do_action(0)
    fail(f"there is no command {command}")


def wait_for_ratings():
    """Where a busy machine has answered too late for the check, it is made again, by hand."""
    for _ in range(4):
        if came(lambda: says("DATA 확인 결과", "통신ok = DATA수신!!!"), 5.0):
            return
        press("통신 포트 COM1")
    fail("the supply has not told its ratings")


@contextlib.contextmanager
def running(program, simulator):
    """The panel and its supply, as processes, on links of their own."""
    with tempfile.TemporaryDirectory() as links:
        environment = {
            **os.environ,
            "XDG_RUNTIME_DIR": links,
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        supply = subprocess.Popen([simulator, "--port", "1"], env=environment,
                                  stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True)
        link = os.path.join(links, "zps-rs232", "COM1")
        wait_for(lambda: os.path.exists(link), "the simulated line")
        panel = subprocess.Popen([program], env=environment)
        try:
            yield panel, supply
        finally:
            panel.kill()
            supply.kill()
            supply.wait()
