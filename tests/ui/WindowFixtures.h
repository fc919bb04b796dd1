#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#import <AppKit/AppKit.h>

#import "plugin/ContextMenuProxy.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Events.h"
#include "tests/support/Strings.h"
#include "tests/ui/ActivationsInLog.h"
#include "tests/ui/Application.h"
#import "windows/send/CopyLinkController.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"

/// The windows of the application as the plug-in opens them, from the real interface files.
struct WindowsWithoutAgent : testing::Test {
  ContextMenuAppAppDelegate *delegate = loadedDelegate();
  ContextMenuProxy *proxy = [[ContextMenuProxy alloc] init];
  bool clipboardIsFilled = fillClipboard();
  CapturedLog log;
  ActivationsInLog activations{log};

  WindowsWithoutAgent();
  ~WindowsWithoutAgent() override;

  /// Closes open windows, as another opener would.
  static void closeWindows();

  struct SendOptions {
    NSString *item = @"id-1";
    NSString *name = @"Quarterly figures.csv";
    BOOL isMyDocs = NO;
    BOOL isFolder = NO;
    BOOL isFileId = YES;
  };

  /// Opens the send and copy-link window with the plug-in's operation; its controller, nil when
  /// there is no window.
  SendAndCopyTabController *openSend(int tab, const SendOptions &options);
  SendAndCopyTabController *openSend(int tab = 0);

  /// Opens the share window with the plug-in's operation.
  BrisvaleTabController *openShare(int tab = 0, NSString *item = @"id-2");

  /// The windows of the application that can be seen, sheets and panels left out.
  static std::vector<NSWindow *> visibleWindows();

  /// The view of this class whose title, label or text is this, in the window as it is shown.
  static NSButton *button(NSWindow *window, NSString *title);

  /// All texts that can be read in a window.
  static std::vector<std::string> textsIn(NSWindow *window);

  /// What the whole log must be when only this and the activations are logged.
  Lines withActivations(const Lines &lines) const { return activations.with(lines); }

  /// How many log lines are exactly this one.
  long linesInLog(const std::string &line) const;

  /// How many controllers of this class have been deallocated since the test began to count.
  static int ended(Class cls);
  static void countEndsOf(Class cls);

  /// Whether this object has been deallocated by the time of each call; for an object of a class of
  /// which one of an earlier test may still be deallocated meanwhile. Main thread.
  static std::function<bool()> endOf(id object);
};

/// The same against an agent in another process.
struct Windows : WindowsWithoutAgent {
  AgentProcess agent;

  ~Windows() override;

  /// The arguments of the agent's last call.
  NSArray *lastArguments() const { return agent.lastArguments(); }
};
