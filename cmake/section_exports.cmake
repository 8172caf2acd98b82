# cmake -DLIST=exports.def -DSECTIONS=include/zors -DTO=folder -P section_exports.cmake
#
# Writes TO/<section>.h for each section of the public header: the exports of that section as implementations see and
# define them. Inside the library an export is zors::name, with the type of the public prototype and a linker name of its
# own, so that calls between implementations are direct. A file is written only if it changes, so that a name added to one
# section rebuilds no other.
cmake_minimum_required(VERSION 3.25)
file(STRINGS ${LIST} lines REGEX "^(EXPORT|SHARED)\\(")
foreach(line ${lines})
  if(line MATCHES "^EXPORT\\(([A-Za-z0-9_]+)\\)")
    set(served_by_${CMAKE_MATCH_1} ${CMAKE_MATCH_1})
  elseif(line MATCHES "^SHARED\\(([A-Za-z0-9_]+), *([A-Za-z0-9_]+)\\)")
    set(served_by_${CMAKE_MATCH_1} ${CMAKE_MATCH_2})
  endif()
endforeach()

file(GLOB headers ${SECTIONS}/*.h)
foreach(header ${headers})
  get_filename_component(section ${header} NAME_WE)
  file(READ ${header} text)
  string(REGEX REPLACE "/\\*([^*]|\\*+[^*/])*\\*+/" "" text "${text}")  # comments name exports too
  string(REGEX MATCHALL "zors[A-Z0-9][A-Za-z0-9_]*\\(" prototypes "${text}")
  set(declarations "")
  foreach(prototype ${prototypes})
    string(REPLACE "(" "" name ${prototype})
    if(DEFINED served_by_${name})
      string(APPEND declarations "decltype(::${name}) ${name} __asm__(\"impl_${served_by_${name}}\");\n")
    endif()
  endforeach()
  file(CONFIGURE OUTPUT ${TO}/${section}.h @ONLY CONTENT "#pragma once
#include \"zors/${section}.h\"
namespace zors {
${declarations}}  // namespace zors
")
endforeach()
