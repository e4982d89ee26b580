# Reading Markdown line by line. Brackets, semicolons and backslashes hold CMake's lists together or
# split them, so each is one control character while a line is in a list.

# ovl_read_markdown(<file> <variable>): the file's lines as a list, encoded.
function(ovl_read_markdown file variable)
  file(READ "${file}" text)
  string(ASCII 1 semicolon)
  string(REPLACE ";" "${semicolon}" text "${text}")
  string(ASCII 2 opening)
  string(REPLACE "[" "${opening}" text "${text}")
  string(ASCII 3 closing)
  string(REPLACE "]" "${closing}" text "${text}")
  string(ASCII 4 backslash)
  string(REPLACE "\\" "${backslash}" text "${text}")
  string(REPLACE "\n" ";" lines "${text}")
  set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

# ovl_decode_markdown(<variable>): turns a line, or several, back into what the file holds.
macro(ovl_decode_markdown variable)
  string(ASCII 1 ovl_sign)
  string(REPLACE "${ovl_sign}" ";" ${variable} "${${variable}}")
  string(ASCII 2 ovl_sign)
  string(REPLACE "${ovl_sign}" "[" ${variable} "${${variable}}")
  string(ASCII 3 ovl_sign)
  string(REPLACE "${ovl_sign}" "]" ${variable} "${${variable}}")
  string(ASCII 4 ovl_sign)
  string(REPLACE "${ovl_sign}" "\\" ${variable} "${${variable}}")
endmacro()
