# Installs into an empty prefix, without debugging data, and looks at what came there: every header
# that does not call itself internal and no other, and no name of a folder of this machine.
# cmake -DBUILD=<build folder> -DSOURCE=<repository> -DPREFIX=<folder to fill> -P install.cmake
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}" --strip
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(public "")
file(GLOB headers RELATIVE "${SOURCE}" "${SOURCE}/visualization/*.h" "${SOURCE}/hosting/*.h")
foreach(header IN LISTS headers)
  file(STRINGS "${SOURCE}/${header}" mark REGEX "^// Internal, may change" LIMIT_COUNT 1)
  if(NOT mark)
    list(APPEND public "${header}")
  endif()
endforeach()
file(GLOB_RECURSE installed RELATIVE "${PREFIX}/include/ovl" "${PREFIX}/include/*")
list(SORT public)
list(SORT installed)
if(NOT installed STREQUAL public)
  message(FATAL_ERROR "installed headers: ${installed}\nbut public are: ${public}")
endif()

file(GLOB_RECURSE files "${PREFIX}/*")
foreach(file IN LISTS files)
  file(STRINGS "${file}" lines)
  foreach(folder IN ITEMS "${BUILD}" "${SOURCE}" "${PREFIX}")
    string(FIND "${lines}" "${folder}" found)
    if(NOT found EQUAL -1)
      message(FATAL_ERROR "${file} names ${folder}")
    endif()
  endforeach()
endforeach()
