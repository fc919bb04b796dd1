# Read by ctest itself before it runs tests (not while configuring), so that the sanitizers are set
# up in the same way whoever starts ctest. Programs built without a sanitizer take no notice. What
# the caller has set follows and therefore wins.
set(suppressions ${CMAKE_CURRENT_LIST_DIR}/../tools/sanitizers)

# Slow unwinding, because suppressions must recognise callers in libraries without frame pointers.
set(ENV{ASAN_OPTIONS} "fast_unwind_on_malloc=0:halt_on_error=1:$ENV{ASAN_OPTIONS}")
set(ENV{LSAN_OPTIONS} "suppressions=${suppressions}/lsan.supp:print_suppressions=0:$ENV{LSAN_OPTIONS}")
set(ENV{UBSAN_OPTIONS} "print_stacktrace=1:halt_on_error=1:$ENV{UBSAN_OPTIONS}")
set(ENV{TSAN_OPTIONS}
    "suppressions=${suppressions}/tsan.supp:halt_on_error=1:second_deadlock_stack=1:$ENV{TSAN_OPTIONS}")
