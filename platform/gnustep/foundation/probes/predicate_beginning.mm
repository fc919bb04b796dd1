#import <Foundation/Foundation.h>

// A string that is too short, and a letter with an accent in strings of one byte a character.
int main() {
  @autoreleasepool {
    const unichar capital[] = {0xC9, '<', '>'};
    const unichar small = 0xE9;
    NSString *const entry = [NSString stringWithCharacters:capital length:3];
    NSString *const letter = [NSString stringWithCharacters:&small length:1];
    NSPredicate *const tooLong = [NSPredicate predicateWithFormat:@"SELF BEGINSWITH[c] %@", @"ab"];
    NSPredicate *const accented =
        [NSPredicate predicateWithFormat:@"SELF BEGINSWITH[c] %@", letter];
    return ![tooLong evaluateWithObject:@"a"] && [accented evaluateWithObject:entry] ? 0 : 1;
  }
}
