"""Which entries an item gets."""

import os
from typing import NamedTuple

from . import place


class Entry(NamedTuple):
    """What the plug-in client is asked to do, under which text."""

    verb: str
    key: str


COPY_LINK = Entry("copy-link", "copyLinkMenuTitleKey")
SEND_FILE = Entry("send", "sendFileMenuTitleKey")
SEND_FOLDER = Entry("send", "sendFolderMenuTitleKey")
SHARE_FOLDER = Entry("share", "shareFolderMenuTitleKey")

SUBMENU_KEY = "applicationMenuTitleKey"
NAME_KEY = "veldaneBrisvaleMessageTextKey"


def entries_for(paths):
    """The entries, in their order, for what is selected: one item of the synced folder. Several get
    none, because the service would silently take the first of them."""
    if len(paths) != 1 or not paths[0]:
        return []
    relative_path = place.relative(paths[0], place.synced_folder())
    if relative_path is None:
        return []
    if not os.path.isdir(paths[0]):
        return [COPY_LINK, SEND_FILE]
    if not place.may_be_shared(relative_path):
        return [COPY_LINK, SEND_FOLDER]
    return [COPY_LINK, SEND_FOLDER, SHARE_FOLDER]
