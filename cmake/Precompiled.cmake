# Headers that are read once for all sources that are compiled alike, because reading the platform's
# and the test framework's takes longer than compiling most sources.
option(PRECOMPILE_HEADERS "Read the platform's headers once for many sources" ON)

# add_precompiled_header(NAME HEADER LIBRARIES...): a precompiled header for targets that link to
# these libraries.
function(add_precompiled_header name header)
  set(folder ${PROJECT_SOURCE_DIR}/cmake/precompiled)
  add_library(${name} OBJECT ${folder}/anchor.cpp ${folder}/anchor.mm)
  target_link_libraries(${name} PRIVATE ${ARGN})
  if(PRECOMPILE_HEADERS)
    target_precompile_headers(${name} PRIVATE ${folder}/${header})
  endif()
endfunction()

# compile_without_precompiled_header(SOURCES...): for sources that pass a protocol as an object,
# whose class clang 14 mistakes for another one when it is declared in a precompiled header.
function(compile_without_precompiled_header)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# use_precompiled_header(NAME TARGETS...): where there is such a header.
function(use_precompiled_header name)
  if(PRECOMPILE_HEADERS AND TARGET ${name})
    foreach(target IN LISTS ARGN)
      target_precompile_headers(${target} REUSE_FROM ${name})
    endforeach()
  endif()
endfunction()
