# ovl_add_test(<tier> <name>): tests/<tier>/<name>_test.cpp becomes the ctest <tier>.<name>, with the
# label <tier>. Tiers: unit (no window), widget (a real host widget on a virtual display).
# Both take the objects and so reach the internal classes.
find_package(GTest REQUIRED)
find_package(Qt5 REQUIRED COMPONENTS Test)

set(ovl_test_timeout 300)
if(OVL_SANITIZER MATCHES "address")
  set(ovl_test_timeout 900)
elseif(OVL_SANITIZER MATCHES "thread")
  set(ovl_test_timeout 1800)
endif()

# Suppressions name third parties only; see the headings in the files.
set(ovl_test_environment
  "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/.lsan.supp:print_suppressions=0"
  "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/.tsan.supp"
  # The slow unwinder would wait for itself within the software rasteriser. Where a library's
  # thread-local block happens to begin 16 bytes into a page, the runtime takes what stands before it
  # for its address and the search for leaks reads anywhere: it leaves such blocks alone.
  "ASAN_OPTIONS=detect_odr_violation=1:fast_unwind_on_malloc=1:intercept_tls_get_addr=0"
  "UBSAN_OPTIONS=print_stacktrace=1"
  "QT_SCALE_FACTOR=1" "QT_QPA_PLATFORM=xcb" "LC_ALL=C.UTF-8")

function(ovl_set_test_properties tier name)
  set_tests_properties(${tier}.${name} PROPERTIES LABELS ${tier} TIMEOUT ${ovl_test_timeout}
    SKIP_RETURN_CODE 125 ENVIRONMENT "${ovl_test_environment}")
endfunction()

function(ovl_register_test tier name target)
  if(tier MATCHES "^(unit|gallery)$")
    add_test(NAME ${tier}.${name} COMMAND ${target})
  else()
    # One virtual display for each program; without any the test is skipped in plain sight.
    add_test(NAME ${tier}.${name}
      COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-display $<TARGET_FILE:${target}>)
  endif()
  ovl_set_test_properties(${tier} ${name})
endfunction()

# All programs of ovl_add_test, without the gallery, the examples and the packages.
add_custom_target(class_tests)

function(ovl_add_test tier name)
  set(target ${tier}_${name}_test)
  add_executable(${target} ${tier}/${name}_test.cpp support/${tier}_main.cpp)
  target_link_libraries(${target} PRIVATE ovl_test_support ${ARGN})
  ovl_register_test(${tier} ${name} ${target})
  add_dependencies(class_tests ${target})
endfunction()

# ovl_add_host_test(<name>): tests/host/<name>_test.cpp, linked to the libraries as a host links them.
function(ovl_add_host_test name)
  set(target host_${name}_test)
  add_executable(${target} host/${name}_test.cpp support/host_main.cpp support/messagewatch.cpp)
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE
    ovl::hosting ovl::ovl ovl_flags GTest::gtest Qt5::Test ${OVL_VTK_LIBRARIES})
  ovl_register_test(host ${name} ${target})
endfunction()

# ovl_add_gallery_test(<name>): tests/gallery/<name>_test.cpp, on what of the gallery needs no widget.
function(ovl_add_gallery_test name)
  set(target gallery_${name}_test)
  add_executable(${target} gallery/${name}_test.cpp support/unit_main.cpp support/messagewatch.cpp)
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE
    ovl_gallery_core ovl_flags GTest::gtest ${OVL_VTK_LIBRARIES})
  ovl_register_test(gallery ${name} ${target})
endfunction()

# ovl_add_gallery_page_test(<name>): tests/gallery/<name>_test.cpp, on the gallery's window.
function(ovl_add_gallery_page_test name)
  set(target page_${name}_test)
  add_executable(${target} gallery/${name}_test.cpp support/host_main.cpp support/messagewatch.cpp)
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE
    ovl_gallery_pages ovl_flags GTest::gtest Qt5::Test ${OVL_VTK_LIBRARIES})
  ovl_register_test(page ${name} ${target})
endfunction()
