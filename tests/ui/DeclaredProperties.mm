#include <gtest/gtest.h>

#import <objc/runtime.h>

#include <cctype>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#import "addressbook/emailContact.h"
#include "tests/support/Strings.h"
#import "windows/send/CopyLinkController.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"
#import "windows/share/SharedWith.h"

// The properties of the classes that the interface files and the other programs know, with their
// attributes, by what their accessors do: this runtime has no record of properties.

namespace {

using Names = std::vector<std::string>;

/// What a class declares: the objects by the attributes of their properties, the numbers, and the
/// fields that are no properties.
struct Declaration {
  Class cls;
  Names retained;  // atomic
  Names retainedNonatomically;
  Names copied;  // atomic
  Names assigned;
  Names flags;
  Names integers;
  Names withoutAccessors;
};

const std::vector<Declaration> &declarations() {
  static const std::vector<Declaration> all = {
      {.cls = [emailContact class], .retained = {"personName", "personEmaild"}},
      {.cls = [SendAndCopyTabController class],
       .retained = {"sendAndCopyTab", "sendFile", "sendCopyFile"},
       .copied = {"filePath"},
       .integers = {"defaultTab"}},
      {.cls = [CopyLinkController class],
       .retained = {"copyLinkTab", "ourMainWindow"},
       .copied = {"filePath"},
       .assigned = {"modalWindow", "modalWindowText"},
       .flags = {"isFileId", "isFolder"},
       .withoutAccessors = {"isNotifyMe", "isAskForMail", "noOfDownloads", "spinGear"}},
      {.cls = [SendFileController class],
       .copied = {"filePath"},
       .assigned = {"mailSubject", "ourMainWindow", "modalWindow", "modalWindowText"},
       .flags = {"isFileId", "isFolder"},
       .withoutAccessors = {"mailList", "mailContent", "isCopyMe", "isNotifyMe", "isAskForEmail",
                            "noOfDownloads", "spinner", "sendFileTab"}},
      {.cls = [BrisvaleTabController class],
       .retained = {"shareFolderTab", "givePermissionTab", "sendInviteTab"},
       .copied = {"filePath"},
       .integers = {"defaultTab"}},
      {.cls = [InviteTabController class],
       .retained = {"ourMainWindow"},
       .copied = {"filePath"},
       .assigned = {"modalWindow", "modalWindowText"},
       .flags = {"isFileId", "isFolder"},
       .withoutAccessors = {"mailList", "mailContent", "accessType", "sendFile", "iarrayController",
                            "spinGear", "keys", "inviteTab"}},
      {.cls = [SharedWith class],
       .retainedNonatomically = {"personName", "permission", "useremail"},
       .flags = {"isNotOwner"},
       .integers = {"accessPermission"}},
      {.cls = [PermissionTabController class],
       .retained = {"permissionType", "ourMainWindow"},
       .copied = {"filePath"},
       // The list is declared copied, and on purpose stored as it is.
       .assigned = {"modalWindow", "modalWindowText", "personList"},
       .flags = {"isFileId"},
       .withoutAccessors = {"nameofPerson", "removeEntry", "arrayController", "currView",
                            "collectionViewForAllEntries", "fullScrollView", "usersText",
                            "notSharingText", "spinGear", "keys", "permissionTab"}}};
  return all;
}

SEL getterOf(const std::string &name) {
  return sel_registerName(name.c_str());
}

SEL setterOf(std::string name) {
  name.front() = static_cast<char>(std::toupper(name.front()));
  return sel_registerName(("set" + name + ":").c_str());
}

/// An object of one of the classes, as it is before its interface file is loaded.
class Owner {
 public:
  explicit Owner(Class cls) : object_([[cls alloc] init]) {}
  ~Owner() {
    // Which observes notifications until then.
    if ([object_ isKindOfClass:[PermissionTabController class]]) [object_ disconnectFromWindow];
    [object_ release];
  }
  Owner(const Owner &) = delete;
  Owner &operator=(const Owner &) = delete;

  void set(const std::string &name, id value) const { setAs<id>(name, value); }
  id get(const std::string &name) const { return getAs<id>(name); }

  template <class Type>
  void setAs(const std::string &name, Type value) const {
    const SEL setter = setterOf(name);
    reinterpret_cast<void (*)(id, SEL, Type)>([object_ methodForSelector:setter])(object_, setter,
                                                                                  value);
  }
  template <class Type>
  Type getAs(const std::string &name) const {
    const SEL getter = getterOf(name);
    return reinterpret_cast<Type (*)(id, SEL)>([object_ methodForSelector:getter])(object_, getter);
  }

