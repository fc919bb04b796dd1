"""What the tests of the file managers' actions share: a synced folder, the real agent, application
and plug-in client, and a user at the screen. For use in a private desktop only."""

import json
import os
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["BUILD_FOLDER"])
ACTIONS = BUILD / "packaging" / "actions"
GENERATE = ROOT / "packaging" / "generate.py"
# For a program to start on a busy machine.
DEADLINE_SECONDS = 60
NOT_REACHED = "Brisvale cannot be reached."


class Unexpected(AssertionError):
    """Something is not as a test expects it. Keeps a picture of the screen as it is at the first
    time, where tools/run-tests looks for it."""

    def __init__(self, *arguments):
        super().__init__(*arguments)
        failed, name = os.environ.get("FAILED_TESTS"), os.environ.get("TEST_NAME")
        if not failed or not name:
            return
        picture = Path(failed) / name / "screen.png"
        if not picture.exists():
            picture.parent.mkdir(parents=True, exist_ok=True)
            subprocess.run(["import", "-silent", "-window", "root", picture], check=False)


def appears(condition, seconds):
    """Waits until the function returns something true, and returns that; after so many seconds what
    it returned last."""
    deadline = time.monotonic() + seconds
    while True:
        result = condition()
        if result or time.monotonic() > deadline:
            return result
        time.sleep(0.05)


def wait_until(what, condition, seconds=DEADLINE_SECONDS):
    """Waits until the function returns something true, and returns that. Raises Unexpected when it
    does not within so many seconds."""
    result = appears(condition, seconds)
    if not result:
        raise Unexpected(f"{what}: not within {seconds} seconds")
    return result


def output(*command):
    """What a command prints, whether it succeeds or not."""
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False).stdout.strip()


def windows(*search):
    """The numbers of the visible windows that xdotool finds."""
    return output("xdotool", "search", "--onlyvisible", *search).split()


def geometry(window):
    """x, y, width, height."""
    lines = dict(line.split("=") for line in
                 output("xdotool", "getwindowgeometry", "--shell", window).splitlines())
    return tuple(int(lines[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


def colours(x, y, width, height):
    """How many colours a part of the screen has."""
    part = f"{width}x{height}+{x}+{y}"
    shot = subprocess.run(["import", "-window", "root", "-crop", part, "miff:-"],
                          stdout=subprocess.PIPE, check=False).stdout
    count = subprocess.run(["convert", "miff:-", "-format", "%k", "info:"], input=shot,
                           stdout=subprocess.PIPE, check=False).stdout
    return int(count or 0)


def click(x, y, button):
    """Presses a button of the mouse and releases it after a moment, as a user does."""
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "mousedown", str(button),
                    "sleep", "0.08", "mouseup", str(button)], check=True)


class DesktopTest(unittest.TestCase):
    """A user with a synced folder. The application runs where a test starts it."""

    failureException = Unexpected

    def setUp(self):
        self.assertIn("PRIVATE_DESKTOP", os.environ, "to be run by tools/private-desktop")
        self._folder = tempfile.TemporaryDirectory(dir=os.environ["HOME"])
        self.addCleanup(self._folder.cleanup)
        self.home = Path(self._folder.name)
        self.users = self.home / "Users"
        self.synced = self.users / "ann" / "Brisvale"
        self.synced.mkdir(parents=True)
        self._variables = {
            "BV_SYNCED_FOLDER": str(self.synced),
            "BV_DEVKIT_DATA": str(self.home / "data"),
            "XDG_DATA_HOME": str(self.home / "share"),
            "PATH": f"{BUILD / 'devkit'}:{os.environ['PATH']}",
        }
        before = dict(os.environ)
        self.addCleanup(lambda: (os.environ.clear(), os.environ.update(before)))
        os.environ.update(self._variables)
        self.addCleanup(os.chdir, os.getcwd())

    def file(self, name, root=None):
        """Makes a file of the synced folder, or of another one."""
        path = (root or self.synced) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("text\n", encoding="utf-8")
        return path

    def folder(self, name, root=None):
        """Makes a folder of the synced folder, or of another one."""
        path = (root or self.synced) / name
        path.mkdir(parents=True)
        return path

    def start(self, *command):
        """Starts a program, which ends with the test. What it prints goes to a file."""
        log = self.home / f"{Path(command[0]).name}.log"
        # The file stays open in the program only.
        with open(log, "wb") as file:
            process = subprocess.Popen(command, stdout=file, stderr=subprocess.STDOUT)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process, log

    def start_application(self):
        """Starts agent and application, and waits until both serve; returns the agent."""
        agent, log = self.start(BUILD / "devkit/VeldaneKRVAgent.app/VeldaneKRVAgent")
        wait_until("the agent is registered", lambda: "registered as" in log.read_text())
        self.start(BUILD / "ContextMenuApp.app/ContextMenuApp")
        # Not left to the client, which would find the name that an earlier test's application has
        # left behind.
        status = [BUILD / "devkit/contextmenu", "--timeout", "5", "status"]
        wait_until("the application answers", lambda: output(*status))
        return agent

    def operations(self, name):
        """What the agent was asked, as its log has it."""
        log = self.home / "data" / "operations.jsonl"
        lines = log.read_text(encoding="utf-8").splitlines() if log.exists() else []
        return [line for line in map(json.loads, lines) if line["operation"] == name]

    def assert_clipboard_gets_link_of(self, operation):
        """Waits until the clipboard holds the link that the agent has made by this operation."""
        made = wait_until("the agent makes a link", lambda: self.operations(operation))[-1]["value"]
        wait_until("the link is on the clipboard", lambda: output(
            "timeout", "20", "xclip", "-selection", "clipboard", "-out") == made)

    def assert_message(self, title):
        """Waits until a message with this title can be seen."""
        wait_until(f"a message says {title}", lambda: windows("--name", title))
