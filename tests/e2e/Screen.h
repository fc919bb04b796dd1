#pragma once

#include <string>
#include <vector>

#include "tests/support/WindowServer.h"

/// The application's windows as a user of the private screen sees and uses them: what the window
/// server knows of them, screenshots, and keys and clicks through other programs.

/// A window or sheet of the application. No window manager runs on the private screen, so a window
/// is as large as its content.
using ScreenWindow = ServerWindow;

/// Those that can be seen, in no particular order.
std::vector<ScreenWindow> windowsOnScreen();

/// Waits until `count` windows can be seen, as waitFor does; returns whether that happens.
bool waitForWindows(std::size_t count);

/// Waits until one of the application's windows has the focus; false when none gets it within a
/// minute. A key that is pressed earlier is lost.
bool waitForKeyboard();

/// Waits until a window has the focus that is the only other one than this: its sheet or alert. A
/// list of completions or a menu never gets it. False when there is none within a minute.
bool waitForSheet(const ScreenWindow &window);

/// Clicks into the application's only window and waits until it has the keyboard: an alert that
/// comes while the application is in the background does not get it by itself.
bool clickIntoAlert();

/// Presses and releases keys, one after the other, by their names: "Return", "Tab", "space".
void pressKeys(const std::vector<std::string> &names);

/// Types a text of ASCII characters, as fast as a quick typist.
void typeText(const std::string &text);

/// Copies a text to the clipboard as another program does.
bool copyInAnotherProgram(const std::string &text);

/// Presses the mouse's button at a place of the screen, and releases it there after a moment, as a
/// user does.
void clickAt(int x, int y);

/// The parts of a drag.
void moveTo(int x, int y);
void pressButton();
void releaseButton();

/// What a part of the screen looks like: a text that is the same for the same pixels, and short
/// enough to be printed. "" when there is no picture, or one of a single colour, as the screen is
/// where nothing has been drawn yet.
std::string picture(const ScreenArea &area);

/// The same, when the drawing is over: several pictures in a row are the same. "" when they still
/// change after waitFor's time-out.
std::string settledPicture(const ScreenArea &area);
