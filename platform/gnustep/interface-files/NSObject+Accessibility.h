#pragma once

#import <AppKit/AppKit.h>

/// What the platform lacks of the informal protocol for accessibility: attributes that an interface
/// file or the program sets for an element. XibLoading.mm reads them from interface files.
@interface NSObject (AccessibilityOverride)

/// The value that was set last, nil when there is none. Main thread.
- (id)accessibilityAttributeValue:(NSString *)attribute;

/// Sets an attribute of this element until it is deallocated; nil removes it. Answers YES.
/// Main thread.
- (BOOL)accessibilitySetOverrideValue:(id)value forAttribute:(NSString *)attribute;

@end
