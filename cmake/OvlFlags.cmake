# ovl_flags: what every target of ours is compiled with. Never installed, never given to hosts.
add_library(ovl_flags INTERFACE)
target_compile_features(ovl_flags INTERFACE cxx_std_17)
set(CMAKE_CXX_STANDARD 17) # spelt out in each command line, so that the linter reads the same language
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

target_compile_definitions(ovl_flags INTERFACE QT_NO_KEYWORDS)

if(OVL_STRICT)
  target_compile_options(ovl_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wsuggest-override -Werror)
endif()

if(NOT OVL_SANITIZER STREQUAL "none")
  target_compile_options(ovl_flags INTERFACE
    -fsanitize=${OVL_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>) # GCC loses track of values through the sanitizers' checks
  target_link_options(ovl_flags INTERFACE -fsanitize=${OVL_SANITIZER})
endif()

# A hundred test programs against two hundred shared libraries: the usual linker takes most of a build.
find_program(OVL_FAST_LINKER ld.lld)
if(OVL_TESTS AND OVL_FAST_LINKER)
  target_link_options(ovl_flags INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-fuse-ld=lld>)
endif()

# ovl_compile_for_library(<target>): objects of which only the marked classes can be seen from outside,
# and whose messages name a source file without the folders of this machine.
function(ovl_compile_for_library target)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  if(NOT MSVC)
    target_compile_options(${target} PRIVATE -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
  endif()
endfunction()

# ovl_link_library(<target>): a shared library that is whole, asks for no library that it does not use,
# and shows no template that happened to be made along the way.
function(ovl_link_library target)
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  # The sanitizers' runtime is the program's, not the library's.
  if(UNIX AND NOT APPLE AND OVL_SANITIZER STREQUAL "none")
    set(map ${PROJECT_SOURCE_DIR}/cmake/exported.map)
    target_link_options(${target} PRIVATE
      -Wl,--no-undefined -Wl,--as-needed -Wl,--version-script=${map})
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
  endif()
endfunction()
if(OVL_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "OVL_FUZZ takes clang: cmake --preset fuzz")
  endif()
  target_compile_options(ovl_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
