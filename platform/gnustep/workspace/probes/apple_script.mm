#import <Foundation/Foundation.h>
#import <Foundation/NSAppleScript.h>

int main() {
  return [NSAppleScript instancesRespondToSelector:NSSelectorFromString(@"executeAndReturnError:")]
             ? 0
             : 1;
}
