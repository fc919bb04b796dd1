#import "tests/support/agent/Script.h"

#include <csignal>
#include <fstream>

#include <unistd.h>

/// A reply that ends its process when it is read: the agent dies after returning it and before
/// sending its content.
@interface FatalReply : NSDictionary
@end

@implementation FatalReply

- (NSUInteger)count {
  return 1;
}

- (id)objectForKey:(id)key {
  (void)key;
  kill(getpid(), SIGKILL);
  return nil;
}

- (NSEnumerator *)keyEnumerator {
  kill(getpid(), SIGKILL);
  return nil;
}

@end

/// The same as a list.
@interface FatalList : NSArray
@end

@implementation FatalList

- (NSUInteger)count {
  kill(getpid(), SIGKILL);
  return 0;
}

- (id)objectAtIndex:(NSUInteger)index {
  (void)index;
  kill(getpid(), SIGKILL);
  return nil;
}

@end

/// A dictionary that appends each key that it is asked for to a file, a line each.
@interface RecordingDictionary : NSDictionary {
 @public
  NSDictionary *entries;  // retained
  NSString *path;         // retained
}
@end

@implementation RecordingDictionary

- (void)dealloc {
  [entries release];
  [path release];
  [super dealloc];
}

- (NSUInteger)count {
  return [entries count];
}

- (id)objectForKey:(id)key {
  std::ofstream([path fileSystemRepresentation], std::ios::app) << [key UTF8String] << '\n';
  return [entries objectForKey:key];
}

- (NSEnumerator *)keyEnumerator {
  return [entries keyEnumerator];
}

@end

namespace {

constexpr useconds_t kPollMicroseconds = 5000;

NSArray *generatedContacts(NSUInteger count) {
  NSMutableArray *const contacts = [NSMutableArray arrayWithCapacity:count];
  for (NSUInteger i = 0; i < count; ++i) {
    @autoreleasepool {
      // Scattered, so that sorting has work to do; every second name has the comma form.
      const unsigned number = static_cast<unsigned>(i * 7919 % count);
      NSString *const name = i % 2 == 0
                                 ? [NSString stringWithFormat:@"First%u Läst%u", number, number]
                                 : [NSString stringWithFormat:@"Läst%u, First%u", number, number];
      NSString *const address = [NSString stringWithFormat:@"user%u@example.org", number];
      [contacts addObject:[NSDictionary dictionaryWithObjectsAndKeys:name, @"name", address,
                                                                     @"primaryemail", nil]];
    }
  }
  return contacts;
}

NSDictionary *successWithValue(id value) {
  return [NSDictionary
      dictionaryWithObjectsAndKeys:[NSNumber numberWithInt:0], @"error", value, @"value", nil];
}

void serveForAMoment() {
  @autoreleasepool {
    [[NSRunLoop currentRunLoop]
           runMode:NSDefaultRunLoopMode
        beforeDate:[NSDate dateWithTimeIntervalSinceNow:kPollMicroseconds / 1e6]];
  }
}

void waitWhileThereIs(NSString *path, bool serves) {
  while (path != nil && access([path fileSystemRepresentation], F_OK) == 0) {
    if (serves) {
      serveForAMoment();
    } else {
      usleep(kPollMicroseconds);
    }
  }
}

NSString *textOfLength(NSNumber *length) {
  return [@"https://" stringByPaddingToLength:[length unsignedIntegerValue]
                                   withString:@"link"
                              startingAtIndex:0];
}

/// The reply with a value of the same kind that ends its process when it is read. A text or number
/// is sent with the reply, so reading it sends no message.
id withFatalValue(NSDictionary *reply) {
  NSMutableDictionary *const fatal = [NSMutableDictionary dictionaryWithDictionary:reply];
  id const value = [reply objectForKey:@"value"];
  if ([value isKindOfClass:[NSDictionary class]]) {
    [fatal setObject:[[[FatalReply alloc] init] autorelease] forKey:@"value"];
  } else if ([value isKindOfClass:[NSArray class]]) {
    [fatal setObject:[[[FatalList alloc] init] autorelease] forKey:@"value"];
  }
  return fatal;
}

/// The reply with a value that records which of its entries are read.
id withRecordingValue(NSDictionary *reply, NSString *path) {
  RecordingDictionary *const value = [[[RecordingDictionary alloc] init] autorelease];
  value->entries = [[reply objectForKey:@"value"] retain];
  value->path = [path retain];
  NSMutableDictionary *const recording = [NSMutableDictionary dictionaryWithDictionary:reply];
  [recording setObject:value forKey:@"value"];
  return recording;
}

id replyOfEntry(NSDictionary *entry) {
  static NSMutableDictionary *books = [[NSMutableDictionary alloc] init];
  if ([[entry objectForKey:@"nil"] boolValue]) return nil;
  if ([[entry objectForKey:@"die"] isEqual:@"whenRead"]) {
    return [[[FatalReply alloc] init] autorelease];
  }
  if ([[entry objectForKey:@"die"] isEqual:@"whenValueIsRead"]) {
    return withFatalValue([entry objectForKey:@"reply"]);
  }
  if (NSString *const path = [entry objectForKey:@"recordReadsIn"]) {
    return withRecordingValue([entry objectForKey:@"reply"], path);
  }
  NSNumber *const contacts = [entry objectForKey:@"contacts"];
  if (contacts != nil) {
    if ([books objectForKey:contacts] == nil) {
      [books setObject:generatedContacts([contacts unsignedIntegerValue]) forKey:contacts];
    }
    return successWithValue([books objectForKey:contacts]);
  }
  NSNumber *const messageLength = [entry objectForKey:@"messageLength"];
  if (messageLength != nil) return @{@"error" : @1, @"errorMessage" : textOfLength(messageLength)};
  NSNumber *const linkLength = [entry objectForKey:@"linkLength"];
  if (linkLength != nil) return successWithValue(textOfLength(linkLength));
  return [entry objectForKey:@"reply"] ?: [NSDictionary dictionary];
}

}  // namespace

