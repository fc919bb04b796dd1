#include "tests/support/desktop/SessionBus.h"

#include <sys/stat.h>

#include <fstream>
#include <stdexcept>

namespace {

/// No service of this machine, as the desktop's real portal, is started for a request.
std::string configuration(const std::string &address) {
  return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
         " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
         "<busconfig><type>session</type><listen>" +
         address +
         "</listen><auth>EXTERNAL</auth>\n"
         "<policy context='default'><allow send_destination='*' eavesdrop='true'/>\n"
         "<allow eavesdrop='true'/><allow own='*'/></policy></busconfig>\n";
}

std::string newPipe() {
  std::string path = newTemporaryFolder() + "/commands";
  if (mkfifo(path.c_str(), 0600) != 0) throw std::runtime_error("no pipe " + path);
  return path;
}

}  // namespace

SessionBus::SessionBus() {
  const std::string folder = newTemporaryFolder();
  address_ = "unix:path=" + folder + "/bus";
  std::ofstream(folder + "/bus.conf") << configuration(address_);
  process_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"/usr/bin/dbus-daemon", "--nofork", "--print-address",
                               "--config-file=" + folder + "/bus.conf"});
  const auto says = [this] {
    return process_->countInOutput(address_) > 0 || process_->hasEnded();
  };
  if (!waitFor(says) || process_->hasEnded()) {
    throw std::runtime_error("no bus: " + process_->output());
  }
}

ScriptedPortal::ScriptedPortal(const SessionBus &bus)
    : commands_(newPipe()),
      process_({SCRIPTED_PORTAL, commands_}, {{"DBUS_SESSION_BUS_ADDRESS", bus.address()}}) {}

void ScriptedPortal::tell(const std::string &command) {
  std::ofstream(commands_) << command << std::endl;
  ++told_;
  if (!waitFor([this] { return process_.countInOutput("done") == told_; })) {
    throw std::runtime_error("the portal does not obey: " + process_.output());
  }
}
