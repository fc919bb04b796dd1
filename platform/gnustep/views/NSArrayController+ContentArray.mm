#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/OwnMethod.h"

/// An array controller whose content is bound to an array of another object removes from it through
/// that object, so that the object knows; the platform's own takes things out of the array behind
/// its back, and all that are equal to the one that is meant.
@interface NSArrayController (ContentArray)
@end

namespace {

/// removeObjectFrom<Key>AtIndex: for the key.
SEL removerFor(NSString *key) {
  if ([key length] == 0) return nullptr;
  NSString *const initial = [[key substringToIndex:1] uppercaseString];
  return NSSelectorFromString([NSString
      stringWithFormat:@"removeObjectFrom%@%@AtIndex:", initial, [key substringFromIndex:1]]);
}

}  // namespace

@implementation NSArrayController (ContentArray)

// The category's method is the one that counts.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
- (void)removeObjectAtArrangedObjectIndex:(NSUInteger)index {
  using Remove = void (*)(id, SEL, NSUInteger);
  static const auto own = ownMethod<Remove>([NSArrayController class], _cmd);
  NSDictionary *const binding = [self infoForBinding:NSContentArrayBinding];
  id const model = [binding objectForKey:NSObservedObjectKey];
  const SEL remover = removerFor([binding objectForKey:NSObservedKeyPathKey]);
  if (remover == nullptr || ![model respondsToSelector:remover]) {
    own(self, _cmd, index);
    return;
  }
  id const object = [[[[self arrangedObjects] objectAtIndex:index] retain] autorelease];
  const NSUInteger place = [[self content] indexOfObjectIdenticalTo:object];
  [self willChangeValueForKey:NSContentBinding];
  [self removeSelectedObjects:[NSArray arrayWithObject:object]];
  const auto removeFromModel = reinterpret_cast<Remove>([model methodForSelector:remover]);
  removeFromModel(model, remover, place);
  [self rearrangeObjects];
  [self didChangeValueForKey:NSContentBinding];
}
#pragma clang diagnostic pop

@end
