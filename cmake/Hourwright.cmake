# How the libraries and tests of the project are declared.

add_library(hourwright_options INTERFACE)
target_compile_options(hourwright_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wimplicit-fallthrough -Wno-missing-field-initializers)
# Hours and money are cut off, not rounded: a multiplication fused with an addition would change stored hundredths on
# machines that have such an instruction.
target_compile_options(hourwright_options INTERFACE -ffp-contract=off)
# GCC 12 sees overlaps and uninitialised values in optimised standard library code where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(hourwright_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
target_link_libraries(hourwright_options INTERFACE hourwright_hardening)
target_include_directories(hourwright_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(HOURWRIGHT_SANITIZE)
  target_compile_options(hourwright_options INTERFACE
    -fsanitize=${HOURWRIGHT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
  target_link_options(hourwright_options INTERFACE -fsanitize=${HOURWRIGHT_SANITIZE})
  # The environment of tests: what is reported, and what libraries keep until the end of a process and are forgiven.
  set(HOURWRIGHT_SANITIZER_OPTIONS
    "ASAN_OPTIONS=strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1"
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
    "UBSAN_OPTIONS=print_stacktrace=1" "TSAN_OPTIONS=second_deadlock_stack=1")
endif()

# One library a floor: every source below the current folder but those in the EXCLUDE folders, and the floors it may
# use.
function(hourwright_floor name)
  cmake_parse_arguments(FLOOR "" "" "USES;LIBRARIES;EXCLUDE" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  foreach(folder IN LISTS FLOOR_EXCLUDE)
    list(FILTER sources EXCLUDE REGEX "^${CMAKE_CURRENT_SOURCE_DIR}/${folder}/")
  endforeach()
  add_library(hourwright_${name} STATIC ${sources})
  target_link_libraries(hourwright_${name} PUBLIC hourwright_options)
  foreach(floor IN LISTS FLOOR_USES)
    target_link_libraries(hourwright_${name} PUBLIC hourwright_${floor})
  endforeach()
  target_link_libraries(hourwright_${name} PRIVATE ${FLOOR_LIBRARIES})
endfunction()

# The unit tests of one floor: every *_test.cpp of the current folder in one program, each case registered with CTest
# once for the C locale and once for one with a decimal comma.
function(hourwright_tests floor)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp)
  add_executable(${floor}_test ${sources})
  target_link_libraries(${floor}_test PRIVATE hourwright_test_support ${ARGN})
  foreach(locale IN ITEMS C de_DE.UTF-8)
    add_test(NAME ${floor}.${locale} COMMAND ${floor}_test --gtest_brief=1)
    set_tests_properties(${floor}.${locale} PROPERTIES ENVIRONMENT "LC_ALL=${locale};${HOURWRIGHT_SANITIZER_OPTIONS}")
  endforeach()
endfunction()
