# add_application(TARGET FOLDER INFO): places the executable of TARGET in the application bundle
# FOLDER/TARGET.app as each platform lays bundles out, with INFO as its bundle description. On the Mac
# that is a template for CMake.
function(add_application target folder info)
  if(APPLE)
    set_target_properties(${target} PROPERTIES MACOSX_BUNDLE ON MACOSX_BUNDLE_INFO_PLIST ${info}
        RUNTIME_OUTPUT_DIRECTORY ${folder})
    # Type and creator, as in the description, for whatever looks here instead.
    set(type ${PROJECT_SOURCE_DIR}/packaging/macos/PkgInfo)
    target_sources(${target} PRIVATE ${type})
    set_source_files_properties(${type} TARGET_DIRECTORY ${target}
        PROPERTIES MACOSX_PACKAGE_LOCATION .)
    # The program only says where in the build folder its debug information is. Here it is kept, for
    # crash reports; what users get says nothing of it (packaging/macos/sign).
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
        COMMAND ${XCODE_TOOL} dsymutil $<TARGET_FILE:${target}> -o ${folder}/${target}.app.dSYM)
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
    set_source_files_properties(${file} TARGET_DIRECTORY ${target}
        PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${folder})
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

# encode_string_tables(NAME FOLDER): NAME is a target that makes, of the string tables
# FOLDER/*.lproj/*.strings, those for bundles. They are written in UTF-8; what both platforms read is
# UTF-16 with a byte order mark. (What has no mark GNUstep 1.28.0 reads in the encoding of the user's
# locale, with a warning.)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(encode_string_table ${PROJECT_SOURCE_DIR}/tools/encode-string-table)
function(encode_string_tables name folder)
  set(output ${PROJECT_BINARY_DIR}/${name})
  file(GLOB tables CONFIGURE_DEPENDS RELATIVE ${folder} ${folder}/*.lproj/*.strings)
  foreach(table IN LISTS tables)
    cmake_path(GET table PARENT_PATH language)
    file(MAKE_DIRECTORY ${output}/${language})
    add_custom_command(OUTPUT ${output}/${table} DEPENDS ${folder}/${table} ${encode_string_table}
        COMMAND ${Python3_EXECUTABLE} -B ${encode_string_table} ${folder}/${table}
            ${output}/${table} VERBATIM)
  endforeach()
  list(TRANSFORM tables PREPEND ${output}/ OUTPUT_VARIABLE encoded)
  add_custom_target(${name} DEPENDS ${encoded})
  set_target_properties(${name} PROPERTIES STRING_TABLES "${tables}" STRING_TABLE_FOLDER ${output})
endfunction()

# add_string_tables(TARGET NAME): copies them into the bundle.
function(add_string_tables target name)
  get_target_property(tables ${name} STRING_TABLES)
  get_target_property(folder ${name} STRING_TABLE_FOLDER)
  foreach(table IN LISTS tables)
    add_bundle_resource(${target} ${folder}/${table} ${table} ${name})
  endforeach()
endfunction()

encode_string_tables(string_tables ${PROJECT_SOURCE_DIR}/resources)

# The application's icon, drawn from its master. Alerts ask for it by this very name.
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
    add_interface_file(${target} ${resources}/${interface}.xib)
  endforeach()
  cmake_path(GET APPLICATION_ICON FILENAME icon)
  add_bundle_resource(${target} ${APPLICATION_ICON} ${icon} application_icon)
  add_string_tables(${target} string_tables)
endfunction()
