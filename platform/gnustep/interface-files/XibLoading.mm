#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSVersion.h>

#include <string_view>

#import "platform/gnustep/interface-files/NSObject+Accessibility.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// Reads what the platform's loader ignores in interface files of the Mac's tools, and releases what
// it leaks.

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

constinit platform::ReplacedMethod<id(GSXibElement *, NSString *, NSString *)> platformDecodeObject;

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

constinit platform::ReplacedMethod<NSSize(NSString *)> platformDecodeSize;

/// The smallest size of a window's contents has the key of that of its frame in an interface file.
/// The platform would take it for the frame's, which has another unit where the screen is scaled.
NSString *const kContentMinSize = @"NSWindowContentMinSize";
NSString *const kMinSize = @"NSMinSize";

/// Sizes that have other keys in an archive than in an interface file.
NSSize decodeSize(id unarchiver, SEL selector, NSString *key) {
  NSString *name = key;
  if ([key isEqualToString:@"NSMinGridSize"]) name = @"minItemSize";
  if ([key isEqualToString:@"NSMaxGridSize"]) name = @"maxItemSize";
  if ([key isEqualToString:kContentMinSize]) name = kMinSize;
  return platformDecodeSize(unarchiver, selector, name);
}

constinit platform::ReplacedMethod<BOOL(NSString *)> platformContainsValue;

BOOL containsValue(id unarchiver, SEL selector, NSString *key) {
  return platformContainsValue(unarchiver, selector,
                               [key isEqualToString:kContentMinSize] ? kMinSize : key);
}

constinit platform::ReplacedMethod<void(GSXibElement *, NSString *)> platformSetElement;

/// Up to release 0.29 the platform leaks the element that says whether a window is visible at
/// launch. A later release is to be checked.
void setElement(id owner, SEL selector, GSXibElement *element, NSString *key) {
  platformSetElement(owner, selector, element, key);
  constexpr bool kIsLeftBehind = GNUSTEP_GUI_MAJOR_VERSION == 0 && GNUSTEP_GUI_MINOR_VERSION <= 29;
  if (kIsLeftBehind && [key hasSuffix:@"NSWindowTemplate.visibleAtLaunch"]) [element release];
}

/// Whether the file has the current format, with "document" as the root element. The platform
/// parses the whole file for that and leaks the tree, 300 KiB for each window.
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
  platformDecodeObject.install(self, @selector(decodeObjectForXib:forClassName:withID:),
                               decodeObject);
  platformDecodeSize.install(self, @selector(decodeSizeForKey:), decodeSize);
  platformContainsValue.install(self, @selector(containsValueForKey:), containsValue);
  platformSetElement.install(objc_getClass("GSXibElement"), @selector(setElement:forKey:),
                             setElement);
  // By its name, because a message would initialise the class before there is an autorelease pool.
  Class const unarchiver = objc_getClass("GSXibKeyedUnarchiver");
  platform::replaceMethod(object_getClass(unarchiver), @selector(checkXib5:),
                          reinterpret_cast<IMP>(isDocument));
}

@end
