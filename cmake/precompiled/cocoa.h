/// What nearly every source includes of the platform and of the C++ library, for the precompiled
/// header. No source relies on it: each includes what it uses, which the check of the API floor
/// verifies by compiling without it.
#ifdef __OBJC__
#import <AppKit/AppKit.h>
#endif

#include <functional>
#include <optional>
#include <string>
#include <vector>
