# What the application's bundle has on the Mac only, and the archive to hand on: it holds the bundle
# as the build leaves it, not signed. packaging/macos/sign makes the one for users.
file(GLOB usage_texts CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.lproj/InfoPlist.strings)
foreach(table IN LISTS usage_texts)
  file(RELATIVE_PATH name ${CMAKE_CURRENT_LIST_DIR} ${table})
  cmake_path(GET name PARENT_PATH folder)
  target_sources(ContextMenuApp PRIVATE ${table})
  set_source_files_properties(${table} TARGET_DIRECTORY ContextMenuApp
      PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${folder})
endforeach()

install(TARGETS ContextMenuApp BUNDLE DESTINATION .)
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR Veldane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
include(CPack)
