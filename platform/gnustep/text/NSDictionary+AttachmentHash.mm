#import <AppKit/AppKit.h>

#include <array>

#import "platform/gnustep/runtime/MethodReplacement.h"

// The platform keeps the attributes of all texts in one hash table, in which each set of attributes
// is there once, and takes the number of attributes for a hash. So all texts with a picture, or a
// token of a token field, come to lie in one bucket: each is compared with all others whenever a
// text is put together, changed or freed, and a list of 5,000 tokens takes seconds. Here a set of
// attributes with an attachment has the attachment's hash: equal ones have the same attachment.

@interface NSDictionary (AttachmentHash)
@end

namespace {

NSUInteger hashOf(id attributes, SEL selector) {
  (void)selector;
  return [attributes count] + [[attributes objectForKey:NSAttachmentAttributeName] hash];
}

}  // namespace

@implementation NSDictionary (AttachmentHash)

+ (void)load {
  // Each by itself, because replacing a method does not reach all subclasses. Of those that are not
  // among them, none is used for attributes.
  constexpr std::array kClasses = {"NSDictionary", "NSMutableDictionary", "GSDictionary",
                                   "GSMutableDictionary", "GSCachedDictionary"};
  for (const char *name : kClasses) {
    // Initialised, because some take methods over from others then.
    Class const cls = [objc_getClass(name) class];
    platform::replaceMethod(cls, @selector(hash), reinterpret_cast<IMP>(hashOf));
  }
}

@end
