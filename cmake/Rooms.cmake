# The rooms of the product: folders that each know only those before it.

# add_room(NAME SOURCES...): the library of the folder that calls it.
function(add_room name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC platform::cocoa)
  use_precompiled_header(precompiled_cocoa ${name})
endfunction()

# link_rooms(TARGET ROOMS...): the only way to link to a room. All of its objects are taken: classes
# that only interface files name, and categories, are otherwise left out by the linker.
function(link_rooms target)
  foreach(room IN LISTS ARGN)
    target_link_libraries(${target} PUBLIC $<LINK_LIBRARY:WHOLE_ARCHIVE,${room}>)
  endforeach()
endfunction()
