# The components of the product: folders that each know only those before it.

# add_component(NAME SOURCES...): the library of the folder that calls it.
function(add_component name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC platform::cocoa)
  use_precompiled_header(precompiled_cocoa ${name})
endfunction()

# link_components(TARGET COMPONENTS...): the only way to link to a component. All of its objects are
# linked: classes that only interface files name, and categories, are otherwise left out.
function(link_components target)
  foreach(component IN LISTS ARGN)
    target_link_libraries(${target} PUBLIC $<LINK_LIBRARY:WHOLE_ARCHIVE,${component}>)
  endforeach()
endfunction()
