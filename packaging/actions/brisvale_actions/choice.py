"""What happens when an entry has been chosen."""

import os
import subprocess

from . import message, place
from .entries import NAME_KEY
from .texts import text

CLIENT = "contextmenu"

# How the plug-in client ends; see its manual page.
NOT_THERE, OUTSIDE, NO_ID, NOT_RUNNING, WENT_AWAY = 3, 4, 5, 6, 8

_NOT_THERE_YET = ("veldaneBrisvaleMessageTextKey", "failedToGetFileIdInformativeTextKey")
_NO_ANSWER = ("cannotConnectToBrisvaleMessageTextKey", "cannotConnectToBrisvaleInformativeTextKey")
_MESSAGES = {
    NOT_THERE: _NOT_THERE_YET,
    OUTSIDE: _NOT_THERE_YET,
    NO_ID: _NOT_THERE_YET,
    NOT_RUNNING: _NO_ANSWER,
    WENT_AWAY: _NO_ANSWER,
}


def item_path(path):
    """The item's path as the service knows it: from the synced folder on, without links."""
    root = place.synced_folder()
    relative_path = place.relative(path, root)
    return path if relative_path is None else f"{root}/{relative_path}"


def perform(verb, path):
    """Asks the running application; tells the user when that is not possible. What goes wrong in
    the application itself, it tells itself. Returns the exit code of the client, 127 when there is
    no client."""
    try:
        done = subprocess.run([CLIENT, verb, "--", item_path(path)], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
        code, reason = done.returncode, os.fsdecode(done.stderr).strip()
    except OSError as error:
        code, reason = 127, str(error)
    if code == 0:
        return 0
    if code in _MESSAGES:
        message.show(*map(text, _MESSAGES[code]))
    else:
        # Nothing that a user could do about it; the reason is for whoever is asked for help.
        message.show(text(NAME_KEY), reason.encode("utf-8", "replace").decode("utf-8"))
    return code
