# The real frameworks. Link to platform::cocoa, or, where nothing is drawn, to platform::foundation.

# Neither has a default: CMake's own are the processor and the system of the Mac that builds.
foreach(setting CMAKE_OSX_ARCHITECTURES CMAKE_OSX_DEPLOYMENT_TARGET)
  if(NOT ${setting})
    message(FATAL_ERROR "${setting} is not set: configure with \"cmake --preset macos-current\", or"
        " \"cmake --preset macos\" for old systems.")
  endif()
endforeach()

foreach(part foundation cocoa)
  add_library(platform_${part} INTERFACE)
  add_library(platform::${part} ALIAS platform_${part})
endforeach()
target_compile_options(platform_foundation INTERFACE
    -fno-objc-arc
    # The interface of 10.6 is used on purpose, also where later systems have another one for the
    # same. They still have the old one; only their headers call it deprecated.
    -Wno-deprecated-declarations)
# What only a system after the deployment version has is an error of the linker: otherwise it would
# be a null pointer on the older ones.
target_link_options(platform_foundation INTERFACE LINKER:-no_weak_imports)
target_link_libraries(platform_foundation INTERFACE project::options "-framework Foundation")
target_link_libraries(platform_cocoa INTERFACE platform::foundation "-framework AppKit")
