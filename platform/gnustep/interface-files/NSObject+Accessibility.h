#pragma once

#import <AppKit/AppKit.h>

/// What the platform lacks of the informal protocol for users who do not see the screen: attributes
/// that an interface file or the program gives to an element. The platform's loader does not read
/// <accessibility description="..."/>; that is supplied as well, for views and cells.
@interface NSObject (AccessibilityOverride)

/// The value that was set last, nil when there is none. Main thread.
- (id)accessibilityAttributeValue:(NSString *)attribute;

/// Sets an attribute of this element for as long as it lives; nil takes it away again. Answers YES.
/// Main thread.
- (BOOL)accessibilitySetOverrideValue:(id)value forAttribute:(NSString *)attribute;

@end
