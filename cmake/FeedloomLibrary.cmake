# The warnings that every target of the project is built with, and the two kinds of target that
# folders define. The presets make warnings errors; another build shows them and goes on.

add_library(feedloom_warnings INTERFACE)
target_compile_options(feedloom_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  target_compile_options(feedloom_warnings INTERFACE -Wthread-safety)
endif()

include(cmake/PrecompiledHeaders.cmake)

function(feedloom_static_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;PRIVATE_LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(
    ${name}
    PUBLIC ${arg_LINKS}
    PRIVATE feedloom_warnings ${arg_PRIVATE_LINKS})
endfunction()

# feedloom_library(NAME SOURCES file... LINKS target...): the static library of one folder of src/.
function(feedloom_library name)
  feedloom_static_library(${name} ${ARGN})
  feedloom_use_headers(${name} standard_headers)
endfunction()

# The same with classes of the toolkit's object system in it.
function(feedloom_widget_library name)
  feedloom_static_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  feedloom_use_headers(${name} widget_headers)
endfunction()

# feedloom_test(NAME SOURCES file... LINKS target... LABELS label): the test program of one
# folder; each of its test cases is a ctest of its own.
function(feedloom_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;LABELS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE test_options test_kit ${arg_LINKS} GTest::gtest_main)
  feedloom_use_headers(${name} test_headers)
  feedloom_discover(${name} "${arg_LABELS}")
endfunction()

# The same for tests of widgets: off screen, with an application object.
function(feedloom_widget_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;LABELS")
  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE widget_test_options test_kit widget_test_main ${arg_LINKS})
  feedloom_use_headers(${name} widget_test_headers)
  feedloom_discover(${name} "${arg_LABELS}")
endfunction()

# Each test case of the program `name` becomes a ctest, in no language: whose tests run must not
# matter.
function(feedloom_discover name labels)
  gtest_discover_tests(
    ${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${labels}" TIMEOUT 120 ENVIRONMENT LC_ALL=C.UTF-8)
endfunction()

# feedloom_command_line(FILE): a source of the calling folder that only reads a command line, once.
# The option parser's templates would take many seconds to be optimized.
function(feedloom_command_line file)
  set_source_files_properties(${file} PROPERTIES COMPILE_OPTIONS -O0 SKIP_PRECOMPILE_HEADERS ON)
endfunction()
