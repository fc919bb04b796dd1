#pragma once

#import <Foundation/Foundation.h>

#include <string>

/// Sends a message without the checks of the local proxy; returns the name of the exception that
/// came back, "" for none.
std::string sendOverWire(id proxy, SEL selector, const char *types, id argument = nil);
