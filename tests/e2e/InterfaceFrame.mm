#import "tests/e2e/InterfaceFrame.h"

#import <Foundation/Foundation.h>

#include <map>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

/// The element's path in the interface file.
NSString *pathOf(NSString *connection) {
  const NSRange dot = [connection rangeOfString:@"."];
  if (dot.location == NSNotFound) {
    return [NSString stringWithFormat:@"//*[connections/action[@selector='%@']]", connection];
  }
  return [NSString stringWithFormat:@"//*[@id=//customObject[@customClass='%@']/connections"
                                    @"/outlet[@property='%@']/@destination]",
                                    [connection substringToIndex:dot.location],
                                    [connection substringFromIndex:NSMaxRange(dot)]];
}

int valueOf(NSXMLElement *rect, NSString *name) {
  return [[[rect attributeForName:name] stringValue] intValue];
}

ScreenArea readFrame(const std::string &file, const std::string &connection) {
  @autoreleasepool {
    NSString *const path = [NSString stringWithFormat:@INTERFACE_FOLDER "/%s.xib", file.c_str()];
    NSXMLDocument *const document =
        [[[NSXMLDocument alloc] initWithData:[NSData dataWithContentsOfFile:path]
                                     options:0
                                       error:nullptr] autorelease];
    NSString *const element = pathOf([NSString stringWithUTF8String:connection.c_str()]);
    // A text view first, because its own frame lies in its scroll view.
    for (NSString *form in @[
           @"%@[self::textView]/ancestor::scrollView[1]/rect[@key='frame']",
           @"%@/rect[@key='frame']", @"%@/rect[@key='contentRect']",
           @"%@/view[@key='view']/rect[@key='frame']"
         ]) {
      NSString *const query = [form stringByReplacingOccurrencesOfString:@"%@" withString:element];
      NSXMLElement *const rect = [[document nodesForXPath:query error:nullptr] lastObject];
      if (rect == nil) continue;
      return {valueOf(rect, @"x"), valueOf(rect, @"y"), valueOf(rect, @"width"),
              valueOf(rect, @"height")};
    }
  }
  throw std::runtime_error("nothing in " + file + " for " + connection);
}

}  // namespace

InterfaceFrame::operator ScreenArea() const {
  // Looking for a connection takes much longer than most of what is done with its control.
  static std::map<std::pair<std::string, std::string>, ScreenArea> found;
  const std::pair<std::string, std::string> key = {file, connection};
  const auto known = found.find(key);
  if (known != found.end()) return known->second;
  return found.emplace(key, readFrame(file, connection)).first->second;
}
