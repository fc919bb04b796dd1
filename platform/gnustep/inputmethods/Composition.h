#pragma once

#import <AppKit/AppKit.h>

/// Lets input methods compose their text in the text views themselves, as on the Mac. Once, when
/// the window server is connected and before the first window has the focus; without an effect
/// where the platform has no input methods.
void installComposition();

/// Makes the text that is being composed in a view part of its text, and the input method forget
/// it. To be called before the caret leaves the place, or the view the focus.
void endComposition(NSTextView *view);

/// Puts what the input methods have answered into the event queue, in its order. To be called after
/// what waits for an input method.
void handleInputAnswers();
