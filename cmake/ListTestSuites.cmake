# Asks a program for its tests and writes what CTest is to be told of them; see TestSuites.cmake.
execute_process(COMMAND ${program} --gtest_list_tests OUTPUT_VARIABLE listed TIMEOUT 60
    COMMAND_ERROR_IS_FATAL ANY)

set(written "")

string(REPLACE "|" "]==] [==[" command "[==[${command}]==]")

# The tests in "part" are one to CTest, which begins with the dearest.
macro(write_part name cost)
  list(JOIN part ":" filter)
  string(APPEND written
      "add_test([==[${name}]==] ${command} [==[--gtest_filter=${filter}]==])\n"
      "set_tests_properties([==[${name}]==] PROPERTIES TIMEOUT ${timeout} COST ${cost})\n")
endmacro()

# Whole suites that are waiting to be one test of CTest, and how many tests they have.
set(waiting "")
set(waiting_count 0)

macro(write_waiting)
  if(waiting)
    list(JOIN waiting "+" name)
    list(TRANSFORM waiting APPEND ".*" OUTPUT_VARIABLE part)
    write_part(${name} ${waiting_count})
  endif()
  set(waiting "")
  set(waiting_count 0)
endmacro()

# The tests in "names": with other suites in one test of CTest as long as these are at most "size"
# tests, else in parts of at most so many.
macro(write_suite)
  list(LENGTH names count)
  set(at_most ${size})
  if(alone AND suite MATCHES "^(.*/)?(${alone})$")
    set(at_most 1)
  endif()
  math(EXPR together "${waiting_count} + ${count}")
  if(together GREATER size)
    write_waiting()
  endif()
  if(count GREATER 0 AND NOT count GREATER at_most AND NOT at_most EQUAL 1)
    list(APPEND waiting ${suite})
    math(EXPR waiting_count "${waiting_count} + ${count}")
    set(names "")
  endif()
  list(LENGTH names count)
  set(part "")
  set(number 0)
  foreach(name IN LISTS names)
    list(APPEND part ${suite}.${name})
    list(LENGTH part length)
    math(EXPR left "${count} - ${number} - ${length}")
    if(length EQUAL at_most OR left EQUAL 0)
      if(at_most EQUAL 1)
        write_part(${part} ${size})  # by itself because it takes long
      else()
        math(EXPR first "${number} + 1")
        math(EXPR last "${number} + ${length}")
        write_part(${suite}.${first}-${last} ${length})
      endif()
      math(EXPR number "${number} + ${length}")
      set(part "")
    endif()
  endforeach()
  set(names "")
endmacro()

set(suite "")
set(names "")
string(REPLACE "\n" ";" lines "${listed}")
foreach(line IN LISTS lines)
  string(REGEX REPLACE " +#.*" "" line "${line}")  # the value of a parameter
  if(line MATCHES "^  (.+)$")
    list(APPEND names ${CMAKE_MATCH_1})
  elseif(line MATCHES "^([A-Za-z0-9_/]+)\\.$")
    set(next ${CMAKE_MATCH_1})
    write_suite()
    set(suite ${next})
  endif()
endforeach()
write_suite()
write_waiting()
file(WRITE ${tests} "${written}")
