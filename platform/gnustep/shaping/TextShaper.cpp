#include "platform/gnustep/shaping/TextShaper.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <span>
#include <utility>

#include "platform/gnustep/languages/LanguageChoice.h"
#include "platform/gnustep/shaping/Clusters.h"
#include "platform/gnustep/shaping/TextDirection.h"
#include "platform/gnustep/shaping/UserCharacters.h"

namespace text_shaper {
namespace {

constexpr char16_t kAttachment = u'\uFFFC';
constexpr UChar32 kReplacement = 0xFFFD;
constexpr std::size_t kCachedParagraphs = 8;

/// The text in UTF-8, and for each of its bytes the UTF-16 unit that it belongs to.
struct Utf8 {
  std::string text;
  std::vector<std::size_t> units;      // one more than bytes
  std::vector<std::size_t> firstByte;  // of each unit, one more than units
};

Utf8 utf8Of(std::u16string_view text) {
  Utf8 result;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t unit = i;
    UChar32 codePoint = 0;
    U16_NEXT(text, i, text.size(), codePoint);
    if (U_IS_SURROGATE(codePoint)) codePoint = kReplacement;
    std::uint8_t bytes[U8_MAX_LENGTH];
    std::size_t count = 0;
    U8_APPEND_UNSAFE(bytes, count, codePoint);
    result.firstByte.insert(result.firstByte.end(), i - unit, result.text.size());
    result.text.append(reinterpret_cast<const char *>(bytes), count);
    result.units.insert(result.units.end(), count, unit);
  }
  result.units.push_back(text.size());
  result.firstByte.push_back(result.text.size());
  return result;
}

/// Pango's objects for one result.
class Layout {
 public:
  Layout(const PangoLibrary &pango, PangoContext *context)
      : pango_(pango), layout_(pango.layout_new(context)) {
    pango_.layout_set_single_paragraph_mode(layout_, TRUE);
    pango_.layout_set_auto_dir(layout_, FALSE);
  }
  ~Layout() { pango_.object_unref(layout_); }
  Layout(const Layout &) = delete;
  Layout &operator=(const Layout &) = delete;

  /// The line, which the layout owns.
  PangoLayoutLine *line(const std::string &text, PangoAttrList *attributes) {
    pango_.layout_set_text(layout_, text.data(), static_cast<int>(text.size()));
    pango_.layout_set_attributes(layout_, attributes);
    return pango_.layout_get_line_readonly(layout_, 0);
  }

 private:
  const PangoLibrary &pango_;
  PangoLayout *layout_;
};

class Attributes {
 public:
  explicit Attributes(const PangoLibrary &pango) : pango_(pango), list_(pango.attr_list_new()) {}
  ~Attributes() { pango_.attr_list_unref(list_); }
  Attributes(const Attributes &) = delete;
  Attributes &operator=(const Attributes &) = delete;

  PangoAttrList *list() const { return list_; }

  void add(const Font &font, std::size_t firstByte, std::size_t endByte) {
    PangoFontDescription *const description = pango_.font_description_new();
    pango_.font_description_set_family(description, font.family.c_str());
    pango_.font_description_set_weight(description, static_cast<PangoWeight>(font.weight));
    pango_.font_description_set_style(description,
                                      font.isItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_.font_description_set_absolute_size(description, font.size * PANGO_SCALE);
    PangoAttribute *const attribute = pango_.attr_font_desc_new(description);
    attribute->start_index = static_cast<guint>(firstByte);
    attribute->end_index = static_cast<guint>(endByte);
    pango_.attr_list_insert(list_, attribute);
    pango_.font_description_free(description);
  }

 private:
  const PangoLibrary &pango_;
  PangoAttrList *list_;
};

/// One for the process, because it owns the fonts. The C library's locale, which Pango would ask,
/// is the plain one where the user's is not installed.
PangoContext *sharedContext(const PangoLibrary &pango) {
  static PangoContext *const shared = [&pango] {
    PangoContext *const context = pango.font_map_create_context(pango.cairo_font_map_new());
    const LanguageNames languages = languagesOfEnvironment();
    if (!languages.empty()) {
      pango.context_set_language(context, pango.language_from_string(languages.front().c_str()));
    }
    return context;
  }();
  return shared;
}

/// A part of a paragraph between control characters and attachments.
struct Segment {
  std::size_t first;
  std::size_t end;
};

/// Pango takes hundreds of bytes for a letter.
constexpr std::size_t kLongestSegment = 4096;

/// Where a part that begins at `first` ends: at `end`, or behind a space if that is too far.
std::size_t endOfPart(std::u16string_view paragraph, std::size_t first, std::size_t end) {
  if (end - first <= kLongestSegment) return end;
  const std::size_t space = paragraph.rfind(u' ', first + kLongestSegment - 1);
  if (space != std::u16string_view::npos && space > first) return space + 1;
  return user_characters::endAfter(paragraph, first + kLongestSegment - 1);
}

std::vector<Segment> segmentsOf(std::u16string_view paragraph) {
  std::vector<Segment> result;
  for (std::size_t i = 0; i < paragraph.size(); ++i) {
    if (isLeftToThePlatform(paragraph[i])) continue;
    std::size_t first = i;
    while (i < paragraph.size() && !isLeftToThePlatform(paragraph[i])) ++i;
    while (first < i) {
      const std::size_t end = std::min(i, endOfPart(paragraph, first, i));
      result.push_back({first, end});
      first = end;
    }
  }
  return result;
}

/// Writes the glyphs of a segment's runs into those of its paragraph.
class Writer {
 public:
  Writer(std::u16string_view segment, const Utf8 &utf8, std::span<shaped_glyphs::Glyph> glyphs)
      : utf8_(utf8), boundaries_(user_characters::boundaries(segment)), glyphs_(glyphs) {}

