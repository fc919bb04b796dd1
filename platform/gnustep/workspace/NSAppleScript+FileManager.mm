#import "platform/gnustep/workspace/NSAppleScript+FileManager.h"

#import "platform/gnustep/workspace/FileManagerSelection.h"

NSString *const NSAppleScriptErrorMessage = @"NSAppleScriptErrorMessage";
NSString *const NSAppleScriptErrorNumber = @"NSAppleScriptErrorNumber";

namespace {

NSString *const kSelectionScript = @"property stdout : \"\"\n"
                                   @"tell application \"Finder\"\n"
                                   @"copy selection to selectedItems\n"
                                   @"if ((count of selectedItems) > 0) then\n"
                                   @"repeat with x in selectedItems\n"
                                   @"set itemN to (POSIX path of (x as alias))\n"
                                   @"set stdout to stdout & itemN & \"\n"
                                   @"\"\n"
                                   @"end repeat\n"
                                   @"else\n"
                                   @"end if\n"
                                   @"stdout\n"
                                   @"end tell";

/// Blocks the calling thread when the file manager hangs.
constexpr NSTimeInterval kReplyTimeoutSeconds = 5;

// The Mac's numbers.
constexpr int kSyntaxError = -2741;
constexpr int kApplicationNotRunning = -600;
constexpr int kNoSuchItem = -43;

void report(NSDictionary **errorInfo, int number, NSString *message) {
  if (errorInfo == nullptr) return;
  *errorInfo = [NSDictionary dictionaryWithObjectsAndKeys:message, NSAppleScriptErrorMessage,
                                                          [NSNumber numberWithInt:number],
                                                          NSAppleScriptErrorNumber, nil];
}

/// The item's path in the Finder's form, nil when there is no such item.
NSString *posixPath(NSString *path) {
  BOOL isFolder = NO;
  if (![[NSFileManager defaultManager] fileExistsAtPath:path isDirectory:&isFolder]) return nil;
  return isFolder && ![path hasSuffix:@"/"] ? [path stringByAppendingString:@"/"] : path;
}

}  // namespace

/// The class of the objects that +[NSAppleScript alloc] creates, because the platform's has no
/// instance variables.
@interface SelectionScript : NSAppleScript {
 @private
  NSString *_source;
  NSMutableString *_stdout;
  BOOL _isCompiled;
}
@end

@implementation SelectionScript

- (id)initWithSource:(NSString *)source {
  if ((self = [super init])) {
    _source = [source copy];
    _stdout = [[NSMutableString alloc] init];
  }
  return self;
}

- (void)dealloc {
  [_source release];
  [_stdout release];
  [super dealloc];
}

- (NSString *)source {
  return _source;
}

- (BOOL)isCompiled {
  return _isCompiled;
}

- (BOOL)compileAndReturnError:(NSDictionary **)errorInfo {
  if ([_source isEqualToString:kSelectionScript]) {
    _isCompiled = YES;
  } else {
    report(errorInfo, kSyntaxError, @"This platform knows one script, and this is another.");
  }
  return _isCompiled;
}

- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)errorInfo {
  if (![self compileAndReturnError:errorInfo]) return nil;
  NSArray *const selection = selectionOfFileManager(kReplyTimeoutSeconds);
  if (selection == nil) {
    report(errorInfo, kApplicationNotRunning, @"The file manager does not answer.");
    return nil;
  }
  for (NSString *path in selection) {
    NSString *const item = posixPath(path);
    if (item == nil) {
      report(errorInfo, kNoSuchItem, @"A selected item is not there any more.");
      return nil;
    }
    [_stdout appendFormat:@"%@\n", item];
  }
  return [NSAppleEventDescriptor descriptorWithString:_stdout];
}

@end

@interface TextDescriptor : NSAppleEventDescriptor {
 @private
  NSString *_string;
}
- (id)initWithText:(NSString *)string;
@end

@implementation TextDescriptor

- (id)initWithText:(NSString *)string {
  if ((self = [super init])) _string = [string copy];
  return self;
}

- (void)dealloc {
  [_string release];
  [super dealloc];
}

- (NSString *)stringValue {
  return _string;
}

@end

// The platform's classes have no instance variables, so their objects are of these subclasses.

@implementation NSAppleScript (Allocation)

+ (id)allocWithZone:(NSZone *)zone {
  const Class cls = self == [NSAppleScript class] ? [SelectionScript class] : self;
  return NSAllocateObject(cls, 0, zone);
}

@end

@implementation NSAppleEventDescriptor (Texts)

+ (NSAppleEventDescriptor *)descriptorWithString:(NSString *)string {
  return string == nil ? nil : [[[TextDescriptor alloc] initWithText:string] autorelease];
}

@end
