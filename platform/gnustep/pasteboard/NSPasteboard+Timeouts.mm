#import "platform/gnustep/pasteboard/NSPasteboard+Timeouts.h"

#import <GNUstepGUI/GSDisplayServer.h>
#import <GNUstepGUI/GSPasteboardServer.h>
#include <X11/Xlib.h>

#include "platform/gnustep/pasteboard/LargeSelection.h"
#import "platform/gnustep/pasteboard/NSPasteboard+ServerConnection.h"
#include "platform/gnustep/pasteboard/SelectionOwner.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

@interface NSPasteboard (PlatformPrivate)
+ (NSPasteboard *)_pasteboardWithTarget:(id)target name:(NSString *)name;
- (id)_target;
@end

namespace {

constinit platform::ReplacedMethod<NSPasteboard *(NSString *)> platformPasteboardWithName;
constinit platform::ReplacedMethod<NSPasteboard *()> platformPasteboardWithUniqueName;
constinit platform::ReplacedMethod<int(NSArray *, id)> platformDeclareTypes;
constinit platform::ReplacedMethod<int(NSArray *, id)> platformAddTypes;
constinit platform::ReplacedMethod<BOOL(NSData *, NSString *)> platformSetData;
constinit platform::ReplacedMethod<NSArray *()> platformTypes;
constinit platform::ReplacedMethod<NSString *(NSArray *)> platformAvailableType;
constinit platform::ReplacedMethod<int()> platformChangeCount;
constinit platform::ReplacedMethod<NSData *(NSString *)> platformData;

/// As short as possible; 0 means no time-out.
constexpr NSTimeInterval kNoWaitSeconds = 0.001;

/// The time-out for the owner of a selection, the same as for the server.
constexpr double kOwnerSeconds = 2;

/// What the server receives of a large text on a busy machine, in addition to the time-out.
constexpr double kBytesASecond = 500'000;

NSUInteger unanswered = 0;
bool isSilent = false;
id serverGeneralPasteboard =
    nil;  // retained: the server's object for the general pasteboard, last known

/// The reply, or `none` when the server does not reply.
template <class Answer, class Question>
Answer resultOr(Answer none, Question question) {
  @try {
    Answer const answer = question();
    isSilent = false;
    return answer;
  } @catch (NSException *exception) {
    ++unanswered;
    isSilent = true;
    return none;
  }
}

/// The same for a request of one pasteboard.
template <class Answer, class Question>
Answer resultOr(Answer none, NSPasteboard *pasteboard, Question question) {
  return [pasteboard hasServer] ? resultOr(none, question) : none;
}

NSPasteboard *withoutServer(NSString *name) {
  isSilent = true;
  return [NSPasteboard _pasteboardWithTarget:nil name:name];
}

/// The selection of the display that a pasteboard stands for, null for none.
const char *selectionOf(NSString *name) {
  if ([name isEqualToString:NSGeneralPboard]) return "CLIPBOARD";
  if ([name isEqualToString:@"Selection"]) return "PRIMARY";
  if ([name isEqualToString:@"Secondary"]) return "SECONDARY";
  return nullptr;
}

/// The display of the application; null for none.
Display *applicationDisplay() {
  return static_cast<Display *>([GSCurrentServer() serverDevice]);
}

/// Null for the environment's.
const char *nameOfDisplay() {
  auto *const display = applicationDisplay();
  return display != nullptr ? DisplayString(display) : nullptr;
}

/// The text as the platform stores it on pasteboards; nil when it is not UTF-8.
NSData *serialized(const std::string &utf8) {
  NSString *const text = [[[NSString alloc] initWithBytes:utf8.data()
                                                   length:utf8.size()
                                                 encoding:NSUTF8StringEncoding] autorelease];
  return text == nil ? nil : [NSSerializer serializePropertyList:text];
}

/// The platform answers a proxy for the server's array, and each element is another request.
NSArray *localCopy(NSArray *remote) {
  if (remote == nil) return nil;
  NSMutableArray *const copy = [NSMutableArray array];
  const NSUInteger count = [remote count];
  for (NSUInteger i = 0; i < count; ++i) [copy addObject:[remote objectAtIndex:i]];
  return copy;
}

}  // namespace

@implementation NSPasteboard (Timeouts)

+ (void)load {
  Class const metaclass = object_getClass(self);
  platformPasteboardWithName.install(metaclass, @selector(pasteboardWithName:),
                                     @selector(boundedPasteboardWithName:));
  platformPasteboardWithUniqueName.install(metaclass, @selector(pasteboardWithUniqueName),
                                           @selector(boundedPasteboardWithUniqueName));
  platformDeclareTypes.install(self, @selector(declareTypes:owner:),
                               @selector(boundedDeclareTypes:owner:));
  platformAddTypes.install(self, @selector(addTypes:owner:), @selector(boundedAddTypes:owner:));
  platformSetData.install(self, @selector(setData:forType:), @selector(boundedSetData:forType:));
  platformTypes.install(self, @selector(types), @selector(boundedTypes));
  platformAvailableType.install(self, @selector(availableTypeFromArray:),
                                @selector(boundedAvailableTypeFromArray:));
  platformChangeCount.install(self, @selector(changeCount), @selector(boundedChangeCount));
  platformData.install(self, @selector(dataForType:), @selector(boundedDataForType:));
}

