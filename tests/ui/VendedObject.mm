#include <gtest/gtest.h>

#include <string>

#import "plugin/ContextMenuPlugin.h"
#import "plugin/ContextMenuProxy.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#include "tests/ui/CallDuringAction.h"

namespace {

/// A message as a client may send it, whether or not its proxy would.
NSInvocation *message(SEL selector, const char *types) {
  NSMethodSignature *const signature = [NSMethodSignature signatureWithObjCTypes:types];
  NSInvocation *const invocation = [NSInvocation invocationWithMethodSignature:signature];
  [invocation setSelector:selector];
  return invocation;
}

/// The same with an argument.
template <class Argument>
NSInvocation *message(SEL selector, const char *types, Argument argument) {
  NSInvocation *const invocation = message(selector, types);
  [invocation setArgument:&argument atIndex:2];
  return invocation;
}

const std::string kRefused = text(NSInvalidArgumentException);

/// The object that is vended to the plug-in.
///
/// Messages are sent to it as the Mac's connections may do it: without asking whether there is a
/// method signature for them.
struct VendedObject : testing::Test {
  id const vended =
      [static_cast<NSConnection *>([pluginEndpoint() valueForKey:@"_connection"]) rootObject];

  /// Sends it; the name of the exception that refuses it, "" for none.
  std::string refusalOf(NSInvocation *sent) const {
    @try {
      [sent invokeWithTarget:vended];
    } @catch (NSException *exception) {
      return text([exception name]);
    }
    return "";
  }

  /// Copies a link through the vended object; what is on the clipboard then.
  std::string copiedLink() const {
    loadedDelegate();
    EXPECT_TRUE(fillClipboard());
    AgentProcess agent;
    agent.answer(@"getLinkForFile:::::", success(@"https://x/y"));
    // clang-format off
    [vended copyLinkToClipboard:@"id-1":NO:NO];
    // clang-format on
    return text(clipboardText());
  }
};

}  // namespace

TEST_F(VendedObject, PassesTheOperationsOn) {
  EXPECT_EQ(copiedLink(), "https://x/y");
}

TEST_F(VendedObject, RefusesWhatEveryObjectCanDo) {
  EXPECT_EQ(refusalOf(message(@selector(valueForKey:), "@@:@", @"flag")), kRefused);
  EXPECT_EQ(refusalOf(message(@selector(mutableArrayValueForKey:), "@@:@", @"flag")), kRefused);
  EXPECT_EQ(refusalOf(message(@selector(classForCoder), "#@:")), kRefused);
  EXPECT_EQ(refusalOf(message(@selector(observationInfo), "^v@:")), kRefused);
  EXPECT_EQ(refusalOf(message(@selector(copy), "@@:")), kRefused);
  EXPECT_EQ(refusalOf(message(@selector(terminate:), "v@:@", id(nil))), kRefused);
}

TEST_F(VendedObject, PerformsNoMessageThatItIsAskedToPerform) {
  const SEL performed = @selector(retainCount);
  EXPECT_EQ(refusalOf(message(@selector(performSelector:), "@@::", performed)), kRefused);
  EXPECT_EQ(refusalOf(message(@selector(performSelector:withObject:), "@@::@", performed)),
            kRefused);
  EXPECT_EQ(
      refusalOf(message(@selector(performSelector:withObject:withObject:), "@@::@@", performed)),
      kRefused);
}

TEST_F(VendedObject, OutlivesEveryReleaseThatAClientSends) {
  ASSERT_EQ(refusalOf(message(@selector(valueForKey:), "@@:@", @"flag")), kRefused)
      << "any object: it would be deallocated below";
  for (int i = 0; i < 20; ++i) refusalOf(message(@selector(release), "v@:"));
  refusalOf(message(@selector(autorelease), "@@:"));
  refusalOf(message(@selector(dealloc), "v@:"));
  EXPECT_EQ(copiedLink(), "https://x/y");
}

TEST_F(VendedObject, CannotBeGivenAnotherTarget) {
  id const other = [[[NSObject alloc] init] autorelease];
  EXPECT_EQ(refusalOf(message(@selector(initWithTarget:protocol:), "@@:@@", other)), kRefused);
  EXPECT_EQ(copiedLink(), "https://x/y");
}

TEST_F(VendedObject, AnswersWhatAClientsProxyAsksBeforeAnOperation) {
  const SEL operation = @selector(copyLinkToClipboard:::);
  EXPECT_NE([vended methodSignatureForSelector:operation], nil);
  EXPECT_TRUE([vended respondsToSelector:operation]);
  EXPECT_TRUE([vended conformsToProtocol:NSProtocolFromString(@"ContextMenuService")]);
  EXPECT_EQ([vended methodSignatureForSelector:@selector(valueForKey:)], nil);
}
