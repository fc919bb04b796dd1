#pragma once

#include <pango/pangocairo.h>

/// Pango's functions, found when they are first needed. Linking the library would load it, GLib's
/// objects and HarfBuzz into every process at launch, a megabyte that only a text in a script with
/// joined or reordered letters, or one that the interface's font lacks, makes use of.
struct PangoLibrary {
  /// The functions; nullptr where the library is not installed. Loads it at the first call. Any
  /// thread.
  static const PangoLibrary *shared();

  decltype(&::g_object_ref) object_ref;
  decltype(&::g_object_unref) object_unref;
  decltype(&::pango_attr_font_desc_new) attr_font_desc_new;
  decltype(&::pango_attr_list_insert) attr_list_insert;
  decltype(&::pango_attr_list_new) attr_list_new;
  decltype(&::pango_attr_list_unref) attr_list_unref;
  decltype(&::pango_cairo_font_map_new) cairo_font_map_new;
  decltype(&::pango_cairo_show_glyph_string) cairo_show_glyph_string;
  decltype(&::pango_context_set_base_dir) context_set_base_dir;
  decltype(&::pango_context_set_language) context_set_language;
  decltype(&::pango_font_description_free) font_description_free;
  decltype(&::pango_font_description_new) font_description_new;
  decltype(&::pango_font_description_set_absolute_size) font_description_set_absolute_size;
  decltype(&::pango_font_description_set_family) font_description_set_family;
  decltype(&::pango_font_description_set_style) font_description_set_style;
  decltype(&::pango_font_description_set_weight) font_description_set_weight;
  decltype(&::pango_font_map_create_context) font_map_create_context;
  decltype(&::pango_glyph_string_new) glyph_string_new;
  decltype(&::pango_glyph_string_set_size) glyph_string_set_size;
  decltype(&::pango_language_from_string) language_from_string;
  decltype(&::pango_layout_get_line_readonly) layout_get_line_readonly;
  decltype(&::pango_layout_new) layout_new;
  decltype(&::pango_layout_set_attributes) layout_set_attributes;
  decltype(&::pango_layout_set_auto_dir) layout_set_auto_dir;
  decltype(&::pango_layout_set_single_paragraph_mode) layout_set_single_paragraph_mode;
  decltype(&::pango_layout_set_text) layout_set_text;
};
