# The Debian packages: cmake --build build --target package
#
# The development kit is a package of its own. Its agent registers the name of the service's agent,
# and its libraries replace the service's, so it must not be installed beside the service.
#
# The extension for Thunar is one, too: Thunar ends at its start where there is any extension and its
# Python support lacks the description of the interface, which Debian's package of it does not depend
# on. This one does.
set(control ${CMAKE_CURRENT_BINARY_DIR}/debian)
foreach(file conffiles prerm thunar/prerm)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/${file}.in ${control}/${file} @ONLY)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brisvale-context-menu)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR Veldane)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_SET_DESTDIR ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL application thunar development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Veldane <brisvale@veldane.com>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/devkit)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_APPLICATION_PACKAGE_NAME brisvale-context-menu)
set(CPACK_DEBIAN_APPLICATION_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_APPLICATION_DESCRIPTION
"share synced files from the file manager
Adds entries to the context menu of the file manager for what lies in the
folder that the service Brisvale keeps in sync: copy a link to a file or
folder, send such a link by mail, share a folder with colleagues.

It works with Nautilus, Nemo and Caja through their Python extensions, and
with Dolphin, PCManFM and GWorkspace. For Thunar there is the package
brisvale-context-menu-thunar.

It needs the service's sync engine libraries, or the substitutes in the
package brisvale-context-menu-devkit.")
# The platform's packages follow from what the programs are linked with, except for Pango, which
# is loaded when it is needed.
set(CPACK_DEBIAN_APPLICATION_PACKAGE_DEPENDS
    "fonts-dejavu-core, libpangocairo-1.0-0, python3:any, brisvale-sync-engine")
set(CPACK_DEBIAN_APPLICATION_PACKAGE_RECOMMENDS
    "fonts-inter, fonts-noto-cjk | fonts-wqy-microhei | fonts-droid-fallback, fonts-noto-color-emoji, fonts-noto-core, libnotify-bin | zenity | kdialog | x11-utils, python3-gi")
set(CPACK_DEBIAN_APPLICATION_PACKAGE_SUGGESTS
    "brisvale-context-menu-thunar, gworkspace.app, libfm-modules, nemo-python, python3-caja, python3-nautilus")
set(CPACK_DEBIAN_APPLICATION_PACKAGE_CONTROL_EXTRA
    "${control}/conffiles;${control}/prerm")

set(CPACK_DEBIAN_THUNAR_PACKAGE_NAME brisvale-context-menu-thunar)
set(CPACK_DEBIAN_THUNAR_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_THUNAR_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_THUNAR_DESCRIPTION
"share synced files from the file manager Thunar
Adds the entries of the package brisvale-context-menu to the context menu of
Thunar.")
set(CPACK_DEBIAN_THUNAR_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_THUNAR_PACKAGE_DEPENDS
    "brisvale-context-menu (>= ${PROJECT_VERSION}), thunarx-python, gir1.2-thunarx-3.0")
set(CPACK_DEBIAN_THUNAR_PACKAGE_CONTROL_EXTRA "${control}/thunar/prerm")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME brisvale-context-menu-devkit)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION devel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"development agent and sync engine for Brisvale's context menu
Stands in for the service Brisvale where its context menu is developed or
tried: an agent with a sample account, and substitutes for the service's
sync engine libraries. Nothing leaves the machine; mails are written to a
folder.

It does not belong on a machine on which the service itself is installed.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_PROVIDES "brisvale-sync-engine")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_CONFLICTS "brisvale-sync-engine")
include(CPack)
