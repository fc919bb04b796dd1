"""Messages on the desktop, by the first program that can show them."""

import html
import os
import shutil
import subprocess
import sys
import textwrap


def _notification(title, text, *options):
    # The text of a notification may hold markup, and then no bare "&" and "<".
    return ["notify-send", "--app-name=Brisvale", *options, "--", title,
            html.escape(text, quote=False)]


# Each waits for the user, and its exit code does not tell whether the message was seen. Not every
# desktop has title bars, so the title is in the text as well.
_DIALOGS = (
    lambda title, text: ["zenity", "--warning", "--no-markup", f"--title={title}",
                         f"--text={title}\n\n{text}"],
    lambda title, text: ["kdialog", "--title", title, "--sorry", f"{title}\n\n{text}"],
    lambda title, text: ["xmessage", "-center", "-title", title,
                         f"{title}\n\n{textwrap.fill(text, 60)}"],
)


def _run(command):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, check=False).returncode == 0


def notify(title, text):
    """Tells of something that needs no reply: a notification that goes by itself and is not kept,
    nothing where the desktop has none."""
    if shutil.which("notify-send"):
        _run(_notification(title, text, "--icon=edit-copy", "--urgency=low", "--expire-time=4000",
                           "--hint=int:transient:1"))


def show(title, text):
    """Shows a message, and writes it to the standard error output as well, where users who started
    the file manager in a terminal see it."""
    print(title, text, sep="\n", file=sys.stderr)
    # Fails where no program on the desktop shows notifications.
    if shutil.which("notify-send") and _run(_notification(title, text, "--icon=dialog-warning")):
        return
    if not (os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")):
        return
    for dialog in _DIALOGS:
        command = dialog(title, text)
        if shutil.which(command[0]):
            _run(command)
            return
