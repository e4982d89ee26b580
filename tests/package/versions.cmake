# Nothing outside visualization/vtkcompat.h asks for the framework's version, or tells one: there is the
# one place to look at when a version comes or goes. Names of Debian packages count for nothing.
# cmake -DROOT=<repository> -P versions.cmake
cmake_minimum_required(VERSION 3.21)
set(failures "")
set(patterns
  "VTK_(MAJOR|MINOR|BUILD)_VERSION"
  "VTK_VERSION"
  "vtkVersion"
  "VTK[ _-]?[0-9]"
  "(^|[^b])vtk-?[0-9]"
  "QVTKOpenGL(Native)?Widget[.>*&; ]") # which of them it is depends on the version
set(files "")
foreach(folder IN ITEMS benchmarks cmake examples fuzz gallery hosting visualization)
  file(GLOB_RECURSE found RELATIVE "${ROOT}" "${ROOT}/${folder}/*")
  list(APPEND files ${found})
endforeach()
list(REMOVE_ITEM files visualization/vtkcompat.h)
if(NOT "visualization/imageview.cpp" IN_LIST files)
  message(FATAL_ERROR "no sources in ${ROOT}")
endif()
foreach(file IN LISTS files ITEMS CMakeLists.txt)
  if(file MATCHES "\\.(cpp|h|in|cmake)$|CMakeLists.txt$")
    foreach(pattern IN LISTS patterns)
      file(STRINGS "${ROOT}/${file}" lines REGEX "${pattern}")
      list(FILTER lines EXCLUDE REGEX "message\\(STATUS") # what is told while configuring
      if(lines)
        string(APPEND failures "${file}: ${lines}\n")
      endif()
    endforeach()
  endif()
endforeach()
if(failures)
  message(FATAL_ERROR "these name a version of the framework:\n${failures}")
endif()
