#import "windows/send/CopyOutcome.h"

CopyOutcome outcomeOfCopy(NSDictionary *reply, NSString *clipboardStatus) {
  if ([reply count] == 0) return CopyOutcome::NoReply;
  return [clipboardStatus isEqualToString:@"0"] ? CopyOutcome::Copied : CopyOutcome::Refused;
}
