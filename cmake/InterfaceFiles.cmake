# The interface files of a bundle. The Mac loads compiled ones only, GNUstep the sources.

if(APPLE)
  # ibtool comes with Xcode, not with its command line tools alone.
  set(ibtool_is_missing TRUE)
  if(XCRUN)
    execute_process(COMMAND ${XCODE_TOOL} --find ibtool RESULT_VARIABLE ibtool_is_missing
        OUTPUT_QUIET ERROR_QUIET)
  endif()
  if(ibtool_is_missing)
    message(FATAL_ERROR "ibtool is missing, which compiles the interface files. It comes with Xcode,"
        " not with Xcode's command line tools: install Xcode and select it with"
        " \"sudo xcode-select --switch /Applications/Xcode.app\".")
  endif()
  # The deployment version decides what the compiled file may contain.
  set(COMPILE_INTERFACE_FILE ${XCODE_TOOL} ibtool --errors --warnings --notices
      --output-format human-readable-text --target-device mac
      --minimum-deployment-target ${CMAKE_OSX_DEPLOYMENT_TARGET} --compile)
endif()

# add_interface_file(TARGET FILE): puts the interface file into the bundle of TARGET.
function(add_interface_file target file)
  cmake_path(GET file STEM name)
  if(NOT APPLE)
    add_bundle_resource(${target} ${file} ${name}.xib)
    return()
  endif()
  set(compiled ${PROJECT_BINARY_DIR}/interface-files/${name}.nib)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/interface-files)
  add_custom_command(OUTPUT ${compiled} DEPENDS ${file}
      COMMAND ${COMPILE_INTERFACE_FILE} ${compiled} ${file} VERBATIM)
  add_bundle_resource(${target} ${compiled} ${name}.nib)
endfunction()
