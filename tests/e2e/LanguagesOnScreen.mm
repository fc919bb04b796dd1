#include <filesystem>

#import "tests/e2e/WindowTest.h"

namespace {

/// What a user's environment says, and the folder with the texts that are to be shown.
struct Language {
  const char *environment;
  const char *folder;
};

struct Languages : WindowTest, testing::WithParamInterface<Language> {
  Languages() : WindowTest(RunningApplication::program(), {{"LANGUAGE", GetParam().environment}}) {}

  /// The text for a key in the wanted language's table; "" when it has none.
  static std::string wanted(NSString *key) {
    const std::filesystem::path bundle =
        std::filesystem::path(RunningApplication::program()).parent_path();
    const std::string path =
        bundle / "Resources" / (std::string(GetParam().folder) + ".lproj") / "Localizable.strings";
    NSString *const table =
        [NSString stringWithContentsOfFile:[NSString stringWithUTF8String:path.c_str()]
                                  encoding:NSUTF16StringEncoding
                                     error:nullptr];
    NSString *const found = [[table propertyListFromStringsFileFormat] objectForKey:key];
    return found == nil ? "" : text(found);
  }
};

}  // namespace

TEST_P(Languages, BothWindowsComeUpInTheUsersLanguage) {
  ASSERT_TRUE(open(ShareCall()));
  ASSERT_NE(wanted(@"shareWindowTitleKey"), "");
  EXPECT_NE(onlyWindow(wanted(@"shareWindowTitleKey")).number, "");
  ASSERT_TRUE(open(SendCall{.name = ""}));
  ASSERT_NE(wanted(@"mainWindowTitleKey"), "");
  EXPECT_NE(onlyWindow(wanted(@"mainWindowTitleKey")).number, "");
  // Nor does a label, which cannot be asked for, stay without its text.
  EXPECT_EQ(application.process().countInOutput("No text for"), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, Languages,
                         testing::Values(Language{"de", "de"}, Language{"en", "en"},
                                         Language{"es", "es"}, Language{"fr", "fr"},
                                         Language{"it", "it"}, Language{"ja", "ja"},
                                         Language{"pt_BR", "pt-BR"}, Language{"zh_CN", "zh-Hans"}),
                         [](const auto &info) { return info.param.environment; });
