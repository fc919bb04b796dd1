#pragma once

#include <sys/types.h>

#include <string>

namespace platform {

/// Makes this process the single instance under a name of this user, until it exits. Answers the
/// process that is the instance already; 0 when this one is it now, or when that is unknown, for
/// example because another user has taken the name: no other user may keep this program from
/// starting. Uses no file, because files can be removed while the process runs.
///
/// name: unique among all programs and users of this machine, as a path in this user's folder is;
/// truncated to the length of a socket address. To be called once in a process.
pid_t becomeSingleInstance(const std::string &name);

}  // namespace platform
