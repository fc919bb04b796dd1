#pragma once

#include <string>
#include <vector>

/// Names of languages, the most wanted first, as they stand in the environment ("pt_BR.UTF-8"), in
/// the user's settings or in the names of localisation folders ("pt-BR").
using LanguageNames = std::vector<std::string>;

/// The environment variables that name the user's language; nullptr for one that is not set.
struct LanguageEnvironment {
  const char *language;    ///< LANGUAGE: several, separated by colons
  const char *lcAll;       ///< LC_ALL
  const char *lcMessages;  ///< LC_MESSAGES
  const char *lang;        ///< LANG
};

/// The languages that an environment asks for: those of LANGUAGE, otherwise that of the first of
/// LC_ALL, LC_MESSAGES and LANG that is set and not empty. Whether a locale of that name is
/// installed does not matter. Empty for the plain C locale, which is no language.
LanguageNames languagesWanted(const LanguageEnvironment &environment);

/// Those of the environment of this process.
LanguageNames languagesOfEnvironment();

/// The best available localisation for a wanted language, as its folder is named; empty when none
/// has that language and script. A name without a script has the likely one of its region: "zh_TW"
/// is not "zh-Hans". The same region comes before none, and none before another ("pt_PT" gets
/// "pt-BR" rather than nothing).
std::string localizationFor(const std::string &wanted, const LanguageNames &available);

/// What to look localisations up by: for each wanted language the best localisation, then the bare
/// language, for other bundles. No name stands twice; one that is no language is left out.
LanguageNames lookupOrder(const LanguageNames &wanted, const LanguageNames &available);
