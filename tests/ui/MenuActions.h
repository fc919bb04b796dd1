#pragma once

#include "tests/support/AlertUser.h"
#import "tests/support/FileManagerProcess.h"
#include "tests/support/engine/ScriptedEngine.h"
#include "tests/ui/WindowFixtures.h"

using Lines = std::vector<std::string>;

extern const char *const kOutsideLine;
extern const char *const kNoIdLine;

/// Logged when an action opens a window: on this platform an application becomes active when one of
/// its windows gets the keyboard.
inline constexpr const char *kActivated = "Context Menu Application Did Become Active";

/// The context menu's actions, with a real synced folder elsewhere than the user's, a file manager
/// in another process, a sync engine library that records its calls, and a user who dismisses the
/// alerts.
struct MenuActionsWithoutAgent : WindowsWithoutAgent {
  FileManagerProcess fileManager;
  ScriptedEngine &engine = ScriptedEngine::shared();
  NSString *const syncedFolder;
  /// What the clipboard held, and whether the flag was set and the application hidden, while the
  /// last alert was open.
  NSString *clipboardInAlert = @"no alert yet";
  bool flagInAlert = false;
  bool isHiddenInAlert = true;
  AlertUser user;

  MenuActionsWithoutAgent();

  /// Makes an item in the synced folder, with the folders above it, and returns its path, a
  /// folder's without a slash at its end.
  NSString *makeFile(NSString *relativePath) const;
  NSString *makeFolder(NSString *relativePath) const;

  /// An item outside the synced folder.
  NSString *makeFileOutside() const;

  /// Selects these items in the file manager, and nothing else.
  void select(NSString *first, NSString *second = nil) const;

  /// Gives the library an id.
  void knowFile(NSString *path, const char *itemId) const;
  void knowFolder(NSString *path, const char *itemId) const;

  /// Expects that one alert was shown, with this message and informative text ("" for none) and no
  /// other text, with these log lines, and that the application is hidden and has opened no window.
  void expectAlert(const std::string &message, const std::string &informative, const Lines &lines);

  /// Expects that only this was logged, and the application is hidden without an alert or window.
  void expectSilence(const Lines &lines) const;

  /// The one window that can be seen, and its controller.
  static NSWindow *onlyWindow();
  static SendAndCopyTabController *sendWindow();
  static BrisvaleTabController *shareWindow();

  /// Expects that both tabs have this item, by its server id.
  static void expectItem(SendAndCopyTabController *controller, const std::string &itemId,
                         bool isFolder);
};

/// The same against an agent in another process.
struct MenuActions : MenuActionsWithoutAgent {
  AgentProcess agent;

  ~MenuActions() override;

  /// The arguments of the agent's last call.
  NSArray *lastArguments() const { return agent.lastArguments(); }
};
