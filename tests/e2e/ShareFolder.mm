// A folder is shared: from the plug-in's client through the window to the store of the service.

#include <ostream>

#include "devkit/store/SampleAccount.h"
#include "devkit/store/Store.h"
#import "tests/e2e/ServiceTest.h"
#import "tests/e2e/ShareTab.h"

namespace {

using People = std::vector<std::string>;

const std::string kOlivia = "olivia.bennett@brisvale.test";
const std::string kPriya = "priya.raman@brisvale.test";
/// A colleague whom the address book does not have yet.
const std::string kNadia = "nadia.rahman@brisvale.test";
/// A person of another company.
const std::string kOutsider = "robin.ellis@lakeside-print.test";

const std::string kMayRead = ": reads";
const std::string kMayWrite = ": reads and writes";

/// What differs for a user who reads another language.
struct Language {
  const char *environment;
  const char *title;
};

void PrintTo(const Language &language, std::ostream *out) {
  *out << language.environment;
}

struct Share : ServiceTest {
  std::string title;
  /// Where the frames of the share window are known. Its window is that of ServiceTest.
  ShareTab tab;

  // The application would still know in the next test whom it has looked up in this one.
  explicit Share(const Language &language = {"en", "Share Folder"})
      : ServiceTest(language.environment, Application::OfItsOwn), title(language.title) {}

  bool openOn(const std::string &folder, const std::string &position = "0") {
    const bool isOpen = openWindow({"share", folder, "--tab", position}, title);
    tab.window = window;
    return isOpen;
  }

  /// Who may do what with a folder, in the service's store; without the owner.
  People accessTo(const std::string &folder) const {
    devkit::Store store(kit.dataFolder(), kit.syncedFolder());
    People people;
    for (const auto &entry : store.sharing.of(store.items.byPath(folder)->id)) {
      if (entry.owner) continue;
      const bool mayWrite = entry.rights.upload && entry.rights.remove;
      people.push_back(entry.email + (mayWrite ? kMayWrite : kMayRead));
    }
    return people;
  }

  /// Two by a few letters and a choice from the list, one by hand.
  static void enterThreeColleagues() {
    for (const char *letters : {"ol", "pri"}) {
      typeText(letters);
      EXPECT_TRUE(waitForWindows(2));  // the list is one
      pressKeys({"Down", "Return"});
      EXPECT_TRUE(waitForWindows(1));
    }
    typeText(kNadia + ",");
  }

  /// Opens the window on the invite tab for a new folder, and invites the three.
  std::string shareNewFolder() {
    std::string folder = kit.makeFolder("MyDocs/Plans");
    EXPECT_TRUE(openOn(folder, "1"));
    enterThreeColleagues();
    tab.click(kInviteButton);
    EXPECT_TRUE(tab.seesSuccess());
    return folder;
  }
};

struct ShareFolder : Share, testing::WithParamInterface<Language> {
  ShareFolder() : Share(GetParam()) {}
};

struct ShareFolderRefusals : Share {
  /// Opens a folder that another person has shared with the user, triggers the operation, and
  /// checks that it is refused and changes nothing.
  template <class Action>
  void expectRefusalWhereOthersOwn(const std::string &operation, Action action) {
    const std::string folder = kit.makeFolder(devkit::kSampleForeignFolder);
    ASSERT_TRUE(openOn(folder));
    ASSERT_TRUE(tab.seesRows(1));  // the user
    const People before = accessTo(folder);
    action();
    ASSERT_TRUE(waitFor([&] { return !lastOperation(operation).empty(); }));
    EXPECT_TRUE(has(lastOperation(operation), "Only its owner can share"));
    ASSERT_TRUE(waitForWindows(2));
    ASSERT_TRUE(tab.dismissAlert());
    EXPECT_EQ(accessTo(folder), before);
    EXPECT_TRUE(tab.seesRows(1));
  }
};

}  // namespace

TEST_P(ShareFolder, ThreeColleaguesAreInvitedOneIsGivenMoreAndOneIsRemoved) {
  const std::string folder = kit.makeFolder("MyDocs/Plans");
  ASSERT_TRUE(openOn(folder));
  EXPECT_TRUE(tab.seesRows(0));
  tab.goTo(kInviteLabel);
  tab.click(kInviteRecipients);
  enterThreeColleagues();
  tab.click(kInviteButton);
  ASSERT_TRUE(tab.seesSuccess());
  EXPECT_EQ(accessTo(folder), (People{kOlivia + kMayRead, kPriya + kMayRead, kNadia + kMayRead}));
  tab.goTo(kPeopleLabel);
  ASSERT_TRUE(tab.seesRows(3));
  tab.chooseAccess(1, kReadOnly, kReadWrite);
  ASSERT_TRUE(tab.seesSuccess());
  EXPECT_EQ(accessTo(folder), (People{kOlivia + kMayRead, kPriya + kMayWrite, kNadia + kMayRead}));
  ASSERT_TRUE(tab.askToRemove(0));
  EXPECT_EQ(accessTo(folder).size(), 3u);
  pressKeys({"Return"});
  ASSERT_TRUE(tab.seesSuccess());
  EXPECT_EQ(accessTo(folder), (People{kPriya + kMayWrite, kNadia + kMayRead}));
  EXPECT_TRUE(tab.seesRows(2));
}

