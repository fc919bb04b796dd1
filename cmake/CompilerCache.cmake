# Where ccache is installed, what was compiled before is not compiled again, by content.
find_program(CCACHE ccache)
mark_as_advanced(CCACHE)
if(CCACHE)
  # By the content of a precompiled header, not by its time.
  set(ccache_command ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
  foreach(language C CXX OBJCXX)
    if(NOT DEFINED CMAKE_${language}_COMPILER_LAUNCHER)
      set(CMAKE_${language}_COMPILER_LAUNCHER ${ccache_command})
    endif()
  endforeach()
endif()
