#pragma once

#include "tests/support/WindowServer.h"

/// An element of one of the application's interface files, whose frame is read from there.
struct InterfaceFrame {
  /// The interface file, without its folder and extension.
  const char *file;
  /// The outlet that leads to the element, with the class that has it
  /// ("SendFileController.mailList"), or the action that the element sends ("sendMail:").
  const char *connection;

  /// The frame in the element's superview, y running upwards; of a text view that of its scroll
  /// view, of a window and of a tab its content. Throws std::runtime_error when there is no such
  /// element.
  operator ScreenArea() const;  // NOLINT(google-explicit-constructor): stands for its area
};
