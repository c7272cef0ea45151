#!/usr/bin/python3
"""What a screen reader finds on the accessibility bus when forms are shown.

Usage: assistivetree.py PROGRAM FORM...

PROGRAM shows the forms, tells what controls they have, and types what it is given (assistedform.cpp). The client finds
the same controls with the same words on the bus, hears where the focus goes, what a value becomes and why a text was
refused. The last form is the one of the receiver. Display, message bus and runtime folder are of this run alone. Waits end with what they wait for, or after PATIENCE as a failure.
"""
import contextlib
import os
import subprocess
import sys
import tempfile
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # seconds
INSIDE = "--inside"  # the session

ROLES = {
    pyatspi.ROLE_PUSH_BUTTON: "button",
    pyatspi.ROLE_TOGGLE_BUTTON: "button",
    pyatspi.ROLE_CHECK_BOX: "check box",
    pyatspi.ROLE_COMBO_BOX: "combo box",
    pyatspi.ROLE_SPIN_BUTTON: "spin button",
    pyatspi.ROLE_TEXT: "text",
    pyatspi.ROLE_TABLE: "table",
}
FOCUSED = "object:state-changed:focused"
CHECKED = "object:state-changed:checked"
CHOSEN = "object:selection-changed"
VALUE = "object:property-change:accessible-value"
DESCRIBED = "object:property-change:accessible-description"


class Failure(Exception):
    pass


