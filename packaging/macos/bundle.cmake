# What the application's bundle has on the Mac only, and the archive of the unsigned bundle.
# packaging/macos/sign makes the one for users.
encode_string_tables(usage_texts ${CMAKE_CURRENT_LIST_DIR})
add_string_tables(ContextMenuApp usage_texts)

install(TARGETS ContextMenuApp BUNDLE DESTINATION .)
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR Veldane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
include(CPack)
