#pragma once

#import <AppKit/AppKit.h>

/// The platform's combo box asks its delegate without naming a protocol for it. All of its methods
/// are optional on the Mac.
@protocol NSComboBoxDelegate <NSObject>
@end
