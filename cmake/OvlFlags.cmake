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
    -Wno-maybe-uninitialized) # GCC loses track of values through the sanitizers' checks
  target_link_options(ovl_flags INTERFACE -fsanitize=${OVL_SANITIZER})
endif()
