// Between the window that closes and the one that opens.

#include <ostream>
#include <tuple>

#import "tests/ui/HidingObserver.h"
#import "tests/ui/MenuActions.h"

namespace {

struct Openings;

/// A way to open a window.
struct Opener {
  const char *name;
  void (*open)(Openings &);
  /// What is logged after the former window has closed.
  Lines lines = {};
};

/// The window that is open before.
struct Former {
  const char *name;
  TabWindowController *(*open)(Openings &);
  /// What is logged when another one opens.
  std::string closed;
};

void PrintTo(const Opener &opener, std::ostream *out) {
  *out << opener.name;
}

void PrintTo(const Former &former, std::ostream *out) {
  *out << former.name;
}

struct Openings : MenuActions, testing::WithParamInterface<std::tuple<Former, Opener>> {
  NSString *const folder = makeFolder(@"MyDocs/Plans");

  Openings() {
    knowFolder(folder, "id-folder");
    // Looked up with its slash.
    knowFile([folder stringByAppendingString:@"/"], "id-file");
    select(folder);
  }

  const Former &former() const { return std::get<0>(GetParam()); }
  const Opener &opener() const { return std::get<1>(GetParam()); }

  Lines lines() const {
    Lines lines = {former().closed, "window closed"};
    lines.insert(lines.end(), opener().lines.begin(), opener().lines.end());
    return lines;
  }
};

TabWindowController *sendWindowOf(Openings &test) {
  return test.openSend();
}
TabWindowController *shareWindowOf(Openings &test) {
  return test.openShare();
}

void bySendOfThePlugin(Openings &test) {
  test.openSend();
}
void byShareOfThePlugin(Openings &test) {
  test.openShare();
}
void bySendFileOfTheMenu(Openings &test) {
  [test.delegate SendFile:nil];
}
void bySendFolderOfTheMenu(Openings &test) {
  [test.delegate SendFolder:nil];
}
void byShareFolderOfTheMenu(Openings &test) {
  [test.delegate ShareFolder:nil];
}

}  // namespace

TEST_P(Openings, SetTheFlagAndHideTheApplicationBeforeTheyShowTheirOwnWindow) {
  TabWindowController *const formerController = former().open(*this);
  ASSERT_NE(formerController, nil);
  HidingObserver *const observer = [[[HidingObserver alloc] init] autorelease];
  opener().open(*this);
  EXPECT_EQ(observer->hidings, 1);
  EXPECT_TRUE(observer->flag);
  EXPECT_EQ(observer->controllers, std::vector<const void *>{formerController});
  ASSERT_NE(onlyWindow(), nil);
  EXPECT_NE([onlyWindow() windowController], formerController);
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_FALSE([NSApp isHidden]);
  EXPECT_EQ(log.lines(), withActivations(lines()));
}

INSTANTIATE_TEST_SUITE_P(
    After, Openings,
    testing::Combine(
        testing::Values(Former{"SendWindow", sendWindowOf,
                               "recieve Notification close send/copy window."},
                        Former{"ShareWindow", shareWindowOf,
                               "recieve Notification - close share folder window"}),
        testing::Values(
            Opener{"SendOfThePlugin", bySendOfThePlugin},
            Opener{"ShareOfThePlugin", byShareOfThePlugin},
            Opener{"SendFileOfTheMenu", bySendFileOfTheMenu},
            Opener{"SendFolderOfTheMenu", bySendFolderOfTheMenu, {"Send Folder action.."}},
            Opener{"ShareFolderOfTheMenu", byShareFolderOfTheMenu, {"Share Folder action.."}})),
    [](const auto &info) {
      return std::string(std::get<0>(info.param).name) + "By" + std::get<1>(info.param).name;
    });
