#import <Foundation/Foundation.h>
#import <Foundation/NSAppleEventDescriptor.h>
#import <Foundation/NSAppleScript.h>

/// What the platform's empty classes lack of macOS 10.6, as far as one script goes: the one that
/// reads what is selected in the Finder. Here it reads the selection of GWorkspace. Any other
/// script does not compile. Main thread.

/// Keys of the error information: a text, and a number as on the Mac.
extern NSString *const NSAppleScriptErrorMessage;
extern NSString *const NSAppleScriptErrorNumber;

@interface NSAppleScript (FileManager)

- (id)initWithSource:(NSString *)source;
- (NSString *)source;
- (BOOL)isCompiled;

/// errorInfo: may be null; set (autoreleased) only when the answer is NO.
- (BOOL)compileAndReturnError:(NSDictionary **)errorInfo;

/// Compiles first if need be. The POSIX paths of what is selected, each followed by a line feed; a
/// folder's ends with a slash. The script's text is a property, so executing it again appends to
/// it. nil when the file manager does not reply within five seconds, or when one of the items does
/// not exist any more. errorInfo: as above.
- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)errorInfo;

@end

@interface NSAppleEventDescriptor (FileManager)

/// The text.
- (NSString *)stringValue;

@end

@interface NSAppleEventDescriptor (Texts)

/// A descriptor of a text. Autoreleased; nil for nil.
+ (NSAppleEventDescriptor *)descriptorWithString:(NSString *)string;

@end
