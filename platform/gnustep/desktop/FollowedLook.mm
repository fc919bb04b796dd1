#import "platform/gnustep/desktop/FollowedLook.h"

#import <AppKit/AppKit.h>
#import <Foundation/Foundation.h>

#include <cstdlib>
#include <memory>

#include "platform/gnustep/desktop/DesktopLook.h"
#include "platform/gnustep/desktop/GtkSettings.h"
#include "platform/gnustep/desktop/SettingsPortal.h"
#include "platform/gnustep/desktop/XSettings.h"

/// Tells followedDesktop of input.
@interface DesktopWatcher : NSObject <RunLoopEvents>
@end

namespace {

/// Not those in which the mouse is tracked or a reply is waited for: an open menu would be drawn
/// anew in between.
NSArray *modes() {
  return [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode, nil];
}

void *dataOf(int descriptor) {
  return reinterpret_cast<void *>(static_cast<std::intptr_t>(descriptor));
}

/// A place of settings that says when they change: SettingsPortal or XSettings.
template <class Place>
class Followed {
 public:
  /// `place`: null for none.
  void follow(std::unique_ptr<Place> place, DesktopWatcher *watcher) {
    place_ = std::move(place);
    if (place_ == nullptr) return;
    settings_ = place_->settings();
    for (NSString *mode in modes()) {
      [[NSRunLoop mainRunLoop] addEvent:dataOf(place_->descriptor())
                                   type:ET_RDESC
                                watcher:watcher
                                forMode:mode];
    }
  }

  void handleInput(void *data) {
    if (place_ == nullptr || data != dataOf(place_->descriptor())) return;
    const bool goesOn = place_->handleInput();
    settings_ = place_->settings();
    if (goesOn) return;
    // What was said last stays.
    for (NSString *mode in modes()) {
      [[NSRunLoop mainRunLoop] removeEvent:data type:ET_RDESC forMode:mode all:YES];
    }
    place_.reset();
  }

  const platform::LookSettings &settings() const { return settings_; }

 private:
  std::unique_ptr<Place> place_;
  platform::LookSettings settings_;
};

struct FollowedDesktop {
  Followed<platform::SettingsPortal> portal;
  Followed<platform::XSettings> display;
  void (*lookChanged)() = nullptr;
};

/// Null until the desktop is followed, which then never ends.
FollowedDesktop *followedDesktop = nullptr;

platform::DesktopLook lookOfDesktop(const platform::LookSettings &portal,
                                    const platform::LookSettings &display) {
  return platform::lookOf({portal, platform::settingsOfThemeVariable(std::getenv("GTK_THEME")),
                           display, platform::settingsOfUsersIniFile()});
}

void updateLook() {
  const platform::DesktopLook look =
      lookOfDesktop(followedDesktop->portal.settings(), followedDesktop->display.settings());
  if (look == platform::currentLook()) return;
  platform::setCurrentLook(look);
  followedDesktop->lookChanged();
}

}  // namespace

@implementation DesktopWatcher

- (void)receivedEvent:(void *)data
                 type:(RunLoopEventType)type
                extra:(void *)extra
              forMode:(NSString *)mode {
  (void)type;
  (void)extra;
  (void)mode;
  followedDesktop->portal.handleInput(data);
  followedDesktop->display.handleInput(data);
  updateLook();
}

@end

void adoptDesktopLook() {
  platform::setCurrentLook(lookOfDesktop({}, {}));
}

void followDesktopLook(void (*lookChanged)()) {
  if (followedDesktop != nullptr) return;
  static DesktopWatcher *const watcher = [[DesktopWatcher alloc] init];
  followedDesktop = new FollowedDesktop();
  followedDesktop->lookChanged = lookChanged;
  const std::string address = platform::addressOfSessionBus();
  if (!address.empty()) {
    followedDesktop->portal.follow(platform::SettingsPortal::connect(address), watcher);
  }
  followedDesktop->display.follow(platform::XSettings::connect(), watcher);
  updateLook();
}
