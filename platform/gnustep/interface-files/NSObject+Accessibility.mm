#import "platform/gnustep/interface-files/NSObject+Accessibility.h"

#import <objc/runtime.h>

#import "platform/gnustep/runtime/DeallocHook.h"

namespace {

/// By address, for each element a dictionary from attributes to values, which is removed when the
/// element is deallocated.
NSMapTable *overrides() {
  static NSMapTable *const table = [[NSMapTable alloc]
      initWithKeyOptions:NSPointerFunctionsOpaqueMemory | NSPointerFunctionsOpaquePersonality
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
