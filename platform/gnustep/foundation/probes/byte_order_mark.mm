#import <Foundation/Foundation.h>

// A copy of two characters, of which the first may be a byte-order mark of the other order.
int main() {
  @autoreleasepool {
    const unichar characters[] = {0xFFFE, 'a'};
    NSString *const text = [NSString stringWithCharacters:characters length:2];
    NSString *const copy = [[text mutableCopy] autorelease];
    return [copy length] == 2 && [copy characterAtIndex:1] == 'a' ? 0 : 1;
  }
}