INSTANTIATE_TEST_SUITE_P(Reading, ShareFolder,
                         testing::Values(Language{"en", "Share Folder"},
                                         Language{"de", "Ordner freigeben"}),
                         [](const auto &info) { return info.param.environment; });

TEST_F(Share, ThePeopleWithAccessAreShownWithoutTheOwnerAndWithoutGroups) {
  ASSERT_TRUE(openOn(kit.makeFolder(devkit::kSampleSharedFolder)));
  EXPECT_TRUE(tab.seesRows(3));
}

TEST_F(Share, AnInvitationCarriesItsMessageAndTheLevelThatWasChosen) {
  const std::string folder = kit.makeFolder("MyDocs/Übersicht");
  ASSERT_TRUE(openOn(folder, "1"));
  typeText(kPriya + ",");
  tab.choose(kInviteAccess, kReadOnly, kReadWrite);
  tab.click(kInviteMessage);
  typeText("Q&A 50%,\nsee <you>");
  tab.click(kInviteButton);
  ASSERT_TRUE(tab.seesSuccess());
  EXPECT_EQ(accessTo(folder), People{kPriya + kMayWrite});
  EXPECT_TRUE(has(onlyMail(), "Body: \"Q&A 50%,\\nsee <you>"));
}

TEST_F(Share, OnlySomebodyWhomTheBookDoesNotHaveIsLookedUp) {
  shareNewFolder();
  const std::vector<std::string> lookUps = operations("getUserInfo");
  ASSERT_EQ(lookUps.size(), 1u);
  EXPECT_TRUE(has(lookUps.front(), "\"userEmail\": \"" + kNadia + "\""));
}

TEST_F(Share, EscapeLeavesThePersonInTheList) {
  const std::string folder = shareNewFolder();
  tab.goTo(kPeopleLabel);
  ASSERT_TRUE(tab.askToRemove(2));
  pressKeys({"Escape"});
  ASSERT_TRUE(waitForWindows(1));
  EXPECT_EQ(accessTo(folder).size(), 3u);
  EXPECT_TRUE(tab.seesRows(3));
  EXPECT_EQ(lastOperation("revokeAccess"), "");
}

TEST_F(Share, WhoeverIsRemovedLastLeavesAnEmptyFolder) {
  const std::string folder = shareNewFolder();
  tab.goTo(kPeopleLabel);
  for (int left = 2; left >= 0; --left) {
    ASSERT_TRUE(tab.askToRemove(0));
    pressKeys({"Return"});
    ASSERT_TRUE(tab.seesSuccess());
    EXPECT_EQ(accessTo(folder).size(), static_cast<std::size_t>(left));
    EXPECT_TRUE(tab.seesRows(left));
  }
}

TEST_F(ShareFolderRefusals, AnOutsiderIsNamedNobodyIsInvitedAndWhatWasTypedStays) {
  const std::string folder = kit.makeFolder("MyDocs/Plans");
  ASSERT_TRUE(openOn(folder, "1"));
  typeText(kPriya + "," + kOutsider + ",");
  ASSERT_TRUE(tab.clickAndSeeSheet(kInviteButton));
  EXPECT_TRUE(accessTo(folder).empty());
  EXPECT_EQ(lastOperation("grantAccess"), "");
  ASSERT_TRUE(tab.dismissAlert());
  tab.click(kInviteRecipients);
  pressKeys({"End", "BackSpace", "BackSpace"});
  tab.click(kInviteButton);
  ASSERT_TRUE(tab.seesSuccess());
  EXPECT_EQ(accessTo(folder), People{kPriya + kMayRead});
}

TEST_F(ShareFolderRefusals, AFolderOfSomebodyElseCannotBeSharedOn) {
  const std::string folder = kit.makeFolder(devkit::kSampleForeignFolder);
  ASSERT_TRUE(openOn(folder, "1"));
  const People before = accessTo(folder);
  typeText(kPriya + "," + kOlivia + ",");
  ASSERT_TRUE(tab.clickAndSeeSheet(kInviteButton));
  EXPECT_EQ(accessTo(folder), before);
  EXPECT_TRUE(has(lastOperation("grantAccess"), kOlivia));  // the second was tried, too
  EXPECT_TRUE(tab.dismissAlert());
}

TEST_F(ShareFolderRefusals, InAFolderOfSomebodyElseNobodyIsRemoved) {
  expectRefusalWhereOthersOwn("revokeAccess", [&] {
    ASSERT_TRUE(tab.askToRemove(0));
    pressKeys({"Return"});
  });
}

TEST_F(ShareFolderRefusals, InAFolderOfSomebodyElseNobodyIsGivenMore) {
  expectRefusalWhereOthersOwn("grantAccess", [&] { tab.chooseAccess(0, kReadOnly, kReadWrite); });
}
