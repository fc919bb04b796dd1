#pragma once

#import "windows/send/CopyLinkController.h"
#include "windows/send/CopyOutcome.h"

/// Copies a link to the clipboard without a window, with the options of such a copy (the user is
/// notified of downloads, nobody is asked for an e-mail address, downloads are unlimited), writes
/// how it ended to the log, and answers that. Telling the user is the caller's.
///
/// controller: made with init; knows the item. path: handed to getCopyLink::::, which does not use
/// it. Blocks until the agent has answered. Main thread.
CopyOutcome copyLinkDirectly(CopyLinkController *controller, NSString *path);