  void write(const PangoGlyphItem &run) const {
    const PangoItem &item = *run.item;
    const PangoGlyphString &string = *run.glyphs;
    // From the first byte of a cluster to its glyphs. The glyphs are in visual order.
    std::map<int, std::span<const PangoGlyphInfo>> clusters;
    for (int i = 0; i < string.num_glyphs;) {
      const int first = i;
      while (i < string.num_glyphs && string.log_clusters[i] == string.log_clusters[first]) ++i;
      clusters[string.log_clusters[first]] = {string.glyphs + first,
                                              static_cast<std::size_t>(i - first)};
    }
    for (auto it = clusters.begin(); it != clusters.end(); ++it) {
      const auto next = std::next(it);
      const int end = next == clusters.end() ? item.length : next->first;
      write(item.analysis, it->second, unitAt(item.offset + it->first), unitAt(item.offset + end));
    }
  }

 private:
  std::size_t unitAt(int byte) const { return utf8_.units[static_cast<std::size_t>(byte)]; }

  /// The units from `first` to `end` are drawn as one. In a ligature of several characters each
  /// gets an equal part of the width, so that the caret can be between them; the leftmost draws it.
  void write(const PangoAnalysis &analysis, std::span<const PangoGlyphInfo> infos,
             std::size_t first, std::size_t end) const {
    std::vector<std::size_t> parts = {first};
    for (std::size_t i = first + 1; i < end; ++i) {
      if (boundaries_[i]) parts.push_back(i);
    }
    double width = 0;
    for (const PangoGlyphInfo &info : infos) width += info.geometry.width;
    const double share = width / PANGO_SCALE / static_cast<double>(parts.size());
    const std::size_t drawing =
        text_direction::isRightToLeft(analysis.level) ? parts.back() : parts.front();
    for (const std::size_t part : parts) {
      const shaped_glyphs::Cluster whole = {analysis.font, infos, share};
      const shaped_glyphs::Cluster blank = {nullptr, {}, share};
      glyphs_[part] = shaped_glyphs::intern(part == drawing ? whole : blank, analysis.level);
    }
  }

  const Utf8 &utf8_;
  std::vector<bool> boundaries_;
  std::span<shaped_glyphs::Glyph> glyphs_;
};

Glyphs shapeAnew(const PangoLibrary &pango, std::u16string_view paragraph,
                 const std::vector<FontRun> &runs) {
  Glyphs result(paragraph.size(), 0);
  PangoContext *const context = sharedContext(pango);
  pango.context_set_base_dir(context, text_direction::isRightToLeft(paragraph)
                                          ? PANGO_DIRECTION_RTL
                                          : PANGO_DIRECTION_LTR);
  for (const Segment &segment : segmentsOf(paragraph)) {
    const std::u16string_view text = paragraph.substr(segment.first, segment.end - segment.first);
    const Utf8 utf8 = utf8Of(text);
    Attributes attributes(pango);
    std::size_t begin = 0;
    for (const FontRun &run : runs) {
      const std::size_t first = std::clamp(begin, segment.first, segment.end);
      const std::size_t end = std::clamp(run.end, segment.first, segment.end);
      begin = run.end;
      if (first >= end) continue;
      attributes.add(run.font, utf8.firstByte[first - segment.first],
                     utf8.firstByte[end - segment.first]);
    }
    Layout layout(pango, context);
    const Writer writer(text, utf8,
                        std::span(result).subspan(segment.first, segment.end - segment.first));
    const PangoLayoutLine *const line = layout.line(utf8.text, attributes.list());
    for (const GSList *run = line->runs; run != nullptr; run = run->next) {
      writer.write(*static_cast<const PangoGlyphItem *>(run->data));
    }
  }
  return result;
}

struct CachedParagraph {
  std::u16string text;
  std::vector<FontRun> runs;
  std::shared_ptr<const Glyphs> glyphs;
};

}  // namespace

bool isLeftToThePlatform(char16_t unit) {
  // U+2028 and U+2029 separate lines and paragraphs.
  return unit == kAttachment || u_charType(unit) == U_CONTROL_CHAR || unit == 0x2028 ||
         unit == 0x2029;
}

std::shared_ptr<const Glyphs> shape(std::u16string_view paragraph,
                                    const std::vector<FontRun> &runs) {
  const PangoLibrary *const pango = PangoLibrary::shared();
  if (pango == nullptr) return nullptr;
  const std::lock_guard guard(shaped_glyphs::lock());
  static auto *const cache = new std::deque<CachedParagraph>;
  for (const CachedParagraph &cached : *cache) {
    if (cached.text == paragraph && cached.runs == runs) {
      return cached.glyphs;
    }
  }
  if (cache->size() >= kCachedParagraphs) cache->pop_back();
  cache->push_front({std::u16string(paragraph), runs,
                     std::make_shared<const Glyphs>(shapeAnew(*pango, paragraph, runs))});
  return cache->front().glyphs;
}

}  // namespace text_shaper
