# GNUstep from the distribution, asked for its own flags. Link to platform::gnustep for the bare
# platform, to platform::cocoa for the platform with the gaps filled (platform/gnustep/), and to
# platform::gnustep_base and platform::foundation for the same without AppKit.
if(NOT CMAKE_OBJCXX_COMPILER_ID MATCHES "Clang")
  message(FATAL_ERROR "Objective-C++ needs clang here (use a preset of CMakePresets.json)")
endif()
find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)

function(gnustep_flags what result)
  execute_process(COMMAND ${GNUSTEP_CONFIG} ${what} OUTPUT_VARIABLE flags
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  set(${result} ${flags} PARENT_SCOPE)
endfunction()

gnustep_flags(--objc-flags gnustep_compile)
gnustep_flags(--gui-libs gnustep_link)
gnustep_flags(--base-libs gnustep_base_link)
if(NOT gnustep_link OR NOT gnustep_base_link)
  # Where the "make" program is missing it prints nothing and succeeds.
  message(FATAL_ERROR "${GNUSTEP_CONFIG} knows no libraries; is \"make\" installed?")
endif()
# Kept: definitions and language options. Removed: optimisation, debugging, dependency files and
# warnings, which are ours to choose, and include paths, which follow as system paths so that our
# warnings stop at our own files.
list(FILTER gnustep_compile INCLUDE REGEX "^(-D|-f|-pthread)")
list(FILTER gnustep_compile EXCLUDE REGEX "^-D(GSWARN|GSDIAGNOSE)")
foreach(link gnustep_link gnustep_base_link)
  list(FILTER ${link} EXCLUDE REGEX "^-L.*/GNUstep/Library/Libraries$")
endforeach()

# clang does not look for GCC's Objective-C runtime by itself.
execute_process(COMMAND gcc -print-search-dirs OUTPUT_VARIABLE gcc_dirs COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "install: ([^\n]*)" _ "${gcc_dirs}")
file(REAL_PATH "${CMAKE_MATCH_1}" gcc_dir)
execute_process(COMMAND ${GNUSTEP_CONFIG} --variable=GNUSTEP_SYSTEM_HEADERS
    OUTPUT_VARIABLE gnustep_headers OUTPUT_STRIP_TRAILING_WHITESPACE)

set(gnustep_compile -fobjc-runtime=gcc ${gnustep_compile}
    -isystem ${gnustep_headers} -idirafter ${gcc_dir}/include)
set(gnustep_link -L${gcc_dir} ${gnustep_link})
set(gnustep_base_link -L${gcc_dir} ${gnustep_base_link})

list(JOIN gnustep_compile " " flags)
foreach(part gnustep gnustep_base)
  add_library(platform_${part} INTERFACE)
  add_library(platform::${part} ALIAS platform_${part})
  target_compile_options(platform_${part} INTERFACE "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:${flags}>")
endforeach()
target_link_libraries(platform_gnustep INTERFACE project::options ${gnustep_link})
target_link_libraries(platform_gnustep_base INTERFACE project::options ${gnustep_base_link})

# CMake does not know this language's linker option for run-time library paths, and would silently
# leave them out.
foreach(kind EXECUTABLE SHARED_LIBRARY)
  set(CMAKE_${kind}_RUNTIME_OBJCXX_FLAG "-Wl,-rpath,")
  set(CMAKE_${kind}_RUNTIME_OBJCXX_FLAG_SEP ":")
endforeach()
add_link_options(LINKER:--enable-new-dtags)
# An eighth of the size of what the loader has to read to relocate the program, where linker and
# C library know it.
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:-z,pack-relative-relocs LINKER_PACKS_RELOCATIONS)
if(LINKER_PACKS_RELOCATIONS)
  add_link_options(LINKER:-z,pack-relative-relocs)
endif()

# leave_relocations_as_they_are(): for the programs of a folder and of those in it that are linked with
# another linker, which does not know that option.
macro(leave_relocations_as_they_are)
  get_directory_property(link_options LINK_OPTIONS)
  list(REMOVE_ITEM link_options LINKER:-z,pack-relative-relocs)
  set_directory_properties(PROPERTIES LINK_OPTIONS "${link_options}")
endmacro()
