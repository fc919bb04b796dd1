#import "windows/send/DirectCopy.h"

namespace {

void logEnd(CopyOutcome outcome) {
  switch (outcome) {
    case CopyOutcome::Copied:
      NSLog(@"Link copied successfully.");
      return;
    case CopyOutcome::Refused:
      NSLog(@"Unable to copy link at this time");
      return;
    case CopyOutcome::NoReply:
      NSLog(@"Getting null data from rest API(machine offline or server down)");
      return;
  }
}

}  // namespace

CopyOutcome copyLinkDirectly(CopyLinkController *controller, NSString *path) {
  NSDictionary *const reply = [controller getCopyLink:path:YES:NO:@"-1"];
  NSString *const status = [controller pasteToClipboard:reply];
  const CopyOutcome outcome = outcomeOfCopy(reply, status);
  logEnd(outcome);
  return outcome;
}
