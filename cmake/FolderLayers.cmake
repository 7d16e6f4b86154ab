# Folders built in layers: each folder of a source tree names the folders it builds on, and may include
# headers of those folders and of its own only. The rules are read here once, for the libraries (one per
# folder, linked as the rules say) and for a check that runs before anything of the tree is compiled, so
# that an include against the rules, or rules that go round in a circle, fail the build with the file and
# line to mend.
#
#   folder_layers(<name> ROOT <folder of the tree>
#                 LAYERS "<folder>[: <folder it builds on> ...]" ...
#                 [FORBID <regular expression> <why> ...])
#
# FORBID refuses every #include <...> whose path matches the expression, with the reason given. The
# function sets <name>_FOLDERS (in the order given) and <name>_USES_<folder> in the caller's scope, and makes
# the target <name>_layer_check, on which every library of the tree should depend.

set(FOLDER_LAYERS_CHECK_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/CheckFolderLayers.cmake)

function(folder_layers name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "ROOT" "LAYERS;FORBID")
  if(NOT arg_ROOT OR NOT arg_LAYERS)
    message(FATAL_ERROR "folder_layers(${name}) needs ROOT and LAYERS")
  endif()
  list(LENGTH arg_FORBID forbid_length)
  math(EXPR forbid_odd "${forbid_length} % 2")
  if(forbid_odd)
    message(FATAL_ERROR "folder_layers(${name}): FORBID takes pairs of an expression and a reason")
  endif()

  set(folders "")
  set(rules "set(LAYER_ROOT \"${arg_ROOT}\")\n")
  foreach(layer IN LISTS arg_LAYERS)
    if(NOT layer MATCHES "^[ ]*([A-Za-z0-9_]+)[ ]*(:(.*))?$")
      message(FATAL_ERROR "folder_layers(${name}): \"${layer}\" is not \"<folder>: <folder> ...\"")
    endif()
    set(folder ${CMAKE_MATCH_1})
    string(STRIP "${CMAKE_MATCH_3}" uses)
    if(uses)
      string(REGEX REPLACE "[ ]+" ";" uses "${uses}")
    endif()
    list(APPEND folders ${folder})
    set(${name}_USES_${folder} ${uses} PARENT_SCOPE)
    string(APPEND rules "set(LAYER_USES_${folder} \"${uses}\")\n")
  endforeach()
  string(APPEND rules "set(LAYER_FOLDERS \"${folders}\")\n")
  set(index 0)
  while(index LESS forbid_length)
    list(GET arg_FORBID ${index} pattern)
    math(EXPR reason_index "${index} + 1")
    list(GET arg_FORBID ${reason_index} reason)
    string(APPEND rules "list(APPEND LAYER_FORBIDDEN \"${pattern}\")\n")
    string(APPEND rules "list(APPEND LAYER_FORBIDDEN_WHY \"${reason}\")\n")
    math(EXPR index "${index} + 2")
  endwhile()
  set(${name}_FOLDERS ${folders} PARENT_SCOPE)

  # Rewritten only when the rules change, so that an unchanged tree is not checked again.
  set(rules_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_layers.cmake)
  file(WRITE ${rules_file}.new "${rules}")
  configure_file(${rules_file}.new ${rules_file} COPYONLY)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${arg_ROOT}/*.h ${arg_ROOT}/*.cpp)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${name}_layers.checked)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -DRULES=${rules_file} -P ${FOLDER_LAYERS_CHECK_SCRIPT}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${sources} ${rules_file} ${FOLDER_LAYERS_CHECK_SCRIPT}
    COMMENT "Checking the includes of ${name} against its folder layers"
    VERBATIM)
  add_custom_target(${name}_layer_check ALL DEPENDS ${stamp})
endfunction()
