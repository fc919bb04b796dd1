#include "platform/gnustep/languages/LanguageChoice.h"

#include <gtest/gtest.h>

namespace {

const LanguageNames kAvailable = {"it", "zh-Hans", "de", "fr", "ja", "en", "pt-BR", "es"};

}  // namespace

TEST(LanguageChoice, LanguageComesBeforeTheLocale) {
  EXPECT_EQ(languagesWanted({"fr_CA:de", "es_ES.UTF-8", nullptr, "it_IT.UTF-8"}),
            (LanguageNames{"fr_CA", "de"}));
}

TEST(LanguageChoice, TheFirstVariableThatSaysSomethingDecides) {
  EXPECT_EQ(languagesWanted({"", "", "es_ES.UTF-8", "it_IT"}), LanguageNames{"es_ES.UTF-8"});
  EXPECT_EQ(languagesWanted({nullptr, "C", nullptr, "it_IT"}), LanguageNames{});
}

TEST(LanguageChoice, ThePlainLocaleIsNoLanguage) {
  for (const char *name : {"C", "POSIX", "C.UTF-8", ""}) {
    EXPECT_EQ(languagesWanted({nullptr, nullptr, nullptr, name}), LanguageNames{}) << name;
  }
  EXPECT_EQ(languagesWanted({"C", nullptr, nullptr, "de_DE"}), LanguageNames{"de_DE"});
}

TEST(LanguageChoice, ALocaleFindsTheLocalisationOfItsLanguage) {
  EXPECT_EQ(localizationFor("de_AT.UTF-8@euro", kAvailable), "de");
  EXPECT_EQ(localizationFor("es_MX", kAvailable), "es");
  EXPECT_EQ(localizationFor("fr-CA", kAvailable), "fr");
  EXPECT_EQ(localizationFor("ja", kAvailable), "ja");
}

TEST(LanguageChoice, ThePortugueseOfAnyPlaceFindsTheOnlyOneThereIs) {
  for (const char *name : {"pt_BR.UTF-8", "pt-BR", "pt", "pt_PT"}) {
    EXPECT_EQ(localizationFor(name, kAvailable), "pt-BR") << name;
  }
}

TEST(LanguageChoice, TheRegionTellsTheScriptOfChinese) {
  for (const char *name : {"zh_CN", "zh_SG.UTF-8", "zh", "zh-Hans", "zh-Hans-CN", "zh_Hans_HK"}) {
    EXPECT_EQ(localizationFor(name, kAvailable), "zh-Hans") << name;
  }
  for (const char *name : {"zh_TW", "zh_HK.UTF-8", "zh-Hant"}) {
    EXPECT_EQ(localizationFor(name, kAvailable), "") << name;
  }
}

TEST(LanguageChoice, TheSameRegionComesBeforeNoneAndNoneBeforeAnother) {
  EXPECT_EQ(localizationFor("en_GB", {"en-AU", "en", "en-GB"}), "en-GB");
  EXPECT_EQ(localizationFor("en_GB", {"en-AU", "en"}), "en");
  EXPECT_EQ(localizationFor("en_GB", {"en-AU"}), "en-AU");
}

TEST(LanguageChoice, ALanguageThatIsNotThereFindsNothing) {
  EXPECT_EQ(localizationFor("fi_FI", kAvailable), "");
}

TEST(LanguageChoice, TheOrderIsThatOfTheWishes) {
  EXPECT_EQ(lookupOrder({"fi_FI", "pt_BR", "de_AT", "de"}, kAvailable),
            (LanguageNames{"fi", "pt-BR", "pt", "de"}));
}

TEST(LanguageChoice, WhatIsNoLanguageIsLeftOut) {
  EXPECT_EQ(lookupOrder({"", "C", "@x", "."}, kAvailable), LanguageNames{});
}
