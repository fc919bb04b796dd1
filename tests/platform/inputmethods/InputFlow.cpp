#include "platform/gnustep/inputmethods/InputFlow.h"

#include <gtest/gtest.h>

#include <string>

// Nothing waits here: the tests say what time it is.

namespace {

using std::chrono::milliseconds;

constexpr Window kWindow = 7, kOtherWindow = 8;
constexpr unsigned kA = 38, kB = 39, kC = 40;

struct InputFlowTest : testing::Test {
  InputFlow flow;
  InputFlow::Time now{milliseconds(100000)};
  Time time = 1000;

  XEvent key(int type, unsigned keycode, Window window = kWindow) {
    XEvent event = {};
    event.xkey.type = type;
    event.xkey.keycode = keycode;
    event.xkey.window = window;
    event.xkey.time = time++;
    return event;
  }

  XEvent press(unsigned keycode, Window window = kWindow) { return key(KeyPress, keycode, window); }
  XEvent release(unsigned keycode) { return key(KeyRelease, keycode); }

  XEvent button(int type) {
    XEvent event = {};
    event.xbutton.type = type;
    event.xbutton.window = kWindow;
    event.xbutton.time = time++;
    return event;
  }

  bool holdBack(const XEvent &event) { return flow.holdBack(event, true, now); }

  void send(const XEvent &event) { flow.wasSent(event.xkey, now); }
  void answer(const XEvent &event) { flow.hasReturned(event.xkey, now); }

  XEvent sendPress(unsigned keycode) {
    const XEvent event = press(keycode);
    send(event);
    return event;
  }

  void pass(int ms) { now += milliseconds(ms); }

  /// Those that need not wait any longer, by their kinds, their keys' codes and their order. None
  /// is sent.
  std::string released() {
    std::string all;
    while (const std::optional<XEvent> event = flow.next(now)) {
      switch (event->type) {
        case KeyPress:
          all += "+" + std::to_string(event->xkey.keycode);
          break;
        case KeyRelease:
          all += "-" + std::to_string(event->xkey.keycode);
          break;
        default:
          all += event->type == ButtonPress ? "+button" : "-button";
      }
    }
    return all;
  }
};

}  // namespace

TEST_F(InputFlowTest, TheFirstKeyNeedNotWait) {
  EXPECT_FALSE(holdBack(press(kA)));
  EXPECT_EQ(released(), "");
  EXPECT_FALSE(flow.timeOfNext());
}

TEST_F(InputFlowTest, TheNextKeyWaitsUntilTheOneBeforeHasComeBack) {
  const XEvent a = sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  EXPECT_EQ(released(), "");
  answer(a);
  EXPECT_EQ(released(), "+39");
  EXPECT_FALSE(holdBack(press(kC)));
}

TEST_F(InputFlowTest, TheNextKeyWaitsUntilSoonAfterTheLastOfTheText) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  pass(5);
  flow.hasSentText(now);
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(20));
  pass(19);
  flow.hasSentText(now);
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(20));
  pass(19);
  EXPECT_EQ(released(), "");
  pass(1);
  EXPECT_EQ(released(), "+39");
}

TEST_F(InputFlowTest, ABusyInputMethodHasAsLongForTheRestOfTheTextAsForTheFirstOfIt) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  pass(300);
  flow.hasSentText(now);
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(300));
  pass(10);
  flow.hasSentText(now);
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(300));
}

TEST_F(InputFlowTest, AnInputMethodThatWasBusyIsTakenForLessBusyWithEachKey) {
  for (const int ms : {100, 50, 25, 20, 20}) {
    sendPress(kA);
    EXPECT_TRUE(holdBack(press(kB)));
    pass(ms == 100 ? 100 : 1);
    flow.hasSentText(now);
    EXPECT_EQ(flow.timeOfNext(), now + milliseconds(ms));
    pass(ms);
    EXPECT_EQ(released(), "+39");
  }
}

