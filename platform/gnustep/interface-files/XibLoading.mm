#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSVersion.h>
#import <objc/runtime.h>

#include <string_view>

#import "platform/gnustep/interface-files/NSObject+Accessibility.h"

// What the platform's loader does not read of an interface file as the Mac's tools write it, and
// what it leaves behind.

@interface GSXibElement : NSObject
- (GSXibElement *)elementForKey:(NSString *)key;
- (NSString *)attributeForKey:(NSString *)key;
@end

/// The loader; its own header is not public.
@interface GSXib5KeyedUnarchiver : NSObject
@end

@interface GSXib5KeyedUnarchiver (MacElements)
@end

namespace {

/// Puts `ours` in the place of a method that `cls` has itself, and answers what stood there.
template <class Implementation>
Implementation replaced(Class cls, SEL selector, Implementation ours) {
  Method const method = class_getInstanceMethod(cls, selector);
  if (method == nullptr) return nullptr;  // another version of the platform
  return reinterpret_cast<Implementation>(
      method_setImplementation(method, reinterpret_cast<IMP>(ours)));
}

using DecodeObject = id (*)(id, SEL, GSXibElement *, NSString *, NSString *);
DecodeObject platformDecodeObject = nullptr;

/// <accessibility description="..."/> of a view or a cell.
id decodeObject(id unarchiver, SEL selector, GSXibElement *element, NSString *className,
                NSString *identifier) {
  id const object = platformDecodeObject(unarchiver, selector, element, className, identifier);
  NSString *const description =
      [[element elementForKey:@"accessibility"] attributeForKey:@"description"];
  if (description != nil) {
    [object accessibilitySetOverrideValue:description
                             forAttribute:NSAccessibilityDescriptionAttribute];
  }
  return object;
}

using DecodeSize = NSSize (*)(id, SEL, NSString *);
DecodeSize platformDecodeSize = nullptr;

/// The sizes of a collection view's items have other names in an archive than in an interface file.
NSSize decodeSize(id unarchiver, SEL selector, NSString *key) {
  NSString *name = key;
  if ([key isEqualToString:@"NSMinGridSize"]) name = @"minItemSize";
  if ([key isEqualToString:@"NSMaxGridSize"]) name = @"maxItemSize";
  return platformDecodeSize(unarchiver, selector, name);
}

using SetElement = void (*)(id, SEL, GSXibElement *, NSString *);
SetElement platformSetElement = nullptr;

/// The platform never gives back the element in which it notes whether a window is visible at
/// launch. In the releases up to 0.29; who takes a later one looks again.
void setElement(id owner, SEL selector, GSXibElement *element, NSString *key) {
  platformSetElement(owner, selector, element, key);
  constexpr bool kIsLeftBehind = GNUSTEP_GUI_MAJOR_VERSION == 0 && GNUSTEP_GUI_MINOR_VERSION <= 29;
  if (kIsLeftBehind && [key hasSuffix:@"NSWindowTemplate.visibleAtLaunch"]) [element release];
}

/// Whether the file is of today's form: its outermost element is "document". The platform reads the
/// whole file as a tree for that and never gives the tree back, 300 KiB for each window.
BOOL isDocument(id, SEL, NSData *data) {
  const std::string_view text(static_cast<const char *>([data bytes]), [data length]);
  size_t tag = text.find('<');
  while (tag != std::string_view::npos && tag + 1 < text.size() &&
         (text[tag + 1] == '?' || text[tag + 1] == '!')) {
    const bool isComment = text.compare(tag, 4, "<!--") == 0;
    const size_t end = text.find(isComment ? "-->" : ">", tag);
    tag = end == std::string_view::npos ? end : text.find('<', end);
  }
  constexpr std::string_view kDocument = "<document";
  return tag != std::string_view::npos && text.compare(tag, kDocument.size(), kDocument) == 0;
}

}  // namespace

@implementation GSXib5KeyedUnarchiver (MacElements)

+ (void)load {
  platformDecodeObject =
      replaced(self, @selector(decodeObjectForXib:forClassName:withID:), decodeObject);
  platformDecodeSize = replaced(self, @selector(decodeSizeForKey:), decodeSize);
  platformSetElement =
      replaced(objc_getClass("GSXibElement"), @selector(setElement:forKey:), setElement);
  // Found by its name: a message would set it up before there is an autorelease pool.
  replaced(object_getClass(objc_getClass("GSXibKeyedUnarchiver")), @selector(checkXib5:),
           isDocument);
}

@end
