#pragma once

#include <string_view>

/// The rules for foreign data, each with the promises that hold for any input. The same functions
/// run under the fuzzer (LibFuzzer.mm) and, over the kept corpora, among the tests (Corpus.mm).
namespace fuzz {

/// Reports a broken promise: ends the process under the fuzzer, fails the test otherwise.
void broken(const char *promise);

inline void promise(bool isKept, const char *what) {
  if (!isKept) broken(what);
}

/// Runs a target with an autorelease pool of its own. A platform exception is a broken promise.
void run(void (*target)(std::string_view), std::string_view input);

// In tests/fuzz/NAME.mm, with the corpus in tests/fuzz/corpus/NAME.
void Brackets(std::string_view input);         // the address of an entry
void Completion(std::string_view input);       // the index against the predicates
void DesktopSettings(std::string_view input);  // settings of GTK
void Entries(std::string_view input);          // entries of the address book
void MailText(std::string_view input);         // cutting and escaping
void Scripts(std::string_view input);          // texts in every script
void SplitString(std::string_view input);      // the text of a bulk transfer
void Recipients(std::string_view input);       // recipients as entered
void Records(std::string_view input);          // bulk transfer of contacts and of access lists
void Replies(std::string_view input);          // result dictionaries
void TextFormats(std::string_view input);      // texts with a place for an argument
void WindowTitles(std::string_view input);     // names as titles of windows

}  // namespace fuzz
