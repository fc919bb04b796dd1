#pragma once

#import "tests/e2e/Screen.h"

/// Frames of the send tab's controls, see ScreenTab.
constexpr ScreenArea kSendRecipients = {172, 319, 365, 46};
constexpr ScreenArea kSendSubject = {172, 287, 365, 22};
constexpr ScreenArea kSendMessage = {172, 167, 365, 110};
constexpr ScreenArea kSendDownloads = {169, 130, 160, 26};
constexpr ScreenArea kSendCopyMe = {170, 105, 367, 18};
constexpr ScreenArea kSendNotify = {170, 83, 367, 18};
constexpr ScreenArea kSendAskForMail = {170, 61, 367, 18};
constexpr ScreenArea kSendButton = {430, 13, 110, 32};
