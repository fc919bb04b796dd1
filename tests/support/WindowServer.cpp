#include "tests/support/WindowServer.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {

struct Free {
  void operator()(void *memory) const { std::free(memory); }
};

template <class Type>
using Reply = std::unique_ptr<Type, Free>;

/// The most that is read of a property, in units of four bytes.
constexpr std::uint32_t kMostWords = 1024;

class Server {
 public:
  Server() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) {
      xcb_disconnect(connection_);
      throw std::runtime_error("no window server");
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    utf8_ = atom("UTF8_STRING");
    netWindowName_ = atom("_NET_WM_NAME");
  }
  ~Server() { xcb_disconnect(connection_); }
  Server(const Server &) = delete;
  Server &operator=(const Server &) = delete;

  xcb_window_t root() const { return screen_->root; }

  /// Replies about windows that have closed meanwhile are nullptr, "" or nothing.
  std::vector<xcb_window_t> children(xcb_window_t window) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
    if (!tree) return {};
    const xcb_window_t *const first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
  }

  xcb_window_t parent(xcb_window_t window) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
    return tree ? tree->parent : XCB_NONE;
  }

  /// Those of the visible windows, requested all at once.
  std::vector<xcb_window_t> visible(const std::vector<xcb_window_t> &windows) const {
    std::vector<xcb_get_window_attributes_cookie_t> asked;
    for (const xcb_window_t window : windows) {
      asked.push_back(xcb_get_window_attributes(connection_, window));
    }
    std::vector<xcb_window_t> found;
    for (std::size_t i = 0; i < windows.size(); ++i) {
      const Reply<xcb_get_window_attributes_reply_t> attributes(
          xcb_get_window_attributes_reply(connection_, asked[i], nullptr));
      if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) {
        found.push_back(windows[i]);
      }
    }
    return found;
  }

  /// The first part of WM_CLASS.
  std::string program(xcb_window_t window) const {
    const std::string both = property(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING);
    return both.substr(0, both.find('\0'));
  }

  std::string title(xcb_window_t window) const {
    const std::string name = property(window, netWindowName_, utf8_);
    return name.empty() ? property(window, XCB_ATOM_WM_NAME, XCB_ATOM_ANY) : name;
  }

  std::optional<ScreenArea> area(xcb_window_t window) const {
    const auto geometryAsked = xcb_get_geometry(connection_, window);
    const auto placeAsked = xcb_translate_coordinates(connection_, window, root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection_, geometryAsked, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection_, placeAsked, nullptr));
    if (!geometry || !place) return std::nullopt;
    return ScreenArea{place->dst_x, place->dst_y, geometry->width, geometry->height};
  }

  xcb_window_t focusedWindow() const {
    const Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    return focus ? focus->focus : XCB_NONE;
  }

  bool isKeyboardGrabbed() const {
    const Reply<xcb_grab_keyboard_reply_t> grab(
        xcb_grab_keyboard_reply(connection_,
                                xcb_grab_keyboard(connection_, 0, root(), XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    const bool isOurs = grab && grab->status == XCB_GRAB_STATUS_SUCCESS;
    if (isOurs) xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
    return grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
  }

  bool isPointerGrabbed() const {
    const Reply<xcb_grab_pointer_reply_t> grab(xcb_grab_pointer_reply(
        connection_,
        xcb_grab_pointer(connection_, 0, root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                         XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
        nullptr));
    const bool isOurs = grab && grab->status == XCB_GRAB_STATUS_SUCCESS;
    if (isOurs) xcb_ungrab_pointer(connection_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
    return grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
  }

  /// Four bytes a pixel: blue, green, red, nothing.
  std::string image(const ScreenArea &area) const {
    const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        connection_,
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root(),
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(area.width),
                      static_cast<std::uint16_t>(area.height), ~0U),
        nullptr));
    if (!image) return "";
    const std::uint8_t *const data = xcb_get_image_data(image.get());
    return {data, data + xcb_get_image_data_length(image.get())};
  }

 private:
  xcb_atom_t atom(const std::string &name) const {
    const auto asked =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Reply<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(connection_, asked, nullptr));
    return answer ? answer->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  }

  std::string property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const {
    const Reply<xcb_get_property_reply_t> answer(xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 0, window, name, type, 0, kMostWords), nullptr));
    if (!answer) return "";
    const auto *const value = static_cast<const char *>(xcb_get_property_value(answer.get()));
    return {value, value + xcb_get_property_value_length(answer.get())};
  }

  xcb_connection_t *connection_;
  const xcb_screen_t *screen_ = nullptr;
  xcb_atom_t utf8_ = XCB_ATOM_NONE;
  xcb_atom_t netWindowName_ = XCB_ATOM_NONE;
};

const Server &server() {
  static const Server server;
  return server;
}

void addVisibleWindows(xcb_window_t parent, const std::string &program,
                       std::vector<ServerWindow> &windows) {
  // Children of an invisible window are invisible.
  for (const xcb_window_t window : server().visible(server().children(parent))) {
    if (server().program(window) == program) {
      if (const auto area = server().area(window)) {
        windows.push_back({std::to_string(window), server().title(window), *area});
      }
    }
    addVisibleWindows(window, program, windows);
  }
}

}  // namespace

std::vector<ServerWindow> visibleWindowsOf(const std::string &program) {
  std::vector<ServerWindow> windows;
  addVisibleWindows(server().root(), program, windows);
  return windows;
}

std::string focusedWindow() {
  // The focus may be in a child of the platform's window.
  for (xcb_window_t window = server().focusedWindow();
       window > XCB_INPUT_FOCUS_POINTER_ROOT && window != server().root();
       window = server().parent(window)) {
    if (!server().program(window).empty()) return std::to_string(window);
  }
  return "";
}

bool isInputGrabbed() {
  const bool isKeyboardGrabbed = server().isKeyboardGrabbed();
  return server().isPointerGrabbed() && isKeyboardGrabbed;
}

std::string pixelsIn(const ScreenArea &area) {
  constexpr std::uint32_t kColours = 0x00FFFFFF;
  std::string pixels = server().image(area);
  // Word by word: this is compiled without optimisation, and called often.
  auto *const words = reinterpret_cast<std::uint32_t *>(pixels.data());
  const std::size_t count = pixels.size() / sizeof *words;
  for (std::size_t i = 0; i < count; ++i) words[i] &= kColours;
  return pixels;
}
