# add_application(TARGET FOLDER INFO): places the executable of TARGET in the application bundle
# FOLDER/TARGET.app as each platform lays bundles out, with INFO as its bundle description.
function(add_application target folder info)
  if(APPLE)
    set_target_properties(${target} PROPERTIES MACOSX_BUNDLE ON MACOSX_BUNDLE_INFO_PLIST ${info}
        RUNTIME_OUTPUT_DIRECTORY ${folder})
    return()
  endif()
  set(bundle ${folder}/${target}.app)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${bundle})
  set_property(TARGET ${target} PROPERTY BUNDLE_FOLDER ${bundle})
  add_bundle_resource(${target} ${info} Info-gnustep.plist)
endfunction()

# add_bundle_resource(TARGET FILE NAME [MAKER]): copies FILE into the bundle's resources as NAME,
# which may hold a folder ("en.lproj/Localizable.strings"). MAKER is the target that makes FILE, where
# it is made by the build.
function(add_bundle_resource target file name)
  if(APPLE)
    cmake_path(GET name PARENT_PATH folder)
    target_sources(${target} PRIVATE ${file})
    set_source_files_properties(${file} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${folder})
    if(ARGN)
      add_dependencies(${target} ${ARGN})
    endif()
    return()
  endif()
  get_property(bundle TARGET ${target} PROPERTY BUNDLE_FOLDER)
  set(copy ${bundle}/Resources/${name})
  add_custom_command(OUTPUT ${copy} DEPENDS ${file}
      COMMAND ${CMAKE_COMMAND} -E copy ${file} ${copy})
  string(MAKE_C_IDENTIFIER "${target}_${name}" id)
  add_custom_target(${id} DEPENDS ${copy})
  add_dependencies(${target} ${id})
  if(ARGN)
    add_dependencies(${id} ${ARGN})
  endif()
endfunction()

# The application's icon, drawn from its master. Alerts ask for it by this very name.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(APPLICATION_ICON ${PROJECT_BINARY_DIR}/resources/025_Ostrel_Combo_Mac.icns)
set(icon_master ${PROJECT_SOURCE_DIR}/resources/icon/icon.svg)
set(make_icon ${PROJECT_SOURCE_DIR}/tools/make-icon)
add_custom_command(OUTPUT ${APPLICATION_ICON} DEPENDS ${icon_master} ${make_icon}
    COMMAND ${Python3_EXECUTABLE} -B ${make_icon} ${icon_master} ${APPLICATION_ICON})
add_custom_target(application_icon DEPENDS ${APPLICATION_ICON})

# add_application_resources(TARGET): everything that the application loads at run time.
function(add_application_resources target)
  set(resources ${PROJECT_SOURCE_DIR}/resources)
  foreach(interface MainMenu MainWindow ShareFolder)
    add_bundle_resource(${target} ${resources}/${interface}.xib ${interface}.xib)
  endforeach()
  cmake_path(GET APPLICATION_ICON FILENAME icon)
  add_bundle_resource(${target} ${APPLICATION_ICON} ${icon} application_icon)
  file(GLOB tables CONFIGURE_DEPENDS ${resources}/*.lproj/*.strings)
  foreach(table IN LISTS tables)
    file(RELATIVE_PATH name ${resources} ${table})
    add_bundle_resource(${target} ${table} ${name})
  endforeach()
endfunction()
