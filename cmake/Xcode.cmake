# ${XCODE_TOOL} NAME runs a tool of Xcode: of the selected one, or of that which MACOS_XCODE names
# (toolchains/).
find_program(XCRUN xcrun)
set(XCODE_TOOL ${XCRUN})
if(MACOS_XCODE)
  set(XCODE_TOOL ${CMAKE_COMMAND} -E env DEVELOPER_DIR=${MACOS_XCODE}/Contents/Developer ${XCRUN})
endif()
