// Linked into every program of a build with a sanitizer, so that its options hold however the
// program is started: by ctest, by hand, by another program, or by the build itself, which asks the
// tests for their names. The variables ASAN_OPTIONS, LSAN_OPTIONS, UBSAN_OPTIONS and TSAN_OPTIONS
// still win.

extern "C" {

const char *__asan_default_options() {
  // Slow unwinding, because the leaks' suppressions must recognise callers in libraries that keep
  // no frame pointers.
  return "halt_on_error=1:fast_unwind_on_malloc=0";
}

const char *__lsan_default_options() {
  return "print_suppressions=0:suppressions=" SANITIZER_SUPPRESSIONS "/lsan.supp";
}

const char *__ubsan_default_options() {
  return "halt_on_error=1:print_stacktrace=1";
}

const char *__tsan_default_options() {
  return "halt_on_error=1:second_deadlock_stack=1:suppressions=" SANITIZER_SUPPRESSIONS
         "/tsan.supp";
}

}  // extern "C"
