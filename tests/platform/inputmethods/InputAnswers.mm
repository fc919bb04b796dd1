#include <gtest/gtest.h>

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>
#include <X11/Xutil.h>

#include <vector>

#include "platform/gnustep/inputmethods/InputAnswers.h"

// Xlib's part is played here: it puts what an input method has sent into its queue, one in front of
// the other.

namespace {

using input_answers::Answer;
using Lines = std::vector<std::string>;

struct InputAnswers : testing::Test {
  Display *display = static_cast<Display *>([GSCurrentServer() serverDevice]);
  /// As Xlib's, the last one comes first.
  Lines texts;
  Time time = 1000;

  ~InputAnswers() override {
    while (input_answers::next()) {
    }
    input_answers::methodEnded();
    while (input_answers::next()) {
    }
  }

  /// The press of a key that is sent to the input method.
  XEvent press(KeySym keysym) {
    XEvent event = {};
    event.xkey.type = KeyPress;
    event.xkey.display = display;
    event.xkey.time = time++;
    event.xkey.keycode = XKeysymToKeycode(display, keysym);
    input_answers::keyWillBeSent(event.xkey);
    return event;
  }

  void sendBack(XEvent key) { XPutBackEvent(display, &key); }

  void sendText(const std::string &text) {
    texts.push_back(text);
    XEvent event = {};
    event.xkey.type = KeyPress;
    event.xkey.display = display;
    XPutBackEvent(display, &event);
  }

  void collect() {
    input_answers::collect(display, [this](XKeyEvent &) -> std::optional<std::string> {
      std::string text = texts.back();
      texts.pop_back();
      return text;
    });
  }

  static void compose(const std::string &text) {
    input_answers::add({.kind = Answer::Kind::Compose, .text = text});
  }

  /// A key by its name, a text as it is, and one that is composed in brackets.
  static std::string line(Answer answer) {
    switch (answer.kind) {
      case Answer::Kind::Key:
        return XKeysymToString(XLookupKeysym(&answer.key.xkey, 0));
      case Answer::Kind::Text:
        return answer.text;
      case Answer::Kind::Compose:
        return "[" + answer.text + "]";
      case Answer::Kind::End:
        return "end";
    }
    return "";
  }

  static Lines lines() {
    Lines all;
    while (std::optional<Answer> answer = input_answers::next()) all.push_back(line(*answer));
    return all;
  }

  static Lines textBeforeNextKey() {
    Lines all;
    for (const Answer &answer : input_answers::takeThroughText()) all.push_back(line(answer));
    return all;
  }
};

}  // namespace

TEST_F(InputAnswers, ComeInTheOrderInWhichXlibHasGotThem) {
  const XEvent a = press(XK_a), b = press(XK_b);
  sendText("first");
  sendBack(a);
  sendText("second");
  sendText("third");
  sendBack(b);
  collect();
  EXPECT_EQ(lines(), (Lines{"first", "a", "second", "third", "b"}));
}

TEST_F(InputAnswers, ComeBehindThoseBefore) {
  const XEvent a = press(XK_a);
  compose("n");
  sendText("first");
  collect();
  compose("");
  sendBack(a);
  collect();
  EXPECT_EQ(lines(), (Lines{"[n]", "first", "[]", "a"}));
}

TEST_F(InputAnswers, AreNoKeysThatNobodyHasSent) {
  XEvent a = press(XK_a);
  EXPECT_TRUE(input_answers::isAnswer(a));
  ++a.xkey.time;
  EXPECT_FALSE(input_answers::isAnswer(a));
  a.type = Expose;
  EXPECT_FALSE(input_answers::isAnswer(a));
}

