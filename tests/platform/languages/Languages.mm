#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include "tests/support/ChildProcess.h"
#include "tests/support/Strings.h"

namespace {

using Environment = ChildProcess::Environment;

std::string outputOf(const std::vector<std::string> &arguments, const Environment &environment) {
  std::vector<std::string> all = {LOCALIZED_TEXT};
  all.insert(all.end(), arguments.begin(), arguments.end());
  ChildProcess program(all, environment);
  EXPECT_EQ(program.waitForEnd(), 0);
  return program.output();
}

/// The text on the button that closes the share window, in the language of a program with this
/// environment and these settings.
std::string doneButton(const Environment &environment,
                       const std::vector<std::string> &settings = {}) {
  std::vector<std::string> arguments = {"doneButtonTitleKey"};
  arguments.insert(arguments.end(), settings.begin(), settings.end());
  return outputOf(arguments, environment);
}

}  // namespace

TEST(Languages, TheLanguageOfALocaleThatIsNotInstalledIsTaken) {
  EXPECT_EQ(doneButton({{"LANG", "de_DE.UTF-8"}}), "Fertig\n");
  EXPECT_EQ(doneButton({{"LANG", "fr_FR.UTF-8"}}), "Terminé\n");
  EXPECT_EQ(doneButton({{"LANG", "es_MX.UTF-8"}}), "Listo\n");
  EXPECT_EQ(doneButton({{"LANG", "it_IT"}}), "Fine\n");
  EXPECT_EQ(doneButton({{"LANG", "ja_JP.UTF-8"}}), "完了\n");
}

TEST(Languages, FoldersWithTheMacsNamesAreFound) {
  EXPECT_EQ(doneButton({{"LANG", "pt_BR.UTF-8"}}), "Concluído\n");
  EXPECT_EQ(doneButton({{"LANGUAGE", "pt_BR"}}), "Concluído\n");
  EXPECT_EQ(doneButton({{"LANG", "zh_CN.UTF-8"}}), "完成\n");
  EXPECT_EQ(doneButton({{"LANGUAGE", "zh_Hans"}}), "完成\n");
}

TEST(Languages, ALanguageThatIsNotThereGivesWayToTheNextAndAtLastToEnglish) {
  EXPECT_EQ(doneButton({{"LANGUAGE", "fi:pt_BR:de"}}), "Concluído\n");
  EXPECT_EQ(doneButton({{"LANG", "fi_FI.UTF-8"}}), "Done\n");
  EXPECT_EQ(doneButton({{"LANG", "zh_TW.UTF-8"}}), "Done\n");
  EXPECT_EQ(doneButton({{"LANG", "C.UTF-8"}}), "Done\n");
}

TEST(Languages, WhatTheUserSetComesBeforeTheEnvironment) {
  const Environment german = {{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "de"}};
  EXPECT_EQ(doneButton(german, {"-NSLanguages", "(fr,en)"}), "Terminé\n");
  EXPECT_EQ(doneButton(german, {"-NSLanguages", "(fi,en)"}), "Done\n");
}

TEST(Languages, WhatTheUserStoredComesBeforeTheEnvironment) {
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  [defaults setPersistentDomain:@{@"NSLanguages" : @[ @"it" ]} forName:NSGlobalDomain];
  [defaults synchronize];
  EXPECT_EQ(doneButton({{"LANG", "de_DE.UTF-8"}}), "Fine\n");
  [defaults removePersistentDomainForName:NSGlobalDomain];
  [defaults synchronize];
}

TEST(Languages, SettingsMayNameALanguageInAnyOfTheUsualWays) {
  for (const char *name : {"pt-BR", "pt_BR", "pt-PT", "BrasilPortuguese"}) {
    EXPECT_EQ(doneButton({}, {"-NSLanguages", std::string("(\"") + name + "\")"}), "Concluído\n")
        << name;
  }
  EXPECT_EQ(doneButton({}, {"-NSLanguages", "(\"zh-Hans-CN\")"}), "完成\n");
  EXPECT_EQ(doneButton({}, {"-NSLanguages", "(German)"}), "Fertig\n");
}

TEST(Languages, TheLanguageChangesNoFormatsAndNoOrder) {
  for (const char *locale : {"de_DE.UTF-8", "sv_SE.UTF-8", "pt_BR.UTF-8", "C.UTF-8"}) {
    const std::string output = outputOf({"--formats"}, {{"LANG", locale}});
    const std::string before = output.substr(0, output.size() / 2);
    EXPECT_NE(before, "");
    EXPECT_EQ(output, before + before);
  }
}
