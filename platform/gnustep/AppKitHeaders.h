/// AppKit, likewise (FoundationHeaders.h).
#ifdef __OBJC__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wpragma-clang-attribute"
#pragma clang attribute push(__attribute__((objc_non_runtime_protocol)), apply_to = objc_protocol)
#import <AppKit/AppKit.h>
#pragma clang attribute pop
#pragma clang diagnostic pop
#endif