TEST_F(InputAnswers, AreKeysThatAnInputMethodSendsOfItsOwnAccord) {
  XEvent control = press(XK_Control_L);
  const unsigned long time = control.xkey.time;
  control.xkey.time = CurrentTime;
  EXPECT_TRUE(input_answers::isAnswer(control));
  sendBack(control);
  collect();
  const std::optional<Answer> answer = input_answers::next();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->key.xkey.time, time) << "The key that was typed is the one that came.";

  XEvent left = control;
  left.xkey.keycode = XKeysymToKeycode(display, XK_Left);
  EXPECT_TRUE(input_answers::isAnswer(left));
  sendBack(left);
  collect();
  EXPECT_EQ(lines(), Lines{"Left"});

  left.xkey.send_event = True;
  EXPECT_FALSE(input_answers::isAnswer(left)) << "Another program has sent it.";
}

TEST_F(InputAnswers, AreNotAboutKeysThatWereNotSent) {
  const XEvent a = press(XK_a), b = press(XK_b);
  input_answers::keyWasNotSent();
  EXPECT_TRUE(input_answers::isAnswer(a));
  EXPECT_FALSE(input_answers::isAnswer(b));
}

TEST_F(InputAnswers, LetTheNextKeyBeSent) {
  /// When a key is sent that is pressed now; nothing if that need not wait.
  const auto timeOf = [](const XEvent &key) {
    InputFlow flow = input_answers::flow();
    flow.holdBack(key, true, {});
    return flow.timeOfNext();
  };
  XEvent a = press(XK_a);
  EXPECT_TRUE(timeOf(a));
  sendBack(a);
  collect();
  EXPECT_FALSE(timeOf(a));

  a = press(XK_a);
  EXPECT_TRUE(timeOf(a));
  input_answers::keyWasNotSent();
  EXPECT_FALSE(timeOf(a));

  a = press(XK_a);
  EXPECT_TRUE(timeOf(a));
  input_answers::methodEnded();
  EXPECT_FALSE(timeOf(a));

  a = press(XK_a);
  auto time = timeOf(a);
  sendText("first");
  collect();
  EXPECT_NE(timeOf(a), time);

  a = press(XK_a);
  time = timeOf(a);
  compose("n");
  EXPECT_NE(timeOf(a), time);
}

TEST_F(InputAnswers, AreKeysOnce) {
  const XEvent a = press(XK_a);
  sendBack(a);
  collect();
  EXPECT_FALSE(input_answers::isAnswer(a));
}

TEST_F(InputAnswers, AboutATextAreTakenUpToTheNextTypedKey) {
  const XEvent shift = press(XK_Shift_L), b = press(XK_b);
  compose("n");
  sendBack(shift);
  collect();
  compose("");
  EXPECT_TRUE(input_answers::hasEndOfComposition());
  EXPECT_EQ(textBeforeNextKey(), Lines());
  sendText("first");
  sendBack(b);
  sendText("second");
  collect();
  EXPECT_EQ(textBeforeNextKey(), (Lines{"[n]", "[]", "first"}));
  EXPECT_FALSE(input_answers::hasEndOfComposition());
  EXPECT_EQ(textBeforeNextKey(), Lines());
  EXPECT_EQ(lines(), (Lines{"Shift_L", "b", "second"}));
}

TEST_F(InputAnswers, AboutAForgottenTextAreOnlyKeysAndTexts) {
  const XEvent a = press(XK_a);
  compose("n");
  sendText("first");
  sendBack(a);
  collect();
  compose("");
  input_answers::forgetComposition();
  EXPECT_EQ(lines(), (Lines{"first", "a"}));
}

TEST_F(InputAnswers, OfAnInputMethodThatHasEndedAreTheKeysAfterItsLastOne) {
  press(XK_a);
  compose("n");
  press(XK_b);
  const XEvent c = press(XK_c);
  input_answers::add({.kind = Answer::Kind::End});
  input_answers::methodEnded();
  EXPECT_EQ(lines(), (Lines{"[n]", "end", "b", "c"}));
  EXPECT_FALSE(input_answers::isAnswer(c));
}
