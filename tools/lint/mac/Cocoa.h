// Included in front of every source that is compiled for the Mac (mac_objects.py): the headers of
// COCOA_HEADERS, what they lack (Gaps.h), and in which version of macOS the interfaces that this
// program uses were deprecated. Those headers have no annotations.

// What is hidden here under another name is declared again below, with its version.
#define accessibilityAttributeValue hidden_accessibilityAttributeValue
#define accessibilitySetOverrideValue hidden_accessibilitySetOverrideValue
#define activateIgnoringOtherApps hidden_activateIgnoringOtherApps
#define beginSheet hidden_beginSheet
#define beginSheetModalForWindow hidden_beginSheetModalForWindow
#define convertScreenToBase hidden_convertScreenToBase
#define endSheet hidden_endSheet
#define flushWindow hidden_flushWindow
#define launchApplication hidden_launchApplication
#define NSMakeRange hidden_NSMakeRange
#import <Foundation/NSDate.h>
#import <Foundation/NSMapTable.h>
#import <Foundation/NSObject.h>
#import <Foundation/NSProxy.h>
// Of a class only its definition can have an annotation.
#pragma clang attribute push(__attribute__((availability(macos, deprecated = 10.13))), \
                             apply_to = objc_interface)
#import <Foundation/NSConnection.h>
#import <Foundation/NSDistantObject.h>
#pragma clang attribute pop
#import <gaps.h>
#undef accessibilityAttributeValue
#undef accessibilitySetOverrideValue
#undef activateIgnoringOtherApps
#undef beginSheet
#undef beginSheetModalForWindow
#undef convertScreenToBase
#undef endSheet
#undef flushWindow
#undef launchApplication
#undef NSMakeRange

// Inline on the Mac, where no library has it.
inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
  return {location, length};
}

#define DEPRECATED_IN(version) __attribute__((availability(macos, deprecated = version)))

@interface NSApplication (Deprecated)
- (void)activateIgnoringOtherApps:(BOOL)flag DEPRECATED_IN(14.0);
- (void)beginSheet:(NSWindow *)sheet
    modalForWindow:(NSWindow *)window
     modalDelegate:(id)delegate
    didEndSelector:(SEL)selector
       contextInfo:(void *)context DEPRECATED_IN(10.10);
- (void)endSheet:(NSWindow *)sheet DEPRECATED_IN(10.10);
@end

@interface NSAlert (Deprecated)
- (void)beginSheetModalForWindow:(NSWindow *)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void *)context DEPRECATED_IN(10.10);
@end

@interface NSObject (DeprecatedAccessibility)
- (id)accessibilityAttributeValue:(NSString *)attribute DEPRECATED_IN(10.10);
- (BOOL)accessibilitySetOverrideValue:(id)value
                         forAttribute:(NSString *)attribute DEPRECATED_IN(10.10);
@end

@interface NSWindow (Deprecated)
- (NSPoint)convertScreenToBase:(NSPoint)point DEPRECATED_IN(10.7);
- (void)flushWindow DEPRECATED_IN(10.14);
@end

@interface NSWorkspace (Deprecated)
- (BOOL)launchApplication:(NSString *)name DEPRECATED_IN(11.0);
@end

extern "C" CFStringRef CFURLCreateStringByAddingPercentEscapes(CFAllocatorRef, CFStringRef,
                                                               CFStringRef, CFStringRef,
                                                               CFStringEncoding)
    DEPRECATED_IN(10.11);

// Constants of another name: those of an enumeration cannot be declared again.
#define DEPRECATED_CONSTANT(name, version) \
  constexpr auto Deprecated_##name DEPRECATED_IN(version) = name
DEPRECATED_CONSTANT(NSBorderlessWindowMask, 10.12);
DEPRECATED_CONSTANT(NSCommandKeyMask, 10.12);
DEPRECATED_CONSTANT(NSKeyDown, 10.12);
DEPRECATED_CONSTANT(NSKeyDownMask, 10.12);
DEPRECATED_CONSTANT(NSKeyUpMask, 10.12);
DEPRECATED_CONSTANT(NSLeftMouseDown, 10.12);
DEPRECATED_CONSTANT(NSLeftMouseDownMask, 10.12);
DEPRECATED_CONSTANT(NSLeftMouseUpMask, 10.12);
DEPRECATED_CONSTANT(NSOnState, 10.14);
DEPRECATED_CONSTANT(NSRightMouseDownMask, 10.12);
DEPRECATED_CONSTANT(NSRightMouseUpMask, 10.12);
DEPRECATED_CONSTANT(NSWarningAlertStyle, 10.12);
#define NSBorderlessWindowMask Deprecated_NSBorderlessWindowMask
#define NSCommandKeyMask Deprecated_NSCommandKeyMask
#define NSKeyDown Deprecated_NSKeyDown
#define NSKeyDownMask Deprecated_NSKeyDownMask
#define NSKeyUpMask Deprecated_NSKeyUpMask
#define NSLeftMouseDown Deprecated_NSLeftMouseDown
#define NSLeftMouseDownMask Deprecated_NSLeftMouseDownMask
#define NSLeftMouseUpMask Deprecated_NSLeftMouseUpMask
#define NSOnState Deprecated_NSOnState
#define NSRightMouseDownMask Deprecated_NSRightMouseDownMask
#define NSRightMouseUpMask Deprecated_NSRightMouseUpMask
#define NSWarningAlertStyle Deprecated_NSWarningAlertStyle

#import "Gaps.h"
