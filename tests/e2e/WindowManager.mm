#include "tests/e2e/WindowManager.h"

#include <stdexcept>

#import "tests/e2e/RunningApplication.h"

namespace {

bool managesScreen() {
  return outputOf({"/usr/bin/xprop", "-root", "-notype", "_NET_SUPPORTING_WM_CHECK"})
             .find("window id #") != std::string::npos;
}

}  // namespace

WindowManager::WindowManager() : process_({"/usr/bin/openbox", "--sm-disable"}) {
  if (!waitFor(managesScreen)) throw std::runtime_error("no window manager: " + process_.output());
}
