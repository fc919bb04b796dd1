# Tells CTest of a program's tests by suites, because starting a program with its desktop takes longer
# than most tests do.
#
# discover_test_suites(TARGET TIMEOUT [SIZE SIZE] [SECONDS SECONDS] [PREFIX PREFIX] [ALONE SUITE...]
# [WAITS SUITE SECONDS...]):
# after the program has been built it is asked for its tests, with and without CHECK_THOROUGHLY; CTest takes those of
# the check that it runs in. Suites become a test of CTest together as far as these are at most SIZE
# tests (20), longer ones by themselves in parts of so many; with a SIZE of 1, and of the suites after
# ALONE, each test becomes one by itself. A test whose parameter says that it "waits N s" counts as
# N tests more. TIMEOUT: seconds that one of these may take. SECONDS: how many a test takes, about (1);
# CTest begins with what takes longest, to which the seconds after WAITS are added: those that the
# tests of a suite wait altogether. PREFIX begins their names.
set(list_test_suites ${CMAKE_CURRENT_LIST_DIR}/ListTestSuites.cmake)

# test_command(RESULT TARGET): the command that runs the tests of a program, in its private session:
# otherwise it would load all its libraries only to start itself over in one
# (tests/support/PrivateSession.h). The target's property PRIVATE_DESKTOP is what starts that.
function(test_command result target)
  get_property(desktop TARGET ${target} PROPERTY PRIVATE_DESKTOP)
  set(${result} ${desktop} $<TARGET_FILE:${target}> PARENT_SCOPE)
endfunction()

function(discover_test_suites target timeout)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "PREFIX;SECONDS;SIZE" "ALONE;WAITS")
  if(NOT arg_SIZE)
    set(arg_SIZE 20)
  endif()
  if(NOT arg_SECONDS)
    set(arg_SECONDS 1)
  endif()
  list(JOIN arg_ALONE "|" alone)
  list(JOIN arg_WAITS " " waits)
  test_command(command ${target})
  list(JOIN command "|" command)
  set(tests ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
  set(thorough ${CMAKE_CURRENT_BINARY_DIR}/${target}_thorough_suites.cmake)
  set(list ${CMAKE_COMMAND} -D program=$<TARGET_FILE:${target}> -D timeout=${timeout}
      -D size=${arg_SIZE} -D seconds=${arg_SECONDS} -D prefix=${arg_PREFIX} "-Dalone=${alone}" "-Dwaits=${waits}"
      "-Dcommand=${command}")
  add_custom_command(TARGET ${target} POST_BUILD BYPRODUCTS ${tests} ${thorough}
      COMMAND ${list} -D tests=${tests} -D thorough=FALSE -P ${list_test_suites}
      COMMAND ${list} -D tests=${thorough} -D thorough=TRUE -P ${list_test_suites} VERBATIM)
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${list_test_suites})
  set(include ${CMAKE_CURRENT_BINARY_DIR}/${target}_include.cmake)
  file(WRITE ${include}
      "if(NOT EXISTS \"${tests}\" OR NOT EXISTS \"${thorough}\")\n"
      "  add_test(${target}_NOT_BUILT ${target}_NOT_BUILT)\n"
      "elseif(DEFINED ENV{CHECK_THOROUGHLY})\n  include(\"${thorough}\")\n"
      "else()\n  include(\"${tests}\")\nendif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include})
endfunction()
