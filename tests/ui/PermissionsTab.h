#pragma once

#include <gtest/gtest.h>

#include "tests/support/AgentProcess.h"
#include "tests/support/Events.h"
#include "tests/support/HeldReply.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/PermissionTabController.h"
#import "windows/share/SharedWith.h"

/// An entry of an access list: a person with all rights.
NSDictionary *writer(NSString *firstName, NSString *lastName, NSString *address);

/// An entry of a person who may only download.
NSDictionary *reader(NSString *firstName, NSString *lastName, NSString *address);

/// A number of people, "First0001 Last" and so on, with the addresses "p0001@example.org" and so
/// on. Every second one may write.
NSArray *people(int count);

/// The share window on its permissions tab, opened as the application's openers do it.
struct PermissionsWindow : testing::Test {
  BrisvaleTabController *window = nil;
  PermissionTabController *tab = nil;

  PermissionsWindow();
  /// Closes the window.
  ~PermissionsWindow() override;

  /// Opens the window without a folder.
  void openWindow();
  /// Opens the window for a folder: the load begins.
  void open(NSString *folder = @"folder-1");
  /// Opens it and waits until the load is over.
  void openLoaded();
  /// Waits until the first load is over.
  bool waitUntilLoaded() const;
  void close();

  template <class Control>
  Control *outlet(const char *name) const {
    return static_cast<Control *>(outletNamed(name));
  }
  NSTextField *status() const { return outlet<NSTextField>("notSharingText"); }
  NSScrollView *list() const { return outlet<NSScrollView>("fullScrollView"); }
  NSTextField *listTitle() const { return outlet<NSTextField>("usersText"); }
  NSProgressIndicator *spinner() const { return outlet<NSProgressIndicator>("spinGear"); }
  NSCollectionView *collection() const {
    return outlet<NSCollectionView>("collectionViewForAllEntries");
  }

  /// Whether the list is shown instead of the status text, and the other way round.
  bool showsList() const;
  bool showsStatus(NSString *text) const;

  SharedWith *person(NSUInteger row) const { return [[tab personList] objectAtIndex:row]; }

  /// Scrolls the row to visible, draws, and returns its view.
  NSView *rowView(NSUInteger row) const;
  NSTextField *nameIn(NSUInteger row) const { return in<NSTextField>(row, 0); }
  NSPopUpButton *accessIn(NSUInteger row) const { return in<NSPopUpButton>(row, 1); }
  NSButton *removeIn(NSUInteger row) const { return in<NSButton>(row, 2); }

  /// Chooses from the row's pop-up as its menu does.
  void choose(NSUInteger row, NSString *keyOfTitle) const;
  /// Presses the row's button and returns the question's alert.
  NSWindow *askToRemove(NSUInteger row) const;
  /// Presses a button of the sheet: 0 is the rightmost.
  void press(NSWindow *sheet, NSUInteger index) const;
  /// The sheet on the window, drawn; nil for none.
  NSWindow *sheet() const { return [[window window] attachedSheet]; }
  /// Whether the sheet shows the text somewhere.
  bool sheetShows(NSString *text) const;

  /// Releases everything and closes the window. Later steps need a new window.
  void finish();

 private:
  NSAutoreleasePool *pool_ = [[NSAutoreleasePool alloc] init];

  id outletNamed(const char *name) const;
  template <class Control>
  Control *in(NSUInteger row, NSUInteger place) const {
    return static_cast<Control *>([[rowView(row) subviews] objectAtIndex:place]);
  }
};

/// The same and an agent.
struct PermissionsTab : PermissionsWindow {
  AgentProcess agent;
  /// What the agent waits for in the call that is scripted with held.
  const HeldReply hold;

  ~PermissionsTab() override;

  /// The agent's only replies: those to requests for the access list.
  void answerList(NSArray *entries) const { agent.answer(@"getAccess::", success(entries)); }
  /// A reply to the request for the access list that is sent after resumeAgent.
  NSDictionary *held(NSArray *entries) const { return hold.entry(@{@"reply" : success(entries)}); }
  void resumeAgent() const { hold.release(); }
  /// The agent's reply to the operation, in addition to the list.
  void answer(NSArray *entries, NSString *operation, NSDictionary *entry) const;

  /// How often the operation has been called.
  NSUInteger calls(NSString *operation) const;
  /// The arguments of the last call of the operation.
  NSArray *argumentsOfLast(NSString *operation) const { return agent.lastArguments(operation); }
};
