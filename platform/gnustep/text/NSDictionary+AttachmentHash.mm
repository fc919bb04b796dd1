#import <AppKit/AppKit.h>

#include <array>

#import "platform/gnustep/runtime/MethodReplacement.h"

// The platform stores the attribute dictionaries of all texts in one hash table, and the hash of a
// dictionary is its count. So those with an attachment, as each token of a token field has, fall
// into one bucket and are compared with each other whenever a text is created, changed or
// deallocated: a list of 5,000 tokens takes seconds. Here the hash of the attachment is added.

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
  // Each of the classes that are used for attributes, because they do not all inherit the method:
  // some copy it from another class.
  constexpr std::array kClasses = {"NSDictionary", "NSMutableDictionary", "GSDictionary",
                                   "GSMutableDictionary", "GSCachedDictionary"};
  for (const char *name : kClasses) {
    // By a message, because some classes copy methods from others in +initialize.
    Class const cls = [objc_getClass(name) class];
    platform::replaceMethod(cls, @selector(hash), reinterpret_cast<IMP>(hashOf));
  }
}

@end