class Client:
    """Keeps what it hears of one process."""

    def __init__(self, process):
        self.process = process
        self.heard = []
        for event in (FOCUSED, CHECKED, VALUE, CHOSEN, DESCRIBED):
            pyatspi.Registry.registerEventListener(self.hear, event)

    def hear(self, event):
        try:
            self.heard.append((event.type, event.source.name))
        except GLib.Error:
            pass  # of a process that is gone

    def wait(self, what, look):
        """What look() gives, as soon as that is something. It looks after each event, and now and then."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end and self.process.poll() is None:
            found = look()
            if found:
                return found
            self.listen()
        raise Failure("there is no %s; heard: %s" % (what, self.heard[-10:]))

    def listen(self):
        before = len(self.heard)
        elapsed = []
        GLib.timeout_add(100, lambda: elapsed.append(True))  # whose result None ends it
        while len(self.heard) == before and not elapsed:
            GLib.MainContext.default().iteration(True)

    def await_event(self, kind, name):
        """Forgets what was heard up to then."""

        def look():
            return any(str(heard).startswith(kind) and source == name for heard, source in self.heard)

        self.wait("%s of %s" % (kind, name), look)
        self.heard.clear()

    def application(self):
        def look():
            for candidate in pyatspi.Registry.getDesktop(0):
                if candidate is not None and candidate.get_process_id() == self.process.pid:
                    return candidate
            return None

        return self.wait("application on the bus", look)

    def type(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()


def controls_below(node, found):
    if node is None:
        return found
    states = node.getState()
    if node.getRole() in ROLES:
        if states.contains(pyatspi.STATE_VISIBLE):
            found.append(node)
        return found
    for index in range(node.childCount):
        controls_below(node.getChildAtIndex(index), found)
    return found


def told_by(process):
    """The lines that the program prints up to the empty one."""
    lines = []
    for line in process.stdout:
        if line == "\n":
            return lines
        lines.append(line.rstrip("\n"))
    raise Failure("the program ended with %s" % process.wait())


def compare(told, found):
    if len(told) != len(found) or len(found) < 50:
        raise Failure("%d controls on the bus, %d in the program" % (len(found), len(told)))
    for line, node in zip(told, found):
        seen = "\t".join((ROLES[node.getRole()], node.name, node.description))
        if seen != line:
            raise Failure("the program says %r, the bus %r" % (line, seen))
        if not node.name:
            raise Failure("a control without a name: %r" % seen)
        if "<" in seen:
            raise Failure("mark-up in %r" % seen)


def named(controls, name):
    found = [node for node in controls if node.name == name]
    if not found:
        raise Failure("there is no control named %r" % name)
    return found[-1]


def has(node, state):
    return node.getState().contains(state)


def text_of(node):
    return node.queryText().getText(0, -1)


def refuse_a_text(client, controls):
    """The hint is the description as long as it is shown, and is told as a change of it."""
    edit = named(controls, "Frequency")
    client.wait("focus in the first row", lambda: has(edit, pyatspi.STATE_FOCUSED))
    plain, before = edit.description, text_of(edit)
    client.type("nonsense")
    client.type("<Return>")
    client.await_event(DESCRIBED, "Frequency")
    client.wait("old text", lambda: text_of(edit) == before)
    if edit.description == plain:
        raise Failure("nothing is said of a refused text")
    client.type("101.7")
    client.type("<Return>")
    client.wait("entered frequency", lambda: text_of(edit) == "101.7 MHz")
    client.wait("plain description", lambda: edit.description == plain)


def change_values(client, controls):
    """By keyboard and by the client."""
    spin = named(controls, "Dwell time")
    spin.queryComponent().grabFocus()
    client.await_event(FOCUSED, "Dwell time")
    client.type("<Up>")
    client.await_event(VALUE, "Dwell time")
    client.wait("next number", lambda: text_of(spin) == "0.6 s")
    spin.queryValue().currentValue = 2.5
    client.await_event(VALUE, "Dwell time")
    client.wait("number set by the client", lambda: text_of(spin) == "2.5 s")
    choice = named(controls, "Demodulation")
    choice.queryComponent().grabFocus()
    client.await_event(FOCUSED, "Demodulation")
    before = text_of(choice)
    client.type("<Down>")
    client.await_event(CHOSEN, "Demodulation")
    client.wait("next choice", lambda: text_of(choice) != before)
    check = named(controls, "AFC")
    check.queryAction().doAction(0)
    client.await_event(CHECKED, "AFC")
    if not has(check, pyatspi.STATE_CHECKED):
        raise Failure("the box is not checked")


def walk(client, controls):
    """Tab goes from a row to the next one."""
    named(controls, "Lock").queryComponent().grabFocus()
    client.await_event(FOCUSED, "Lock")
    client.type("<Tab>")
    client.await_event(FOCUSED, "AFC")
    client.type("<Tab>")
    client.await_event(FOCUSED, "Presets, FM broadcast")


def open_list(client, controls):
    choice = named(controls, "Gain control")
    choice.queryAction().doAction(0)
    client.wait("open list", lambda: has(choice, pyatspi.STATE_EXPANDED))
    client.type("<Esc>")
    client.wait("closed list", lambda: not has(choice, pyatspi.STATE_EXPANDED))


@contextlib.contextmanager
def display():
    """The name of a virtual one, free for sure: the server itself chooses it."""
    reader, writer = os.pipe()
    # It would begin anew, and refuse clients meanwhile, whenever the last one has gone.
    command = ["Xvfb", "-noreset", "-displayfd", str(writer), "-screen", "0", "1920x1200x24", "-nolisten", "tcp"]
    server = subprocess.Popen(command, pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    try:
        with os.fdopen(reader) as name:
            yield ":" + name.readline().strip()
    finally:
        server.terminate()
        server.wait()


@contextlib.contextmanager
def shown(program, forms):
    """The process of the program."""
    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    process = subprocess.Popen([program] + forms, env=environment, text=True,
                               stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    try:
        yield process
    finally:
        process.stdin.close()  # which ends it
        try:
            process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


def start_registry():
    """A program that comes to the bus before the registry is there is not asked again."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            desktop = pyatspi.Registry.getDesktop(0)
            if desktop is not None and desktop.childCount >= 0:
                return
        except GLib.Error:
            pass  # not there yet
        time.sleep(0.1)
    raise Failure("there is no registry on the bus")


def ask(program, forms):
    """What is wrong; None if nothing is."""
    try:
        start_registry()
        with shown(program, forms) as process:
            client = Client(process)
            told = told_by(process)
            controls = controls_below(client.application(), [])
            compare(told, controls)
            for use in (refuse_a_text, change_values, walk, open_list):
                use(client, controls)
            print("%d controls, the same on both sides of the bus" % len(controls))
    except Failure as failure:
        return str(failure)
    return None if process.returncode == 0 else "the program ended with %s" % process.returncode


def ask_in_a_session(arguments):
    with tempfile.TemporaryDirectory() as folder, display() as name:
        environment = dict(os.environ, DISPLAY=name, XDG_RUNTIME_DIR=folder, HOME=folder)
        command = ["dbus-run-session", "--", sys.executable, __file__, INSIDE]
        return subprocess.run(command + arguments, env=environment, cwd=folder, check=False).returncode


def main():
    if sys.argv[1] == INSIDE:
        return ask(sys.argv[2], sys.argv[3:])
    return ask_in_a_session(sys.argv[1:])


if __name__ == "__main__":
    sys.exit(main())
