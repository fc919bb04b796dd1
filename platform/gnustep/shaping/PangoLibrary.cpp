#include "platform/gnustep/shaping/PangoLibrary.h"

#include <dlfcn.h>

#include <optional>

namespace {

/// Finds functions in a library, which stays loaded, because its types cannot be registered twice.
class Finder {
 public:
  explicit Finder(const char *library) : handle_(dlopen(library, RTLD_NOW | RTLD_LOCAL)) {}

  template <class Function>
  void find(const char *name, Function &function) {
    void *const found = handle_ == nullptr ? nullptr : dlsym(handle_, name);
    function = reinterpret_cast<Function>(found);
    if (found == nullptr) hasAll_ = false;
  }

  bool hasAll() const { return hasAll_; }

 private:
  void *handle_;
  bool hasAll_ = true;
};

std::optional<PangoLibrary> load() {
  PangoLibrary functions;
  // A handle finds also what the library itself depends on.
  Finder finder("libpangocairo-1.0.so.0");
  finder.find("g_object_ref", functions.object_ref);
  finder.find("g_object_unref", functions.object_unref);
  finder.find("pango_attr_font_desc_new", functions.attr_font_desc_new);
  finder.find("pango_attr_list_insert", functions.attr_list_insert);
  finder.find("pango_attr_list_new", functions.attr_list_new);
  finder.find("pango_attr_list_unref", functions.attr_list_unref);
  finder.find("pango_cairo_font_map_new", functions.cairo_font_map_new);
  finder.find("pango_cairo_show_glyph_string", functions.cairo_show_glyph_string);
  finder.find("pango_context_set_base_dir", functions.context_set_base_dir);
  finder.find("pango_context_set_language", functions.context_set_language);
  finder.find("pango_font_description_free", functions.font_description_free);
  finder.find("pango_font_description_new", functions.font_description_new);
  finder.find("pango_font_description_set_absolute_size",
              functions.font_description_set_absolute_size);
  finder.find("pango_font_description_set_family", functions.font_description_set_family);
  finder.find("pango_font_description_set_style", functions.font_description_set_style);
  finder.find("pango_font_description_set_weight", functions.font_description_set_weight);
  finder.find("pango_font_map_create_context", functions.font_map_create_context);
  finder.find("pango_glyph_string_new", functions.glyph_string_new);
  finder.find("pango_glyph_string_set_size", functions.glyph_string_set_size);
  finder.find("pango_language_from_string", functions.language_from_string);
  finder.find("pango_layout_get_line_readonly", functions.layout_get_line_readonly);
  finder.find("pango_layout_new", functions.layout_new);
  finder.find("pango_layout_set_attributes", functions.layout_set_attributes);
  finder.find("pango_layout_set_auto_dir", functions.layout_set_auto_dir);
  finder.find("pango_layout_set_single_paragraph_mode", functions.layout_set_single_paragraph_mode);
  finder.find("pango_layout_set_text", functions.layout_set_text);
  if (!finder.hasAll()) return std::nullopt;
  return functions;
}

}  // namespace

const PangoLibrary *PangoLibrary::shared() {
  static const std::optional<PangoLibrary> library = load();
  return library ? &*library : nullptr;
}