id actOut(NSDictionary *entry) {
  usleep(static_cast<useconds_t>([[entry objectForKey:@"delay"] doubleValue] * 1e6));
  waitWhileThereIs([entry objectForKey:@"hold"], [[entry objectForKey:@"serves"] boolValue]);
  if ([[entry objectForKey:@"die"] isEqual:@"before"]) kill(getpid(), SIGKILL);
  NSString *const exception = [entry objectForKey:@"raise"];
  if (exception != nil) [NSException raise:exception format:@"as the script says"];
  return replyOfEntry(entry);
}

@implementation Script

- (id)initWithPath:(NSString *)path {
  if ((self = [super init])) {
    _path = [path copy];
    _callCounts = [[NSMutableDictionary alloc] init];
  }
  return self;
}

- (void)dealloc {
  [_path release];
  [_callCounts release];
  [super dealloc];
}

- (NSDictionary *)nextEntryForOperation:(NSString *)operation {
  NSData *const data = [NSData dataWithContentsOfFile:_path];
  NSDictionary *const script =
      data == nil ? nil : [NSJSONSerialization JSONObjectWithData:data options:0 error:nullptr];
  const int number = [[script objectForKey:@"number"] intValue];
  if (number != _number) [_callCounts removeAllObjects];
  _number = number;
  id entry = [script objectForKey:operation];
  if ([entry isKindOfClass:[NSArray class]]) {
    const NSUInteger made = [[_callCounts objectForKey:operation] unsignedIntegerValue];
    [_callCounts setObject:[NSNumber numberWithUnsignedInteger:made + 1] forKey:operation];
    entry = [entry objectAtIndex:MIN(made, [entry count] - 1)];
  }
  return entry ?: [NSDictionary dictionary];
}

@end
