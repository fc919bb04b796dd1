"""The notification after a link has been copied, for nothing else is to be seen then."""

import configparser
import os
import subprocess

from . import message
from .texts import text

_ACTIONS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
# Beside the program, as it is installed.
CLIPBOARD_HAS_TEXT = os.path.join(_ACTIONS, "clipboard-has-text")


def settings_file():
    """The user's settings, which need not exist."""
    folder = os.environ.get("XDG_CONFIG_HOME") or os.path.expanduser("~/.config")
    return os.path.join(folder, "brisvale", "settings.ini")


def is_wanted():
    """Whether the user wants to be told; true unless the settings say otherwise."""
    settings = configparser.ConfigParser(interpolation=None)
    try:
        settings.read(settings_file(), encoding="utf-8")
        return settings.getboolean("notifications", "copied", fallback=True)
    except (configparser.Error, ValueError, UnicodeDecodeError):
        return True  # what cannot be read says nothing


def _is_copied():
    try:
        return subprocess.run([CLIPBOARD_HAS_TEXT], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              check=False).returncode == 0
    except OSError:
        return False


def tell_of_link(path):
    """To be called when the application has done with a request for a link to the item at path.
    Shows nothing where it has not been copied: the application has said why."""
    if not is_wanted() or not _is_copied():
        return
    name = os.path.basename(os.path.abspath(path))
    message.notify(os.fsencode(name).decode("utf-8", "replace"),
                   text("linkCopiedSuccessMessageTextKey"))
