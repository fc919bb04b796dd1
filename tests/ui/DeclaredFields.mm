#include <gtest/gtest.h>

#import <objc/runtime.h>

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#import "addressbook/emailContact.h"
#import "windows/send/CopyLinkController.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"
#import "windows/share/SharedWith.h"

// The fields of the classes that the interface files and the other programs know, in the order of
// their declaration. What a class needs besides comes after them.

namespace {

using Names = std::vector<std::string>;

struct Declaration {
  Class cls;
  Names fields;
};

void PrintTo(const Declaration &declaration, std::ostream *out) {
  *out << class_getName(declaration.cls);
}

std::string nameOf(const testing::TestParamInfo<Declaration> &info) {
  return class_getName(info.param.cls);
}

Names fieldsOf(Class cls) {
  unsigned count = 0;
  Ivar *const fields = class_copyIvarList(cls, &count);
  Names names;
  for (unsigned i = 0; i < count; ++i) names.push_back(ivar_getName(fields[i]));
  std::free(fields);
  return names;
}

struct DeclaredFields : testing::TestWithParam<Declaration> {};

}  // namespace

TEST_P(DeclaredFields, StandInTheirOrder) {
  Names fields = fieldsOf(GetParam().cls);
  ASSERT_GE(fields.size(), GetParam().fields.size());
  fields.resize(GetParam().fields.size());
  EXPECT_EQ(fields, GetParam().fields);
}

INSTANTIATE_TEST_SUITE_P(
    Of, DeclaredFields,
    testing::Values(
        Declaration{[emailContact class], { "personName", "personEmaild" }},
        Declaration{[SendAndCopyTabController class],
                    { "sendAndCopyTab", "sendFile", "sendCopyFile", "defaultTab", "filePath" }},
        Declaration{[CopyLinkController class],
                    {
                      "isNotifyMe", "isAskForMail", "noOfDownloads", "spinGear", "filePath",
                          "isFileId", "isFolder", "copyLinkTab", "ourMainWindow", "modalWindow",
                          "modalWindowText"
                    }},
        Declaration{[SendFileController class],
                    {
                      "mailList", "mailSubject", "mailContent", "isCopyMe", "isNotifyMe",
                          "isAskForEmail", "noOfDownloads", "spinner", "filePath", "isFileId",
                          "isFolder", "sendFileTab", "ourMainWindow", "modalWindow",
                          "modalWindowText"
                    }},
        Declaration{
            [BrisvaleTabController class],
            { "shareFolderTab", "givePermissionTab", "sendInviteTab", "defaultTab", "filePath" }},
        Declaration{[InviteTabController class],
                    {
                      "mailList", "mailContent", "accessType", "sendFile", "iarrayController",
                          "spinGear", "keys", "filePath", "isFileId", "isFolder", "inviteTab",
                          "ourMainWindow", "modalWindow", "modalWindowText"
                    }},
        Declaration{[SharedWith class],
                    { "personName", "permission", "useremail", "isNotOwner", "accessPermission" }},
        Declaration{[PermissionTabController class],
                    {
                      "personList", "nameofPerson", "permissionType", "removeEntry",
                          "arrayController", "currView", "collectionViewForAllEntries",
                          "fullScrollView", "usersText", "notSharingText", "filePath", "isFileId",
                          "spinGear", "keys", "permissionTab", "ourMainWindow", "modalWindow",
                          "modalWindowText"
                    }}),
    nameOf);
