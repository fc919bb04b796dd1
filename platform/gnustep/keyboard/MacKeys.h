#pragma once

#import <Foundation/Foundation.h>

/// Gives key events from the window server the values that they have on the Mac: -[NSEvent keyCode]
/// is the Mac's key code, Control is the Command key (see registerModifierKeys), and with Command
/// the characters are those of the key without it, never control characters. Events that the
/// program creates are not changed. To be called before the application object is created, because
/// the platform then caches the method that reads events; raises NSInternalInconsistencyException
/// when the window server is connected already. Further calls have no effect. Main thread.
void installMacKeys();

/// Registers Control as the Command key, the Windows keys as Control and Alt as Alternate. No
/// effect when the user has set a default for any of them: the others then are the platform's, and
/// a mixture with these could leave a modifier without a key.
void registerModifierKeys(NSUserDefaults *defaults);
