# Makes C++ of the code blocks in our documents, so that a test compiles what a reader copies.
#
#   A block with a main() is a whole program and becomes a file of its own.
#   A block behind a line  <!-- given: PARAMETERS -->  is the body of a function with these parameters.
#   Any other block stands at namespace scope.
#
# Every block has a namespace or file of its own and is compiled with the line numbers of its document.
include(${CMAKE_CURRENT_LIST_DIR}/markdown.cmake)

function(ovl_write_if_changed file text)
  if(EXISTS "${file}")
    file(READ "${file}" present)
    if(present STREQUAL text)
      return()
    endif()
  endif()
  file(WRITE "${file}" "${text}")
endfunction()

# ovl_code_blocks(<document> <folder> <text> <files>): appends the document's blocks to the text, writes
# its programs into the folder and appends their files to the list.
function(ovl_code_blocks document folder text_variable files_variable)
  set(text "${${text_variable}}")
  set(files "${${files_variable}}")
  get_filename_component(name "${document}" NAME_WE)
  string(MAKE_C_IDENTIFIER "${name}" name)
  string(TOLOWER "${name}" name)
  ovl_read_markdown("${document}" lines)
  set(inside FALSE)
  set(given "")
  set(number 0)
  set(count 0)
  foreach(line IN LISTS lines)
    math(EXPR number "${number} + 1")
    if(inside AND line STREQUAL "```")
      set(inside FALSE)
      ovl_decode_markdown(code)
      ovl_decode_markdown(given)
      if(code MATCHES "int main\\(")
        math(EXPR count "${count} + 1")
        set(file "${folder}/${name}_${count}.cpp")
        ovl_write_if_changed("${file}" "#line ${start} \"${document}\"\n${code}")
        list(APPEND files "${file}")
      elseif(given)
        string(APPEND text "#line ${start} \"${document}\"\n"
          "namespace ${name}_${start} {\nvoid block(${given})\n{\n"
          "#line ${start} \"${document}\"\n${code}}\n}\n")
      else()
        string(APPEND text "namespace ${name}_${start} {\n"
          "#line ${start} \"${document}\"\n${code}}\n")
      endif()
      set(given "")
    elseif(inside)
      string(APPEND code "${line}\n")
    elseif(line STREQUAL "```cpp")
      set(inside TRUE)
      set(code "")
      math(EXPR start "${number} + 1")
    elseif(line MATCHES "^<!-- given: (.*) -->$")
      set(given "${CMAKE_MATCH_1}")
    elseif(NOT line STREQUAL "")
      set(given "")
    endif()
  endforeach()
  if(inside)
    message(FATAL_ERROR "${document}: the code block at line ${start} has no end")
  endif()
  set(${text_variable} "${text}" PARENT_SCOPE)
  set(${files_variable} "${files}" PARENT_SCOPE)
endfunction()
