# The real frameworks. 10.6 is the oldest system that the application runs on.
add_library(platform_cocoa INTERFACE)
add_library(platform::cocoa ALIAS platform_cocoa)
target_compile_options(platform_cocoa INTERFACE -fno-objc-arc)
target_link_libraries(platform_cocoa INTERFACE project::options
    "-framework AppKit" "-framework Foundation")
