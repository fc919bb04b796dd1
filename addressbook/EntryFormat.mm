#import "addressbook/EntryFormat.h"

#import "text/UTF16.h"

using utf16::stringOf;

EntryFormat::EntryFormat(NSString *format)
    : format_([format ?: @"" copy]), isSimple_(parse(utf16::unitsOf(format_))) {}

EntryFormat::~EntryFormat() {
  [format_ release];
}

bool EntryFormat::parse(std::u16string_view format) {
  size_t next = 0;  // the argument of the next "%@"
  std::u16string text;
  while (!format.empty()) {
    // A null character ends the platform's formats.
    if (format.front() == u'\0') return false;
    if (format.front() != u'%') {
      text += format.front();
      format.remove_prefix(1);
      continue;
    }
    format.remove_prefix(1);
    if (format.starts_with(u"%")) {
      text += u'%';
      format.remove_prefix(1);
      continue;
    }
    size_t argument = kNone;
    if (format.starts_with(u"@")) {
      argument = next++;
      format.remove_prefix(1);
    } else if (format.size() >= 3 && format.front() >= u'1' && format.front() <= u'3' &&
               format.substr(1).starts_with(u"$@")) {
      argument = static_cast<size_t>(format.front() - u'1');
      format.remove_prefix(3);
    }
    if (argument >= kNone) return false;
    pieces_.push_back({std::move(text), argument});
    text.clear();
  }
  pieces_.push_back({std::move(text), kNone});
  return true;
}

NSString *EntryFormat::fill(const std::array<std::u16string_view, 3> &arguments) const {
  if (!isSimple_) {
    return [NSString stringWithFormat:format_, stringOf(arguments[0]), stringOf(arguments[1]),
                                      stringOf(arguments[2])];
  }
  std::u16string filled;
  for (const Piece &piece : pieces_) {
    filled += piece.text;
    if (piece.argument != kNone) filled += arguments[piece.argument];
  }
  return stringOf(filled);
}
