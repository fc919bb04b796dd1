#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "devkit/client/Failure.h"

namespace devkit {

enum class Verb { Help, Status, CopyLink, Send, Share };

/// What the command line asks for.
struct Request {
  Verb verb = Verb::Help;
  std::string path;
  int tab = 0;
  /// How long to wait for the application's name.
  std::chrono::duration<double> wait{0};
  /// How long a registered application may take for its first reply.
  std::chrono::duration<double> timeout{kLookUpTimeout};

  /// Longer than the 15 seconds for which the application itself may wait for its agent, during
  /// which it serves no call.
  static constexpr std::chrono::seconds kLookUpTimeout{20};
};

inline constexpr const char *kUsage =
    "Usage: contextmenu [OPTION]... copy-link PATH\n"
    "       contextmenu [OPTION]... send PATH [--tab N]\n"
    "       contextmenu [OPTION]... share PATH [--tab N]\n"
    "       contextmenu [OPTION]... status\n"
    "Asks the running application to act on a file or folder of the synced folder; status only\n"
    "tells whether it is there to be asked.\n"
    "  --tab N            send: 0 send, 1 copy link; share: 0 permissions, 1 invite\n"
    "  --wait SECONDS     wait for the application to come up\n"
    "  --timeout SECONDS  how long a busy application may take to answer at all (20)\n"
    "  --                 what follows is a path, whatever it looks like\n"
    "Exit: 0 done, 2 wrong usage, 3 no such item, 4 outside the synced folder, 5 no id,\n"
    "6 application not running, 7 operation not offered, 8 application went away, 9 failed "
    "there.\n";

std::variant<Request, Failure> parseRequest(const std::vector<std::string> &arguments);

}  // namespace devkit
