#pragma once

#include <sys/types.h>

#include <string>

namespace platform {

/// Makes this process the one that runs under a name of this user's, until it ends. Answers the
/// process that is it already; 0 when this one is it now, or when that cannot be told, because
/// another user has taken the name, for one: nobody else may keep this user's programs from
/// starting. Not a file: files can be removed while the process runs.
///
/// name: unique among all programs and users of this machine, for which a path of this user's will
/// do; cut to what has room in a socket's address. To be called once in a process.
pid_t becomeSingleInstance(const std::string &name);

}  // namespace platform
