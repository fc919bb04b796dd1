#pragma once

#include <AppKit/AppKit.h>

/// The attribute with the font that a text was given, where another one stands in for it. Of the
/// same name as on the Mac.
extern NSString *const kOriginalFontAttribute;