TEST_F(InputFlowTest, AnInputMethodThatDrawsWithoutAnEndIsWaitedForTwoSeconds) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  for (int i = 0; i < 199; ++i) {
    pass(10);
    flow.hasSentText(now);
  }
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(10));
}

TEST_F(InputFlowTest, AnAnswerToAnEarlierKeyIsNone) {
  const XEvent a = sendPress(kA);
  sendPress(kB);
  EXPECT_TRUE(holdBack(press(kC)));
  answer(a);
  pass(200);
  EXPECT_EQ(released(), "");
}

TEST_F(InputFlowTest, AnAnswerToTheSameKeyPressedBeforeIsNone) {
  const XEvent earlier = sendPress(kA);
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  answer(earlier);
  pass(200);
  EXPECT_EQ(released(), "");
}

TEST_F(InputFlowTest, ReleasesNeedNotWait) {
  sendPress(kA);
  EXPECT_FALSE(holdBack(release(kA)));
}

TEST_F(InputFlowTest, WhatComesBehindOneThatWaitsKeepsItsOrder) {
  const XEvent a = sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  EXPECT_TRUE(holdBack(release(kA)));
  EXPECT_TRUE(holdBack(button(ButtonPress)));
  EXPECT_TRUE(holdBack(button(ButtonRelease)));
  EXPECT_TRUE(flow.holdBack(press(kC, kOtherWindow), false, now)) << "Nor does one of a window "
                                                                     "without an input method.";
  answer(a);
  EXPECT_EQ(released(), "+39-38+button-button+40");
}

TEST_F(InputFlowTest, OnlyOneOfThoseThatWaitIsSent) {
  const XEvent a = sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  EXPECT_TRUE(holdBack(release(kB)));
  EXPECT_TRUE(holdBack(press(kC)));
  answer(a);
  const std::optional<XEvent> b = flow.next(now);
  ASSERT_TRUE(b);
  send(*b);
  EXPECT_EQ(released(), "-39");
  answer(*b);
  EXPECT_EQ(released(), "+40");
}

TEST_F(InputFlowTest, OtherEventsNeedNotWait) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  XEvent event = {};
  event.type = Expose;
  EXPECT_FALSE(holdBack(event));
  EXPECT_EQ(released(), "");
}

TEST_F(InputFlowTest, AKeyOfAWindowWithoutAnInputMethodNeedNotWait) {
  sendPress(kA);
  EXPECT_FALSE(flow.holdBack(press(kB, kOtherWindow), false, now));
}

TEST_F(InputFlowTest, AKeyThatTheInputMethodKeepsIsWaitedForUntilSoonAfterItsReleaseHasComeBack) {
  sendPress(kA);
  const XEvent released_a = release(kA);
  send(released_a);
  EXPECT_TRUE(holdBack(press(kB)));
  answer(released_a);
  EXPECT_EQ(released(), "");
  pass(99);
  EXPECT_EQ(released(), "");
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(1));
  pass(1);
  EXPECT_EQ(released(), "+39");
}

TEST_F(InputFlowTest, TheTextOfAKeyThatTheInputMethodKeepsMayComeAfterTheKeysRelease) {
  sendPress(kA);
  const XEvent released_a = release(kA);
  send(released_a);
  EXPECT_TRUE(holdBack(press(kB)));
  answer(released_a);
  flow.hasSentText(now);
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(20));
}

TEST_F(InputFlowTest, WhatTheInputMethodSendsLateOfAnEarlierKeyChangesNothing) {
  const XEvent a = sendPress(kA);
  const XEvent released_a = release(kA);
  send(released_a);
  answer(a);
  sendPress(kB);
  answer(released_a);
  EXPECT_TRUE(holdBack(press(kC)));
  pass(200);
  EXPECT_EQ(released(), "");
}

