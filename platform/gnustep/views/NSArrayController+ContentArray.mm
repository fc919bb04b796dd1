#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

/// An array controller whose content is bound to an array of a model removes objects through the
/// model's accessor. The platform removes from the array directly, and all objects that are equal.
@interface NSArrayController (ContentArray)
@end

namespace {

constinit platform::ReplacedMethod<void(NSUInteger)> platformRemoveObject;

/// removeObjectFrom<Key>AtIndex: for the key.
SEL removerFor(NSString *key) {
  if ([key length] == 0) return nullptr;
  NSString *const initial = [[key substringToIndex:1] uppercaseString];
  return NSSelectorFromString([NSString
      stringWithFormat:@"removeObjectFrom%@%@AtIndex:", initial, [key substringFromIndex:1]]);
}

}  // namespace

@implementation NSArrayController (ContentArray)

+ (void)load {
  platformRemoveObject.install(self, @selector(removeObjectAtArrangedObjectIndex:),
                               @selector(removeObjectThroughModelAtArrangedObjectIndex:));
}

- (void)removeObjectThroughModelAtArrangedObjectIndex:(NSUInteger)index {
  NSDictionary *const binding = [self infoForBinding:NSContentArrayBinding];
  id const model = [binding objectForKey:NSObservedObjectKey];
  const SEL remover = removerFor([binding objectForKey:NSObservedKeyPathKey]);
  if (remover == nullptr || ![model respondsToSelector:remover]) {
    platformRemoveObject(self, _cmd, index);
    return;
  }
  id const object = [[[[self arrangedObjects] objectAtIndex:index] retain] autorelease];
  const NSUInteger place = [[self content] indexOfObjectIdenticalTo:object];
  [self willChangeValueForKey:NSContentBinding];
  [self removeSelectedObjects:[NSArray arrayWithObject:object]];
  using Remove = void (*)(id, SEL, NSUInteger);
  const auto removeFromModel = reinterpret_cast<Remove>([model methodForSelector:remover]);
  removeFromModel(model, remover, place);
  [self rearrangeObjects];
  [self didChangeValueForKey:NSContentBinding];
}
@end
