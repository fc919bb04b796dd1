#include "platform/gnustep/languages/LanguageChoice.h"

#include <unicode/uloc.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace {

struct Language {
  std::string language, script, region;
};

/// The name without the encoding and the modifier that locales have ("de_DE.UTF-8@euro").
std::string bareName(const std::string &name) {
  return name.substr(0, name.find_first_of(".@"));
}

bool namesALanguage(const std::string &name) {
  const std::string bare = bareName(name);
  return !bare.empty() && bare != "C" && bare != "POSIX";
}

bool isSet(const char *variable) {
  return variable != nullptr && *variable != '\0';
}

using Part = int32_t (*)(const char *, char *, int32_t, UErrorCode *);

std::string part(Part get, const std::string &name) {
  char buffer[ULOC_FULLNAME_CAPACITY] = "";
  UErrorCode status = U_ZERO_ERROR;
  get(name.c_str(), buffer, ULOC_FULLNAME_CAPACITY - 1, &status);
  return U_SUCCESS(status) ? buffer : "";
}

/// The region stays empty where the name has none: the likely region of a language does not make a
/// localisation one for that region.
Language parsed(const std::string &name) {
  const std::string bare = bareName(name);
  const std::string full = part(uloc_addLikelySubtags, bare);
  return {part(uloc_getLanguage, bare), part(uloc_getScript, full), part(uloc_getCountry, bare)};
}

/// 0 for the wanted region, 1 for none, 2 for another one.
int distance(const Language &wanted, const Language &available) {
  if (available.region == wanted.region) return 0;
  return available.region.empty() ? 1 : 2;
}

}  // namespace

LanguageNames languagesWanted(const LanguageEnvironment &environment) {
  LanguageNames names;
  if (isSet(environment.language)) {
    std::istringstream list(environment.language);
    for (std::string name; std::getline(list, name, ':');) {
      if (namesALanguage(name)) names.push_back(name);
    }
  }
  if (!names.empty()) return names;
  for (const char *variable : {environment.lcAll, environment.lcMessages, environment.lang}) {
    if (!isSet(variable)) continue;
    if (namesALanguage(variable)) names.emplace_back(variable);
    break;
  }
  return names;
}

LanguageNames languagesOfEnvironment() {
  return languagesWanted({std::getenv("LANGUAGE"), std::getenv("LC_ALL"),
                          std::getenv("LC_MESSAGES"), std::getenv("LANG")});
}

std::string localizationFor(const std::string &wanted, const LanguageNames &available) {
  const Language goal = parsed(wanted);
  std::string best;
  int bestDistance = 0;
  for (const std::string &name : available) {
    const Language candidate = parsed(name);
    if (candidate.language != goal.language || candidate.script != goal.script) continue;
    const int candidateDistance = distance(goal, candidate);
    if (!best.empty() && candidateDistance >= bestDistance) continue;
    best = name;
    bestDistance = candidateDistance;
  }
  return best;
}

LanguageNames lookupOrder(const LanguageNames &wanted, const LanguageNames &available) {
  LanguageNames order;
  const auto add = [&](const std::string &name) {
    if (!name.empty() && std::ranges::find(order, name) == order.end()) order.push_back(name);
  };
  for (const std::string &name : wanted) {
    if (!namesALanguage(name)) continue;
    add(localizationFor(name, available));
    add(parsed(name).language);
  }
  return order;
}
