# The program in the README is the example's, to the letter, and every path in our Markdown exists.
# cmake -DROOT=<repository> -P documents.cmake
set(failures "")

file(READ "${ROOT}/README.md" readme)
file(READ "${ROOT}/examples/minimal-image/main.cpp" program)
string(FIND "${readme}" "```cpp\n${program}```" found)
if(found EQUAL -1)
  string(APPEND failures "README.md: the program differs from examples/minimal-image/main.cpp\n")
endif()

file(GLOB documents "${ROOT}/*.md" "${ROOT}/docs/*.md" "${ROOT}/docs/guide/*.md" "${ROOT}/examples/*/*.md")
foreach(document IN LISTS documents)
  file(READ "${document}" text)
  get_filename_component(folder "${document}" DIRECTORY)
  string(REPLACE "](" "@" text "${text}") # square brackets would hold a list together
  string(REGEX REPLACE "[][;]" " " text "${text}")
  string(REGEX MATCHALL "@[A-Za-z0-9_./-]+" links "${text}")
  foreach(link IN LISTS links)
    string(SUBSTRING "${link}" 1 -1 path)
    if(NOT EXISTS "${folder}/${path}")
      string(APPEND failures "${document}: ${path} does not exist\n")
    endif()
  endforeach()
endforeach()

if(failures)
  message(FATAL_ERROR "${failures}")
endif()
