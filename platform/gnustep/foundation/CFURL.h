#import <Foundation/Foundation.h>

// CoreFoundation's percent-escaping, with its own types. A CFStringRef is an NSString here, as it
// is on the Mac.
using CFAllocatorRef = const void *;
using CFStringRef = NSString *;
using CFStringEncoding = uint32_t;

constexpr CFStringEncoding kCFStringEncodingUTF8 = 0x08000100;

/// original with every character percent-escaped that is not legal in a URL or stands in
/// legalURLCharactersToBeEscaped, except those in charactersToLeaveUnescaped (nil for none): each
/// byte of it in UTF-8 as a percent sign and two upper-case hexadecimal digits. An unpaired
/// surrogate, which UTF-8 cannot encode, is escaped as U+FFFD. The allocator is not used; encodings
/// other than UTF-8 answer nil, as does nil. The caller owns the result.
CFStringRef CFURLCreateStringByAddingPercentEscapes(CFAllocatorRef allocator, CFStringRef original,
                                                    CFStringRef charactersToLeaveUnescaped,
                                                    CFStringRef legalURLCharactersToBeEscaped,
                                                    CFStringEncoding encoding) NS_RETURNS_RETAINED;
