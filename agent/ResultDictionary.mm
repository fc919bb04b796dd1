#import "agent/ResultDictionary.h"

#import <objc/runtime.h>

#import "text/UTF16.h"

/// What this file sends to dictionaries of another process. Declared as a protocol because a proxy
/// that knows its protocol need not ask the other side for each method's signature first.
@protocol RemoteDictionary
- (NSUInteger)count;
- (id)objectForKey:(id)key;
// By copy, because the other process would otherwise ask this one for each key.
- (NSArray *)objectsForKeys:(bycopy NSArray *)keys notFoundMarker:(bycopy id)marker;
- (NSArray *)allKeys;
- (BOOL)isKindOfClass:(Class)cls;
@end

/// What it sends to arrays.
@protocol RemoteTexts
- (NSString *)componentsJoinedByString:(NSString *)separator;
@end

/// A protocol is only known at run time when a class of the program adopts it.
@interface NSDictionary (RemoteDictionary) <RemoteDictionary>
@end
@implementation NSDictionary (RemoteDictionary)
@end
@interface NSArray (RemoteTexts) <RemoteTexts>
@end
@implementation NSArray (RemoteTexts)
@end

namespace agent {
namespace {

/// Control characters that no text has, "unit separator" and "record separator": one between the
/// texts, the other in place of one that is missing.
constexpr unichar kSeparator = 0x1F;
constexpr unichar kMissing = 0x1E;

NSString *textOf(unichar unit) {
  return [NSString stringWithCharacters:&unit length:1];
}

bool isLocal(id object, Class cls) {
  return ![object isProxy] && [object isKindOfClass:cls];
}

/// object as a dictionary, or as a proxy for what may be one; nil for a local object of another
/// class.
id asDictionary(id object) {
  if (object == nil) return nil;
  if (![object isProxy]) return [object isKindOfClass:[NSDictionary class]] ? object : nil;
  setProtocol(object, @protocol(RemoteDictionary));
  return object;
}

NSDictionary *allEntries(id dictionary) {
  NSArray *const keys = [dictionary allKeys];
  const NSUInteger count = [keys count];
  NSMutableDictionary *const copy = [NSMutableDictionary dictionaryWithCapacity:count];
  // By index: fast enumeration of a proxy would read memory of the other process.
  for (NSUInteger i = 0; i < count; ++i) {
    NSString *const key = stringOrNil([keys objectAtIndex:i]);
    id const value = key == nil ? nil : [dictionary objectForKey:key];
    if (value != nil) [copy setObject:value forKey:key];
  }
  return copy;
}

}  // namespace

NSString *stringOrNil(id object) {
  return isLocal(object, [NSString class]) ? object : nil;
}

void setProtocol(id object, Protocol *protocol) {
  // By the runtime, because a distant object forwards the question for its class.
  Class cls = object_getClass(object);
  while (cls != Nil && cls != [NSDistantObject class]) cls = class_getSuperclass(cls);
  if (cls != Nil) [static_cast<NSDistantObject *>(object) setProtocolForProxy:protocol];
}

NSDictionary *localCopyOfTexts(NSArray *keys, id dictionary) {
  id const remote = asDictionary(dictionary);
  if (remote == nil) return nil;
  id const texts = [remote objectsForKeys:keys notFoundMarker:textOf(kMissing)];
  setProtocol(texts, @protocol(RemoteTexts));
  NSArray *const parts = utf16::splitString(
      stringOrNil([texts componentsJoinedByString:textOf(kSeparator)]), kSeparator);
  if ([parts count] != [keys count]) return nil;
  NSMutableDictionary *const copy = [NSMutableDictionary dictionaryWithCapacity:[keys count]];
  for (NSUInteger i = 0; i < [keys count]; ++i) {
    NSString *const part = [parts objectAtIndex:i];
    if (![part isEqualToString:textOf(kMissing)]) {
      [copy setObject:part forKey:[keys objectAtIndex:i]];
    }
  }
  return copy;
}

NSDictionary *localCopyOfReply(id reply) {
  id const remote = asDictionary(reply);
  if (remote == nil) return nil;
  NSMutableDictionary *const copy = [NSMutableDictionary dictionaryWithCapacity:3];
  for (NSString *key in @[ kErrorKey, kValueKey, kErrorMessageKey ]) {
    id const value = [remote objectForKey:key];
    if (value != nil) [copy setObject:value forKey:key];
  }
  // A further round trip, but only for a reply with none of the three keys.
  return [copy count] > 0 || [remote count] == 0 ? copy : allEntries(remote);
}

NSDictionary *localCopyOfDictionary(id dictionary) {
  id const remote = asDictionary(dictionary);
  // A proxy is asked too, so that from here on only a broken connection raises.
  const bool isDictionary = [remote isKindOfClass:[NSDictionary class]];
  return isDictionary ? allEntries(remote) : [NSDictionary dictionary];
}

ReplyKind kindOfLinkReply(NSDictionary *reply) {
  if ([reply count] == 0) return ReplyKind::Unreachable;
  return [errorText(reply) isEqualToString:@"0"] ? ReplyKind::Succeeded : ReplyKind::Refused;
}

ReplyKind kindOfActionReply(NSDictionary *reply) {
  if ([reply count] == 0) return ReplyKind::Unreachable;
  return flagIn(reply, kErrorKey) ? ReplyKind::Refused : ReplyKind::Succeeded;
}

NSString *errorText(NSDictionary *reply) {
  id const error = [reply objectForKey:kErrorKey];
  return isLocal(error, [NSNumber class]) ? [error stringValue] : stringOrNil(error);
}

NSString *errorMessage(NSDictionary *reply) {
  return stringIn(reply, kErrorMessageKey);
}

BOOL flagIn(NSDictionary *entry, NSString *key) {
  return flagOf([entry objectForKey:key]);
}

BOOL flagOf(id value) {
  const bool readable = isLocal(value, [NSNumber class]) || isLocal(value, [NSString class]);
  return readable && [value boolValue];
}

NSString *stringIn(NSDictionary *entry, NSString *key) {
  return stringOrNil([entry objectForKey:key]);
}

}  // namespace agent
