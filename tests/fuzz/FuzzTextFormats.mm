#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "text/LocalizedText.h"
#include "text/UTF16.h"

namespace {

/// The format step as its header tells it. argument: nullptr for none.
std::u16string expected(std::u16string_view text, const std::u16string *argument) {
  std::u16string result;
  while (!text.empty()) {
    std::size_t taken = 1;
    if (text.starts_with(u"%%")) {
      taken = 2;
      result += u'%';
    } else if (argument != nullptr && (text.starts_with(u"%@") || text.starts_with(u"%1$@"))) {
      taken = text.starts_with(u"%@") ? 2 : 4;
      result += *argument;
      argument = nullptr;
    } else {
      result += text.front();
    }
    text.remove_prefix(taken);
  }
  return result;
}

}  // namespace

/// input: a line with the argument, then the text. Without a line feed there is no argument.
void fuzz::TextFormats(std::string_view input) {
  const bool hasArgument = input.find('\n') != input.npos;
  const std::string_view line = hasArgument ? input.substr(0, input.find('\n')) : "";
  const std::string_view text = hasArgument ? input.substr(line.size() + 1) : input;
  const std::u16string argument = unitsFrom(line);
  NSString *const result = formatted(stringFrom(text), hasArgument ? stringFrom(line) : nil);
  promise(utf16::unitsOf(result) == expected(unitsFrom(text), hasArgument ? &argument : nullptr),
          "one argument takes its place, two signs become one, nothing else is a conversion");
}
