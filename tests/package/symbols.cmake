# What a shared library shows is what its list says: no class by accident, none lost.
# cmake -DNM=<nm> -DLIBRARY=<file> -DEXPECTED=<list> -DACTUAL=<file to write> -P symbols.cmake
# After a change that is meant, copy the written file over the list.
execute_process(COMMAND "${NM}" -D --defined-only --demangle "${LIBRARY}"
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "(^|\n)[0-9a-f]* +. " "\\1" names "${output}")
string(STRIP "${names}" names)
string(REPLACE "\n" ";" names "${names}")
list(REMOVE_DUPLICATES names) # a constructor has two symbols of one name
list(SORT names COMPARE STRING)
list(JOIN names "\n" names)
file(WRITE "${ACTUAL}" "${names}\n")

file(READ "${EXPECTED}" expected)
if(NOT expected STREQUAL "${names}\n")
  execute_process(COMMAND diff -u "${EXPECTED}" "${ACTUAL}")
  message(FATAL_ERROR "${LIBRARY} does not show what ${EXPECTED} lists; it shows ${ACTUAL}")
endif()
