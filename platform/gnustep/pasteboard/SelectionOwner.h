#pragma once

struct _XDisplay;

/// Has the owner of a selection handle the requests that have reached it. GNUstep's pasteboard
/// server takes them from its connection to the display while it waits for a reply there, as when
/// it becomes the owner, and then sleeps until something else arrives: until then other programs
/// wait for their replies. The display server passes on one more request, which asks for no reply.
///
/// display: null has no effect. selection: its name, "CLIPBOARD". Does not wait. Main thread,
/// because the display is the application's.
void wakeSelectionOwner(_XDisplay *display, const char *selection);
