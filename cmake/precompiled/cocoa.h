/// What nearly every source includes of the platform and of the C++ library, for the precompiled
/// header. No source counts on it: each includes what it uses, as the check of the API floor, which
/// goes without it, makes sure.
#ifdef __OBJC__
#import <AppKit/AppKit.h>
#endif

#include <functional>
#include <optional>
#include <string>
#include <vector>
