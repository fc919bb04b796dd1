"""What happens when an entry has been chosen."""

import os
import subprocess

from . import message, place, success
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


def _call(verb, path):
    """The exit code of the client and what it says; 127 when there is no client."""
    try:
        done = subprocess.run([CLIENT, verb, "--", path], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
        return done.returncode, os.fsdecode(done.stderr).strip()
    except OSError as error:
        return 127, str(error)


def perform(verb, path):
    """Asks the running application; tells the user when that is not possible. The application
    reports its own failures itself. Returns the exit code of the client, or 127 when there is no
    client."""
    if not path:
        # What a file manager has for an item without a path, as in the trash. As a path it would be
        # the current folder.
        message.show(*map(text, _NOT_THERE_YET))
        return NOT_THERE
    relative_path = place.relative(path, place.synced_folder())
    # Not every file manager can restrict the entry to the folders that it is for.
    if verb == "share" and relative_path and not place.may_be_shared(relative_path):
        message.show(text(NAME_KEY), text("doNotHavePermissionForThisFolderMessageTextKey"))
        return OUTSIDE
    if relative_path:
        # As the service knows the item: from the synced folder on, without links.
        path = f"{place.synced_folder()}/{relative_path}"
    code, reason = _call(verb, path)
    if code == 0:
        if verb == "copy-link":
            success.tell_of_link(path)
        return 0
    if code in _MESSAGES:
        message.show(*map(text, _MESSAGES[code]))
    else:
        # The user can do nothing about it; the reason is printed for support.
        message.show(text(NAME_KEY), reason.encode("utf-8", "replace").decode("utf-8"))
    return code
