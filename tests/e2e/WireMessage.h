#pragma once

#import <Foundation/Foundation.h>

#include <string>

/// A message that goes over the wire whatever the local proxy would do with it; returns the name of
/// the exception that came back, "" for none.
std::string sendOverWire(id proxy, SEL selector, const char *types, id argument = nil);
