# What every target of this project is compiled with. Link to project::options. The preset decides
# whether a warning is an error: for packages, which other compilers may build, it is none.
add_library(project_options INTERFACE)
add_library(project::options ALIAS project_options)

target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic
    # Method names with anonymous arguments are the interface of the agent and of the plug-in.
    -Wno-missing-selector-name
    # "?:" reads better than a repeated message, and both compilers of this language have it.
    -Wno-gnu-conditional-omitted-operand)
target_compile_definitions(project_options INTERFACE
    KRV_AGENT_BUNDLE_IDENTIFIER="${KRV_AGENT_BUNDLE_IDENTIFIER}")
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})

# The factor for the time-outs of tests: a hundred windows take four times as long under the thread
# sanitizer.
set(SANITIZER_SLOWDOWN 1)
if(SANITIZE STREQUAL "address")
  set(sanitizer_flags -fsanitize=address,undefined -fno-sanitize-recover=undefined
      -fno-omit-frame-pointer)
elseif(SANITIZE STREQUAL "thread")
  set(sanitizer_flags -fsanitize=thread -fno-omit-frame-pointer)
elseif(SANITIZE STREQUAL "fuzz")
  # The fuzzer's own main is for the fuzzed programs alone (tests/fuzz/CMakeLists.txt).
  set(sanitizer_flags -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
      -fno-omit-frame-pointer)
elseif(NOT SANITIZE STREQUAL "")
  message(FATAL_ERROR "SANITIZE is '${SANITIZE}'; use address, thread or fuzz")
endif()
if(sanitizer_flags)
  set(SANITIZER_SLOWDOWN 5)
  list(APPEND sanitizer_flags -O1 -gline-tables-only)  # enough for reports, and faster to build
  target_compile_options(project_options INTERFACE ${sanitizer_flags})
  target_link_options(project_options INTERFACE ${sanitizer_flags})
  # The sanitizers' run-time options, in programs only: libraries are loaded into these.
  set(sanitizers ${PROJECT_SOURCE_DIR}/tools/sanitizers)
  target_sources(project_options INTERFACE
      $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${sanitizers}/defaults.cpp>)
  target_compile_definitions(project_options INTERFACE SANITIZER_SUPPRESSIONS="${sanitizers}")
endif()

if(COVERAGE)
  # The counters lie in the file itself, so that a process that is killed leaves them there.
  target_compile_options(project_options INTERFACE -fprofile-instr-generate -fcoverage-mapping
      "SHELL:-mllvm -runtime-counter-relocation")
  target_link_options(project_options INTERFACE -fprofile-instr-generate)
endif()

# test_timeout(RESULT SECONDS): the timeout of a test that takes so long without a sanitizer.
function(test_timeout result seconds)
  math(EXPR timeout "${seconds} * ${SANITIZER_SLOWDOWN}")
  set(${result} ${timeout} PARENT_SCOPE)
endfunction()

# set_test_timeout(TEST SECONDS [PROPERTY VALUE]...): the timeout of a test, and other properties.
function(set_test_timeout test seconds)
  test_timeout(timeout ${seconds})
  set_tests_properties(${test} PROPERTIES TIMEOUT ${timeout} ${ARGN})
endfunction()