  /// How many references to the property's value there are after it has been read. An atomic
  /// getter returns one of its own, which the pool releases.
  NSUInteger referencesAfterReading(const std::string &name) const {
    @autoreleasepool {
      return [get(name) retainCount];
    }
  }

 private:
  id object_;
};

/// A text that this test alone refers to, and which is a mutable one.
class Value {
 public:
  ~Value() { [string_ release]; }
  NSMutableString *string() const { return string_; }
  NSUInteger references() const { return [string_ retainCount]; }

 private:
  NSMutableString *string_ = [[NSMutableString alloc] initWithString:@"before"];
};

/// A property that refers to the value itself, `references` times.
void expectTheValueItself(Class cls, const std::string &name, NSUInteger references) {
  const Value value;
  {
    const Owner owner(cls);
    owner.set(name, value.string());
    EXPECT_EQ(value.references(), 1 + references) << name;
    @autoreleasepool {
      EXPECT_EQ(owner.get(name), value.string()) << name;
    }
    owner.set(name, nil);
    EXPECT_EQ(value.references(), 1u) << name << ", replaced";
    owner.set(name, value.string());
  }
  EXPECT_EQ(value.references(), 1u) << name << ", its owner deallocated";
}

/// A retaining property whose getter returns so many references of its own.
void expectRetained(Class cls, const std::string &name, NSUInteger byGetter) {
  expectTheValueItself(cls, name, 1);
  const Value value;
  const Owner owner(cls);
  owner.set(name, value.string());
  EXPECT_EQ(owner.referencesAfterReading(name), 2 + byGetter) << name;
  EXPECT_EQ(value.references(), 2u) << name;
}

void expectCopied(Class cls, const std::string &name) {
  const Value value;
  const Owner owner(cls);
  owner.set(name, value.string());
  [value.string() setString:@"after"];
  @autoreleasepool {
    EXPECT_EQ(text(owner.get(name)), "before") << name;
  }
  EXPECT_EQ(value.references(), 1u) << name;
  EXPECT_EQ(owner.referencesAfterReading(name), 2u) << name;
  owner.set(name, nil);
  EXPECT_EQ(owner.get(name), nil) << name;
}

template <class Number>
void expectKept(Class cls, const std::string &name, std::initializer_list<Number> numbers) {
  const Owner owner(cls);
  for (const Number number : numbers) {
    owner.setAs<Number>(name, number);
    EXPECT_EQ(owner.getAs<Number>(name), number) << name;
  }
}

}  // namespace

TEST(DeclaredProperties, RetainWhatIsDeclaredRetained) {
  for (const Declaration &each : declarations()) {
    SCOPED_TRACE(class_getName(each.cls));
    for (const std::string &name : each.retained) expectRetained(each.cls, name, 1);
    for (const std::string &name : each.retainedNonatomically) expectRetained(each.cls, name, 0);
  }
}

TEST(DeclaredProperties, DoNotRetainWhatIsDeclaredAssigned) {
  for (const Declaration &each : declarations()) {
    SCOPED_TRACE(class_getName(each.cls));
    for (const std::string &name : each.assigned) expectTheValueItself(each.cls, name, 0);
  }
}

TEST(DeclaredProperties, CopyWhatIsDeclaredCopied) {
  for (const Declaration &each : declarations()) {
    SCOPED_TRACE(class_getName(each.cls));
    for (const std::string &name : each.copied) expectCopied(each.cls, name);
  }
}

TEST(DeclaredProperties, KeepFlagsAndNumbersWhole) {
  using Limits = std::numeric_limits<std::int64_t>;
  for (const Declaration &each : declarations()) {
    SCOPED_TRACE(class_getName(each.cls));
    for (const std::string &name : each.flags) expectKept<BOOL>(each.cls, name, {YES, NO});
    for (const std::string &name : each.integers) {
      expectKept<std::int64_t>(each.cls, name, {Limits::min(), -1, Limits::max()});
    }
  }
}

TEST(DeclaredProperties, AreTheOnlyFieldsWithAccessors) {
  for (const Declaration &each : declarations()) {
    for (const std::string &name : each.withoutAccessors) {
      EXPECT_FALSE([each.cls instancesRespondToSelector:getterOf(name)])
          << class_getName(each.cls) << ": " << name;
      EXPECT_FALSE([each.cls instancesRespondToSelector:setterOf(name)])
          << class_getName(each.cls) << ": " << name;
    }
  }
}