TEST_F(InputFlowTest, AnInputMethodThatDoesNotAnswerGetsAKeyAtLongerAndLongerIntervals) {
  for (const int ms : {500, 1000, 1500, 2000, 2000}) {
    sendPress(kA);
    EXPECT_TRUE(holdBack(press(kB)));
    EXPECT_EQ(flow.timeOfNext(), now + milliseconds(ms));
    pass(ms - 1);
    EXPECT_EQ(released(), "");
    pass(1);
    EXPECT_EQ(released(), "+39");
  }
}

TEST_F(InputFlowTest, AnInputMethodThatAnswersAgainIsWaitedForAsAtFirst) {
  sendPress(kA);
  pass(500);
  const XEvent b = sendPress(kB);
  answer(b);
  sendPress(kC);
  EXPECT_TRUE(holdBack(press(kA)));
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(500));
}

TEST_F(InputFlowTest, AClickWaitsHalfASecondHoweverManyKeysAreBefore) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  EXPECT_TRUE(holdBack(press(kC)));
  pass(200);
  EXPECT_TRUE(holdBack(button(ButtonPress)));
  EXPECT_TRUE(holdBack(button(ButtonRelease)));
  pass(299);
  EXPECT_EQ(released(), "");
  pass(1);
  const std::optional<XEvent> b = flow.next(now);
  ASSERT_TRUE(b);
  send(*b);
  EXPECT_EQ(released(), "");
  pass(200);
  const std::optional<XEvent> c = flow.next(now);
  ASSERT_TRUE(c);
  send(*c);
  EXPECT_EQ(released(), "+button-button");
}

TEST_F(InputFlowTest, AClickOnceDoneHurriesNoKey) {
  const XEvent a = sendPress(kA);
  EXPECT_TRUE(holdBack(button(ButtonPress)));
  answer(a);
  EXPECT_EQ(released(), "+button");
  pass(1000);
  sendPress(kB);
  EXPECT_TRUE(holdBack(press(kC)));
  EXPECT_EQ(flow.timeOfNext(), now + milliseconds(500));
}

TEST_F(InputFlowTest, NothingWaitsForAnInputMethodThatHasEnded) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  EXPECT_TRUE(holdBack(press(kC)));
  flow.methodEnded();
  EXPECT_LE(flow.timeOfNext(), now);
  EXPECT_EQ(released(), "+39+40");
  EXPECT_FALSE(holdBack(press(kA)));
}

TEST_F(InputFlowTest, TheKeysOfAWindowThatHasClosedAreForgottenAndItsClicksAreNot) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  EXPECT_TRUE(holdBack(button(ButtonPress)));
  EXPECT_TRUE(holdBack(press(kC, kOtherWindow)));
  flow.windowClosed(kWindow);
  EXPECT_EQ(released(), "+button+40");
}

TEST_F(InputFlowTest, AnAnswerIsStillWaitedForWhenAnotherWindowCloses) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  flow.windowClosed(kOtherWindow);
  EXPECT_EQ(released(), "");
}

TEST_F(InputFlowTest, IsQuietWhenNothingCameForAWhile) {
  EXPECT_TRUE(flow.isQuiet(now));
  const XEvent a = sendPress(kA);
  pass(400);
  EXPECT_FALSE(flow.isQuiet(now)) << "It has not answered.";
  answer(a);
  pass(299);
  EXPECT_FALSE(flow.isQuiet(now));
  pass(1);
  EXPECT_TRUE(flow.isQuiet(now));
  flow.hasSentText(now);
  EXPECT_FALSE(flow.isQuiet(now));
}

TEST_F(InputFlowTest, IsNotQuietWhileAnythingWaits) {
  sendPress(kA);
  EXPECT_TRUE(holdBack(press(kB)));
  pass(1000);
  EXPECT_FALSE(flow.isQuiet(now));
  EXPECT_EQ(released(), "+39");
  EXPECT_TRUE(flow.isQuiet(now));
}
