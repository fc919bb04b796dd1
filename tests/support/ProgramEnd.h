#pragma once

/// Ends a test program without the destructors of the platform's libraries, which race their own
/// threads. Ends it with `result`, which is 0 for success; a program that would have succeeded
/// fails with 1 if it has leaked memory, where a sanitizer checks that (tools/sanitizers). On the
/// main thread, when the last autorelease pool is drained.
[[noreturn]] void endProgram(int result);
