# For 64-bit and 32-bit Intel processors, from macOS 10.6 on. No Xcode compiles this version of the
# language for 32-bit processors, and 10.6 has no C++ library that could run it. So this takes three
# things, each named by a variable of CMake or of the environment (docs/macos.md tells where they
# come from):
#
#   MACOS_XCODE        Xcode 9.4.1: the SDK of 10.13, which is the last with 32-bit libraries, and the
#                      linker and ibtool that go with it
#   MACOS_LLVM         LLVM 14: its clang is the compiler
#   MACOS_CXX_RUNTIME  the C++ library of that LLVM for 10.6, as static archives:
#                      packaging/macos/build-cxx-runtime makes it
set(CMAKE_OSX_ARCHITECTURES "x86_64;i386" CACHE STRING "Processors to build for")
set(CMAKE_OSX_DEPLOYMENT_TARGET 10.6 CACHE STRING "Oldest system to run on")

set(inputs MACOS_XCODE MACOS_LLVM MACOS_CXX_RUNTIME)
foreach(input IN LISTS inputs)
  if(NOT ${input})
    set(${input} "$ENV{${input}}")
  endif()
endforeach()
# This file is read again for every compilation that only tries something.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ${inputs})

# require(INPUT FILE WHAT): FILE below the folder that INPUT names.
function(require input file what)
  if(NOT ${input})
    message(FATAL_ERROR "${input} is not set: the folder of ${what}. docs/macos.md explains it.")
  elseif(NOT EXISTS ${${input}}/${file})
    message(FATAL_ERROR "${input} is ${${input}}, which has no ${file}: it should be the folder of"
        " ${what}. docs/macos.md explains it.")
  endif()
endfunction()

set(sdk Contents/Developer/Platforms/MacOSX.platform/Developer/SDKs/MacOSX10.13.sdk)
set(tools Contents/Developer/Toolchains/XcodeDefault.xctoolchain/usr/bin)
set(libraries lib/libc++.a lib/libc++abi.a)
require(MACOS_XCODE ${sdk}/usr/lib/libSystem.tbd "Xcode 9.4.1, /Applications/Xcode.app for one")
require(MACOS_XCODE ${sdk}/usr/lib/crt1.10.6.o "Xcode 9.4.1, /Applications/Xcode.app for one")
require(MACOS_XCODE ${tools}/ld "Xcode 9.4.1, /Applications/Xcode.app for one")
require(MACOS_LLVM bin/clang++ "LLVM 14")
foreach(file include/c++/v1/version ${libraries})
  require(MACOS_CXX_RUNTIME ${file} "the C++ library for 10.6 (packaging/macos/build-cxx-runtime)")
endforeach()
set(sdk ${MACOS_XCODE}/${sdk})
set(tools ${MACOS_XCODE}/${tools})
list(TRANSFORM libraries PREPEND ${MACOS_CXX_RUNTIME}/)

file(STRINGS ${sdk}/usr/lib/libSystem.tbd archs REGEX "archs:.*i386" LIMIT_COUNT 1)
if(NOT archs)
  message(FATAL_ERROR "${sdk} has no libraries for 32-bit processors: Xcode 9.4.1 is the last that"
      " has.")
endif()
foreach(library IN LISTS libraries)
  execute_process(COMMAND ${tools}/lipo ${library} -verify_arch ${CMAKE_OSX_ARCHITECTURES}
      RESULT_VARIABLE failed OUTPUT_QUIET ERROR_QUIET)
  if(failed)
    list(JOIN CMAKE_OSX_ARCHITECTURES " and " architectures)
    message(FATAL_ERROR "${library} is not for ${architectures}: make it with"
        " packaging/macos/build-cxx-runtime.")
  endif()
endforeach()

set(CMAKE_OSX_SYSROOT ${sdk})
set(CMAKE_C_COMPILER ${MACOS_LLVM}/bin/clang)
set(CMAKE_CXX_COMPILER ${MACOS_LLVM}/bin/clang++)
set(CMAKE_OBJCXX_COMPILER ${MACOS_LLVM}/bin/clang++)
# CMake would look for these beside the compiler first. LLVM's archives are not for that linker.
set(CMAKE_AR ${tools}/ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${tools}/ranlib CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL ${tools}/install_name_tool CACHE FILEPATH "")

# The compiler starts that Xcode's linker and lipo, and gives the linker only options that it knows.
set(toolchain "-B${tools} -mlinker-version=351.8")
# The headers are those of the static library, not those of the compiler or of the SDK.
set(cxx_headers "-stdlib=libc++ -nostdinc++ -isystem ${MACOS_CXX_RUNTIME}/include/c++/v1")
set(CMAKE_C_FLAGS_INIT "${toolchain}")
set(CMAKE_CXX_FLAGS_INIT "${toolchain} ${cxx_headers}")
set(CMAKE_OBJCXX_FLAGS_INIT "${toolchain} ${cxx_headers}")
# The C++ library comes from the archives alone. A library of the system would not be on 10.6. CMake
# gives the options for headers to the linker, too, about which there is no need to be warned.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-nostdlib++ -Wno-unused-command-line-argument")
list(JOIN libraries " " libraries)
set(CMAKE_CXX_STANDARD_LIBRARIES "${libraries}")
set(CMAKE_OBJCXX_STANDARD_LIBRARIES "${libraries}")
