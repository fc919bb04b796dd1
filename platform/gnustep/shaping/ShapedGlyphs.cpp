#include "platform/gnustep/shaping/ShapedGlyphs.h"

#include <cairo.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/gnustep/shaping/Clusters.h"
#include "platform/gnustep/shaping/TextDirection.h"

namespace shaped_glyphs {
namespace {

constexpr int kLevelShift = 22;
constexpr Glyph kIndexMask = (Glyph{1} << kLevelShift) - 1;
constexpr std::size_t kMaximum = std::size_t{1} << 18;

struct Entry {
  PangoFont *font;
  PangoGlyphString *glyphs;  // nullptr for a blank
  double width;
};

struct Table {
  std::vector<Entry> entries;
  /// From the bytes of what makes a cluster to its place in `entries`.
  std::unordered_map<std::string, Glyph> places;
};

/// Never destroyed, because texts are drawn until the process ends.
Table &table() {
  static Table *const shared = new Table;
  return *shared;
}

std::atomic<bool> hasAny = false;
std::atomic<bool> hasRightToLeft = false;

template <class Value>
void append(std::string &key, const Value &value) {
  key.append(reinterpret_cast<const char *>(&value), sizeof value);
}

std::string keyOf(const Cluster &cluster) {
  std::string key;
  append(key, reinterpret_cast<std::uintptr_t>(cluster.font));
  append(key, cluster.width);
  for (const PangoGlyphInfo &info : cluster.glyphs) {
    append(key, info.glyph);
    append(key, info.geometry.width);
    append(key, info.geometry.x_offset);
    append(key, info.geometry.y_offset);
  }
  return key;
}

Entry entryOf(const Cluster &cluster) {
  if (cluster.glyphs.empty()) return {nullptr, nullptr, cluster.width};
  const PangoLibrary &pango = *PangoLibrary::shared();
  PangoGlyphString *const glyphs = pango.glyph_string_new();
  pango.glyph_string_set_size(glyphs, static_cast<int>(cluster.glyphs.size()));
  std::copy(cluster.glyphs.begin(), cluster.glyphs.end(), glyphs->glyphs);
  std::fill_n(glyphs->log_clusters, cluster.glyphs.size(), 0);
  return {static_cast<PangoFont *>(pango.object_ref(cluster.font)), glyphs, cluster.width};
}

const Entry *entryOf(Glyph glyph) {
  const std::size_t place = glyph & kIndexMask;
  return isShaped(glyph) && place < table().entries.size() ? &table().entries[place] : nullptr;
}

/// Pango draws for a y axis that points down.
void drawUpright(cairo_t *context, const Entry &entry, double x, double y) {
  cairo_save(context);
  cairo_translate(context, x, y);
  cairo_matrix_t matrix;
  cairo_get_matrix(context, &matrix);
  if (matrix.yy < 0) cairo_scale(context, 1, -1);
  cairo_move_to(context, 0, 0);
  PangoLibrary::shared()->cairo_show_glyph_string(context, entry.font, entry.glyphs);
  cairo_restore(context);
}

}  // namespace

std::mutex &lock() {
  static std::mutex *const shared = new std::mutex;
  return *shared;
}

Glyph intern(const Cluster &cluster, std::uint8_t level) {
  hasAny = true;
  if (text_direction::isRightToLeft(level)) hasRightToLeft = true;
  Table &all = table();
  const bool isFull = all.entries.size() >= kMaximum;
  const Cluster blank = {nullptr, {}, isFull ? 0 : cluster.width};
  const Cluster &wanted = isFull && !all.places.contains(keyOf(cluster)) ? blank : cluster;
  const auto [place, isNew] =
      all.places.try_emplace(keyOf(wanted), static_cast<Glyph>(all.entries.size()));
  if (isNew) all.entries.push_back(entryOf(wanted));
  return kFirst | (Glyph{level} << kLevelShift) | place->second;
}

std::uint8_t level(Glyph glyph) {
  return isShaped(glyph) ? static_cast<std::uint8_t>((glyph - kFirst) >> kLevelShift) : 0;
}

double width(Glyph glyph) {
  const std::lock_guard guard(lock());
  const Entry *const entry = entryOf(glyph);
  return entry == nullptr ? 0 : entry->width;
}

void draw(cairo_t *context, Glyph glyph) {
  const std::lock_guard guard(lock());
  const Entry *const entry = entryOf(glyph);
  if (entry == nullptr) return;
  double x = 0;
  double y = 0;
  cairo_get_current_point(context, &x, &y);
  if (entry->glyphs != nullptr) drawUpright(context, *entry, x, y);
  cairo_move_to(context, x + entry->width, y);
}

bool anyFromRightToLeft() {
  return hasRightToLeft;
}

bool any() {
  return hasAny;
}

}  // namespace shaped_glyphs
