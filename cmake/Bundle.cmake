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

# add_bundle_resource(TARGET FILE NAME): copies FILE into the bundle's resources as NAME, which may
# hold a folder ("en.lproj/Localizable.strings").
function(add_bundle_resource target file name)
  if(APPLE)
    cmake_path(GET name PARENT_PATH folder)
    target_sources(${target} PRIVATE ${file})
    set_source_files_properties(${file} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${folder})
    return()
  endif()
  get_property(bundle TARGET ${target} PROPERTY BUNDLE_FOLDER)
  set(copy ${bundle}/Resources/${name})
  add_custom_command(OUTPUT ${copy} DEPENDS ${file}
      COMMAND ${CMAKE_COMMAND} -E copy ${file} ${copy})
  string(MAKE_C_IDENTIFIER "${target}_${name}" id)
  add_custom_target(${id} DEPENDS ${copy})
  add_dependencies(${target} ${id})
endfunction()

# add_application_resources(TARGET): everything that the application loads at run time.
function(add_application_resources target)
  set(resources ${PROJECT_SOURCE_DIR}/resources)
  foreach(interface MainMenu MainWindow ShareFolder)
    add_bundle_resource(${target} ${resources}/${interface}.xib ${interface}.xib)
  endforeach()
  file(GLOB tables CONFIGURE_DEPENDS ${resources}/*.lproj/*.strings)
  foreach(table IN LISTS tables)
    file(RELATIVE_PATH name ${resources} ${table})
    add_bundle_resource(${target} ${table} ${name})
  endforeach()
endfunction()
