#pragma once

#import "tests/e2e/InterfaceFrame.h"
#import "tests/e2e/Screen.h"

// The send tab's controls, see ScreenTab.
constexpr InterfaceFrame kSendRecipients = {"MainWindow", "SendFileController.mailList"};
constexpr InterfaceFrame kSendSubject = {"MainWindow", "SendFileController.mailSubject"};
constexpr InterfaceFrame kSendMessage = {"MainWindow", "SendFileController.mailContent"};
constexpr InterfaceFrame kSendDownloads = {"MainWindow", "SendFileController.noOfDownloads"};
constexpr InterfaceFrame kSendCopyMe = {"MainWindow", "SendFileController.isCopyMe"};
constexpr InterfaceFrame kSendNotify = {"MainWindow", "SendFileController.isNotifyMe"};
constexpr InterfaceFrame kSendAskForMail = {"MainWindow", "SendFileController.isAskForEmail"};
constexpr InterfaceFrame kSendButton = {"MainWindow", "sendMail:"};
