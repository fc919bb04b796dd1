#import <AppKit/AppKit.h>

// One without tokens is a text field that ends its editing as every text field does.
int main() {
  const SEL ending = @selector(textDidEndEditing:);
  return [NSTokenField instanceMethodForSelector:ending] !=
                 [NSTextField instanceMethodForSelector:ending]
             ? 0
             : 1;
}
