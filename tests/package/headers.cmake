# Every installed header compiles alone, under strict warnings, and reads no header of VTK. A view made
# with the wrong arguments is refused in words.
# cmake -DCOMPILER=<c++> -DINCLUDES=<folders, with | between> -DPREFIX=<installed>
#   -DSCRATCH=<file to write> -P headers.cmake
set(failures "")
string(REPLACE "|" ";" INCLUDES "${INCLUDES}")
list(TRANSFORM INCLUDES PREPEND "-isystem")
file(GLOB_RECURSE headers RELATIVE "${PREFIX}/include/ovl" "${PREFIX}/include/*")
if(NOT headers)
  message(FATAL_ERROR "no header in ${PREFIX}/include")
endif()
foreach(header IN LISTS headers)
  # One run compiles and lists what was read (-H, on the error stream).
  file(WRITE "${SCRATCH}" "#include <${header}>\n")
  execute_process(
    COMMAND "${COMPILER}" -x c++ -std=c++17 -fPIC -fsyntax-only -H
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
      "-I${PREFIX}/include/ovl" ${INCLUDES} "${SCRATCH}"
    RESULT_VARIABLE result ERROR_VARIABLE read)
  if(NOT result EQUAL 0)
    string(APPEND failures "${header} does not compile alone:\n${read}\n")
  endif()
  if(read MATCHES "/(vtk|QVTK)[A-Za-z0-9_]*\\.h")
    string(APPEND failures "${header} reads a header of VTK: ${CMAKE_MATCH_0}\n")
  endif()
  if(NOT read MATCHES "${header}")
    string(APPEND failures "${header} was not read at all\n")
  endif()
endforeach()
file(WRITE "${SCRATCH}" "#include <hosting/viewwidget.h>\n#include <visualization/profileview.h>\n"
  "ovl::hosting::ViewWidget<ovl::ProfileView> withoutColumns;\n")
execute_process(
  COMMAND "${COMPILER}" -x c++ -std=c++17 -fPIC -fsyntax-only
    "-I${PREFIX}/include/ovl" ${INCLUDES} "${SCRATCH}"
  RESULT_VARIABLE result ERROR_VARIABLE read)
if(result EQUAL 0 OR NOT read MATCHES "the view wants other arguments")
  string(APPEND failures "a ProfileView without its columns is not refused in words:\n${read}\n")
endif()
if(failures)
  message(FATAL_ERROR "${failures}")
endif()
