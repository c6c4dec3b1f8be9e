# add_delayed_library(NAME FUNCTION...): a target delayed_NAME to link with instead of NAME, whose
# library the system loads at the first call of one of these functions.
function(add_delayed_library name)
  set(definitions ${CMAKE_CURRENT_BINARY_DIR}/delayed_${name}.def)
  set(library ${CMAKE_CURRENT_BINARY_DIR}/libdelayed_${name}.a)
  list(JOIN ARGN "\n" functions)
  file(CONFIGURE OUTPUT ${definitions} CONTENT "LIBRARY ${name}.dll\nEXPORTS\n${functions}\n")
  find_program(TALLYRUN_DLLTOOL x86_64-w64-mingw32-dlltool REQUIRED)
  add_custom_command(
    OUTPUT ${library}
    COMMAND ${TALLYRUN_DLLTOOL} --input-def ${definitions} --output-delaylib ${library}
    DEPENDS ${definitions} VERBATIM)
  add_custom_target(make_delayed_${name} DEPENDS ${library})
  add_library(delayed_${name} INTERFACE)
  add_dependencies(delayed_${name} make_delayed_${name})
  target_link_libraries(delayed_${name} INTERFACE ${library})
endfunction()
