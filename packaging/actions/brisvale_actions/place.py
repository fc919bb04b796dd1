"""Where an item lies in the synced folder."""

import os
import pwd

HOME_FOLDER = "MyDocs"


def synced_folder():
    """The synced folder as the application computes it. BV_SYNCED_FOLDER moves it, as it does for
    the plug-in client."""
    moved = os.environ.get("BV_SYNCED_FOLDER", "")
    return moved.rstrip("/") or f"/Users/{pwd.getpwuid(os.geteuid()).pw_name}/Brisvale"


def relative(path, root):
    """The item's path below root; None when it does not lie inside. root itself is no item.

    Folders are compared as what they are on disk, not by their names: a link to the synced folder
    leads inside, a link in it that leads elsewhere leads outside, and the case of letters counts
    where, and only where, the disk says so. The item itself is not followed: a link inside the
    synced folder is an item of it."""
    if not path:
        return None  # not the current folder, which "." is
    try:
        path = os.path.abspath(path)
        folder = os.path.realpath(os.path.dirname(path))
        parts = [os.path.basename(path)]
        wanted = os.stat(root)
        while parts[0]:
            if os.path.samestat(os.stat(folder), wanted):
                return "/".join(parts)
            folder, name = os.path.split(folder)
            parts.insert(0, name)
    except (OSError, ValueError):
        pass  # there is no synced folder, no current folder, or nothing at the path
    return None


def may_be_shared(relative_path):
    """Whether a folder is one of the user's own. The application's rule, which is deliberately this
    wide: the path begins with that of MyDocs in any letter case, with anything after it."""
    return relative_path.lower().startswith(HOME_FOLDER.lower())
