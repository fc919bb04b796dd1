/// For the tests that need no AppKit.
#include <gtest/gtest.h>

#ifdef __OBJC__
#import <Foundation/Foundation.h>
#endif

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>
