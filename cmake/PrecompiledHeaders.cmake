# The headers that most files of a kind include, compiled once for the kind. A source includes what
# it uses nonetheless: -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without them.

# A compiler cache passes by what was compiled with them. With one, every file is compiled by itself
# from its own includes, and an include that is missing shows.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
  set(CMAKE_UNITY_BUILD OFF)
endif()

# feedloom_headers(NAME HEADERS header... LINKS target... OPTIONS option...): a set of headers.
function(feedloom_headers name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;LINKS;OPTIONS")
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE feedloom_warnings ${arg_LINKS})
  target_compile_options(${name} PRIVATE ${arg_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# feedloom_use_headers(TARGET SET): the target is compiled as the set is, and may have definitions
# of its own, but none that the set's headers ask for; the compiler complains of a difference.
function(feedloom_use_headers target set)
  target_precompile_headers(${target} REUSE_FROM ${set})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    # GCC forgets in a precompiled header where its library's header of the character functions
    # turns these off, and warns of the library's own code.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow
                                             -Wno-stringop-overread)
  endif()
endfunction()

set(FEEDLOOM_STANDARD_HEADERS
    <algorithm>
    <chrono>
    <condition_variable>
    <filesystem>
    <functional>
    <memory>
    <mutex>
    <optional>
    <stop_token>
    <string>
    <string_view>
    <thread>
    <unordered_map>
    <utility>
    <vector>)

# Of the libraries in src/.
feedloom_headers(standard_headers HEADERS ${FEEDLOOM_STANDARD_HEADERS})
feedloom_headers(widget_headers HEADERS ${FEEDLOOM_STANDARD_HEADERS} <QWidget> LINKS Qt6::Widgets)
