"""Does all that a host does in an evening, by keys alone, in the real program on a screen of its own,
and reads the windows as screen readers do. usage: evening_by_keys.py PROGRAM SCRIPT_OF_A_MAIL_SERVER"""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

MAIN = "Nimbus Turnpost Version 1.3.0"
NAMELESS = {"filler", "menu bar", "scroll bar", "panel"}


def until(answer, what):
    end = time.monotonic() + 60
    while time.monotonic() < end:
        try:
            if found := answer():
                return found
        except GLib.Error:
            pass  # A window was closed in the meantime.
        time.sleep(0.02)
    raise AssertionError(f"no {what}")


def children(node):
    return [node.get_child_at_index(i) for i in range(node.get_child_count())]


def showing(node):
    """The node and all visible nodes inside it, in reading order."""
    if has(node, Atspi.StateType.SHOWING):
        yield node
        for child in children(node):
            yield from showing(child)


def has(node, state):
    return node.get_state_set().contains(state)


def window(title):
    """Waits until the window is active. Each visible node in it must have a role and a name."""
    global front
    form, = until(lambda: [form for app in children(Atspi.get_desktop(0)) for form in children(app)
                           if has(form, Atspi.StateType.ACTIVE) and form.get_name() == title],
                  title)
    front = list(showing(form))
    for node in front:
        role, name = node.get_role_name(), node.get_name()
        assert name and role not in ("unknown", "invalid") or role in NAMELESS, (title, role, name)


def control(role):
    return next(node for node in front if node.get_role_name() == role)


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "8", *keys], check=True)


def write(name, text):
    go_to(name)
    subprocess.run(["xdotool", "type", "--delay", "4", text], check=True)


def go_to(name, *keys):
    """Goes to the control by Tab, and presses the keys there."""
    def focus():
        # Qt reports the current item of a list as focused, even when the focus is elsewhere.
        return [node.get_name() for node in front
                if has(node, Atspi.StateType.FOCUSED) and node.get_role_name() != "list item"]

    now = until(focus, "focus")
    for _ in range(40):
        if now == [name]:
            return keys and press(*keys)
        press("Tab")
        now = until(lambda: [name for name in focus() if name not in now], f"focus after {now}")
    raise AssertionError(f"Tab does not reach {name}")


def evening(home, port, program):
    window("Email Settings")
    write("Your name", "Game Host")
    write("Your email address", "host@example.org")
    write("SMTP address", f"127.0.0.1:{port}")
    go_to("OK", "Return")
    window(MAIN)
    write("Game name", "Cup")
    go_to("Find Game", "Return")
    window("Locate File")
    press("Down", "Return")
    go_to("File", "Down", "Return")
    window(MAIN)
    write("Player 1 name", "Red Leader")
    write("Player 1 e-mail address", "red@example.net")
    go_to("Player 3 included", "space")
    press("alt+f", "s")
    window("Nimbus Turnpost")
    assert control("label").get_name() == f"Details saved to {home}/game/GAME.NTP"
    press("Return")
    window(MAIN)
    for title, open_dialog in (
            ("Edit Message", lambda: press("alt+f", "Right", "m")),
            ("Where to store current game details?",
             lambda: press("alt+f", "Right", "Right", "Up", "Return")),
            ("Attachments", lambda: go_to("Attachments", "Return")),
            ("About Nimbus Turnpost", lambda: press("alt+h", "a"))):
        open_dialog()
        window(title)
        go_to("OK", "space")
        window(MAIN)
    go_to("Send via SMTP", "Return")
    window("Turn Sending Report")
    report = Atspi.Text.get_text(control("text"), 0, -1).splitlines()
    assert report[:2] == ["Player 1: Email sent OK", "Player 2: Player Skipped"], report
    press("alt+F4")
    window(MAIN)
    assert Atspi.Value.get_current_value(control("progress bar")) == 100
    press("alt+f", "x")
    assert program.wait(60) == 0


def play(folder):
    home = Path(folder, "turnpost")
    (home / "game").mkdir(parents=True)
    for name, content in {"HST": "J3J3host....\5\0rest", "M1": "one", "M3": "three"}.items():
        (home / "game" / f"GAME.{name}").write_text(content)
    program = shutil.copy(sys.argv[1], home)
    with contextlib.ExitStack() as started:
        def start(*command, **options):
            process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True, **options)
            started.callback(process.wait)
            started.callback(process.kill)
            return process

        screen, number = os.pipe()
        start("Xvfb", "-displayfd", str(number), pass_fds=[number])
        os.environ["DISPLAY"] = ":" + os.read(screen, 9).decode().strip()
        start("openbox")
        port = start(sys.executable, sys.argv[2], f"{folder}/mail").stdout.readline().strip()
        # Cached properties of a control would not be read again.
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
        evening(home, port, start(program))


if len(sys.argv) > 3:
    play(sys.argv[3])
else:
    with tempfile.TemporaryDirectory() as folder:
        # Without these the program would use the buses of the user's own session.
        own = dict(os.environ, HOME=folder, XDG_RUNTIME_DIR=folder, QT_QPA_PLATFORM="xcb",
                   QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        sys.exit(subprocess.call(["dbus-run-session", "--", sys.executable, *sys.argv, folder],
                                 env=own))