+ (NSUInteger)timedOutRequests {
  return unanswered;
}

+ (BOOL)isServerUnresponsive {
  return isSilent;
}

- (BOOL)hasServer {
  return [self _target] != nil;
}

#pragma mark - Getting one

+ (NSPasteboard *)boundedPasteboardWithName:(NSString *)name {
  const auto ask = [&] {
    return resultOr<NSPasteboard *>(nil,
                                    [&] { return platformPasteboardWithName(self, _cmd, name); });
  };
  const bool wasConnected = [NSPasteboard isConnectedToServer];
  NSPasteboard *found = ask();
  // It has exited, which this request has revealed.
  if (found == nil && wasConnected && ![NSPasteboard isConnectedToServer]) found = ask();
  if (found == nil) {
    ++unanswered;
    return withoutServer(name);
  }
  if ([name isEqualToString:NSGeneralPboard] && [found _target] != serverGeneralPasteboard) {
    [serverGeneralPasteboard release];
    serverGeneralPasteboard = [[found _target] retain];
  }
  return found;
}

+ (NSPasteboard *)boundedPasteboardWithUniqueName {
  NSPasteboard *const found =
      resultOr<NSPasteboard *>(nil, [&] { return platformPasteboardWithUniqueName(self, _cmd); });
  return found ?: withoutServer([[NSProcessInfo processInfo] globallyUniqueString]);
}

#pragma mark - Writing

- (int)boundedDeclareTypes:(NSArray *)types owner:(id)newOwner {
  const auto ask = [&] {
    return resultOr(0, self, [&] { return platformDeclareTypes(self, _cmd, types, newOwner); });
  };
  int count = ask();
  // The server notifies the former owner first, which may hang. At the second request it has none.
  if (count == 0) count = ask();
  if (count == 0) withoutServer([self name]);
  [self wakeServer];
  return count;
}

- (int)boundedAddTypes:(NSArray *)types owner:(id)newOwner {
  return resultOr(0, self, [&] { return platformAddTypes(self, _cmd, types, newOwner); });
}

- (BOOL)boundedSetData:(NSData *)data forType:(NSString *)type {
  NSConnection *const connection = [[self _target] connectionForProxy];
  const NSTimeInterval former = [connection replyTimeout];
  [connection setReplyTimeout:former + static_cast<double>([data length]) / kBytesASecond];
  const BOOL isTaken =
      resultOr<BOOL>(NO, self, [&] { return platformSetData(self, _cmd, data, type); });
  [connection setReplyTimeout:former];
  if (isTaken) [self announceData:type];
  return isTaken;
}

/// Programs that read at once whatever is new, as clipboard managers do, were told when the types
/// were declared, and the data was not there yet. The server tells them once more.
- (void)announceData:(NSString *)type {
  if (selectionOf([self name]) == nullptr) return;
  [self addTypes:[NSArray arrayWithObject:type] owner:nil];
  [self wakeServer];
}

- (void)wakeServer {
  const char *const selection = selectionOf([self name]);
  if (selection != nullptr) wakeSelectionOwner(applicationDisplay(), selection);
}

- (void)clearWhenServerResumes {
  NSConnection *const connection = [serverGeneralPasteboard connectionForProxy];
  if (![[self name] isEqualToString:NSGeneralPboard] || ![connection isValid]) return;
  // Sent without waiting for the reply. A process that is stopped receives it when it resumes.
  const NSTimeInterval former = [connection replyTimeout];
  [connection setReplyTimeout:kNoWaitSeconds];
  resultOr(0, [&] {
    return [serverGeneralPasteboard declareTypes:[NSArray array] owner:nil pasteboard:self];
  });
  [connection setReplyTimeout:former];
}

#pragma mark - Reading

- (NSArray *)boundedTypes {
  return resultOr<NSArray *>(nil, self, [&] { return localCopy(platformTypes(self, _cmd)); });
}

- (NSString *)boundedAvailableTypeFromArray:(NSArray *)types {
  return resultOr<NSString *>(nil, self, [&] { return platformAvailableType(self, _cmd, types); });
}

- (int)boundedChangeCount {
  return resultOr(0, self, [&] { return platformChangeCount(self, _cmd); });
}

- (NSData *)boundedDataForType:(NSString *)type {
  const char *const selection = selectionOf([self name]);
  if (selection != nullptr && [type isEqualToString:NSStringPboardType] && [self hasServer]) {
    const LargeSelection large = largeSelection(nameOfDisplay(), selection, kOwnerSeconds);
    if (large.kind == LargeSelection::Kind::Text) return serialized(large.utf8);
    if (large.kind == LargeSelection::Kind::Broken) return nil;
  }
  return resultOr<NSData *>(nil, self, [&] { return platformData(self, _cmd, type); });
}

@end
