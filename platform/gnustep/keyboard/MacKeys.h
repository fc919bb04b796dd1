#pragma once

#import <Foundation/Foundation.h>

/// Makes the keyboard the Mac's: -[NSEvent keyCode] of what the user types is the Mac's code of the
/// key, the Control keys are the Command keys (see registerModifierKeys), and with Command the
/// characters of an event are those of the key without it, never control characters. Events that
/// the program makes itself stay as they are made.
/// To be called before the application object is made, which is when the platform settles how it
/// reads the window server's events; raises NSInternalInconsistencyException when the window server
/// is connected already. Further calls do nothing. Main thread.
void installMacKeys();

/// Registers the modifier keys of a keyboard that has the Command keys' shortcuts on Control:
/// Control is Command, the Windows keys are Control, Alt is Alternate. Does nothing when a default
/// for any of them is set already: a user who chose some of the keys chose them beside the
/// platform's own for the rest, and a mixture with ours would take keys away.
void registerModifierKeys(NSUserDefaults *defaults);
