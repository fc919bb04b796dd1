// Interfaces of macOS 10.6 that the program uses and the headers of COCOA_HEADERS lack, to be
// included behind those.

@interface NSProtocolChecker : NSProxy
- (id)initWithTarget:(NSObject *)target protocol:(Protocol *)protocol;
- (Protocol *)protocol;
- (NSObject *)target;
@end
@interface NSTextView (MarkedText)
- (BOOL)hasMarkedText;
@end
@protocol NSTextViewDelegate <NSObject>
@optional
- (BOOL)textView:(NSTextView *)textView doCommandBySelector:(SEL)selector;
@end
