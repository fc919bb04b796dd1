#import "platform/gnustep/NSObject+Accessibility.h"

#import <objc/runtime.h>

#import "platform/gnustep/DeallocHook.h"

namespace {

/// Elements by address: each has a dictionary from attributes to values. An element's entry goes
/// with it.
NSMapTable *overrides() {
  static NSMapTable *const table =
      [[NSMapTable alloc] initWithKeyOptions:NSPointerFunctionsOpaqueMemory |
                                             NSPointerFunctionsOpaquePersonality
                                valueOptions:NSPointerFunctionsStrongMemory
                                    capacity:16];
  return table;
}

void forget(id element) {
  [overrides() removeObjectForKey:element];
}

}  // namespace

@implementation NSObject (AccessibilityOverride)

- (id)accessibilityAttributeValue:(NSString *)attribute {
  return [[overrides() objectForKey:self] objectForKey:attribute];
}

- (BOOL)accessibilitySetOverrideValue:(id)value forAttribute:(NSString *)attribute {
  if (attribute == nil) return NO;
  NSMutableDictionary *attributes = [overrides() objectForKey:self];
  if (attributes == nil) {
    addDeallocHook(object_getClass(self), forget);
    attributes = [NSMutableDictionary dictionary];
    [overrides() setObject:attributes forKey:self];
  }
  if (value == nil) {
    [attributes removeObjectForKey:attribute];
  } else {
    [attributes setObject:value forKey:attribute];
  }
  return YES;
}

@end

/// The parts of the platform's interface file loader that are met here.
@interface GSXibElement : NSObject
- (GSXibElement *)elementForKey:(NSString *)key;
- (NSString *)attributeForKey:(NSString *)key;
@end

@interface GSXib5KeyedUnarchiver : NSObject
@end

@interface GSXib5KeyedUnarchiver (AccessibilityDescription)
@end

namespace {

using Decode = id (*)(id, SEL, GSXibElement *, NSString *, NSString *);
Decode platformDecode = nullptr;

id decode(id unarchiver, SEL selector, GSXibElement *element, NSString *className, NSString *id_) {
  id const object = platformDecode(unarchiver, selector, element, className, id_);
  NSString *const description =
      [[element elementForKey:@"accessibility"] attributeForKey:@"description"];
  if (description != nil) {
    [object accessibilitySetOverrideValue:description
                             forAttribute:NSAccessibilityDescriptionAttribute];
  }
  return object;
}

}  // namespace

@implementation GSXib5KeyedUnarchiver (AccessibilityDescription)

+ (void)load {
  const SEL selector = @selector(decodeObjectForXib:forClassName:withID:);
  Method const method = class_getInstanceMethod(self, selector);
  platformDecode = reinterpret_cast<Decode>(method_getImplementation(method));
  class_replaceMethod(self, selector, reinterpret_cast<IMP>(decode), method_getTypeEncoding(method));
}

@end
