# The real frameworks. 10.6 is the oldest system that the application runs on. Link to platform::cocoa,
# or, where nothing is drawn, to platform::foundation.
foreach(part foundation cocoa)
  add_library(platform_${part} INTERFACE)
  add_library(platform::${part} ALIAS platform_${part})
endforeach()
target_compile_options(platform_foundation INTERFACE -fno-objc-arc)
target_link_libraries(platform_foundation INTERFACE project::options "-framework Foundation")
target_link_libraries(platform_cocoa INTERFACE platform::foundation "-framework AppKit")
