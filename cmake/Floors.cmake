# What floors.txt names, as libraries and test programs. A library is quillon_NAME, its test program NAME_tests.

file(STRINGS "${PROJECT_SOURCE_DIR}/floors.txt" floor_lines REGEX "^[a-z]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/floors.txt")

# The headers of the standard library that nearly every source takes in are compiled once. Each source still names what
# it uses: the stage "headers" of the tests compiles without this.
set(quillon_common_headers
  <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span> <string>
  <string_view> <utility> <variant> <vector>)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/pch.cpp" CONTENT "// For the headers alone.\n")
add_library(quillon_pch OBJECT "${PROJECT_BINARY_DIR}/pch.cpp")
target_link_libraries(quillon_pch PRIVATE quillon_warnings)
target_precompile_headers(quillon_pch PRIVATE ${quillon_common_headers})

# quillon_add_floor(LINE): the library of one line of the list; rooms of the toolkit only where the workbench is built.
function(quillon_add_floor line)
  separate_arguments(fields UNIX_COMMAND "${line}")
  list(POP_FRONT fields name folder toolkit)
  if(toolkit STREQUAL "qt" AND NOT QUILLON_WORKBENCH)
    return()
  endif()
  set(path "${PROJECT_SOURCE_DIR}/${folder}")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${path}/*.cpp")
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${path}/*.h")
  if(name STREQUAL "commands")
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  endif()
  set(target quillon_${name})
  if(sources)
    add_library(${target} STATIC ${sources})
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quillon_warnings>)
    # Rooms of the toolkit, and the commands, have headers of their own to compile once.
    if(NOT toolkit STREQUAL "qt" AND NOT name STREQUAL "commands")
      target_precompile_headers(${target} REUSE_FROM quillon_pch)
    endif()
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  get_filename_component(base "${path}" DIRECTORY)
  target_sources(${target} ${scope} FILE_SET HEADERS BASE_DIRS "${base}" FILES ${headers})
  target_compile_features(${target} ${scope} cxx_std_20)
  list(TRANSFORM fields PREPEND quillon_)
  target_link_libraries(${target} ${scope} ${fields})
  if(toolkit STREQUAL "qt")
    target_link_libraries(${target} PUBLIC Qt6::Widgets)
  endif()
  if(folder MATCHES "^src/")
    add_library(Quillon::${name} ALIAS ${target})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    set_property(GLOBAL APPEND PROPERTY QUILLON_FLOORS ${target})
  endif()
endfunction()

# quillon_add_floors(PREFIX): the libraries of all lines whose folder begins so.
function(quillon_add_floors prefix)
  foreach(line IN LISTS floor_lines)
    if(line MATCHES "^[a-z]+ +${prefix}")
      quillon_add_floor("${line}")
    endif()
  endforeach()
endfunction()

# quillon_add_tests(LINE): the test program of one floor, linked with that floor and with nothing above it.
function(quillon_add_tests line)
  separate_arguments(fields UNIX_COMMAND "${line}")
  list(GET fields 0 name)
  list(GET fields 2 toolkit)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*_test.cpp"
                                      "${CMAKE_CURRENT_SOURCE_DIR}/${name}/test_main.cpp")
  if(NOT sources OR NOT TARGET quillon_${name})
    return()
  endif()
  set(target ${name}_tests)
  add_executable(${target} ${sources})
  target_link_libraries(${target} PRIVATE quillon_${name} quillon_warnings quillon_test_support GTest::gmock)
  target_compile_definitions(${target} PRIVATE
    QUILLON_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    QUILLON_SAMPLE_JOB="${PROJECT_SOURCE_DIR}/samples/job"
    QUILLON_SHARED_DATA="${PROJECT_SOURCE_DIR}/../shared/data")
  if(toolkit STREQUAL "qt")
    target_link_libraries(${target} PRIVATE Qt6::Test)
    if(NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/test_main.cpp")
      target_sources(${target} PRIVATE support/qt_test_main.cpp)
    endif()
  else()
    target_link_libraries(${target} PRIVATE GTest::gtest_main)
    target_precompile_headers(${target} REUSE_FROM quillon_test_pch)
  endif()
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST
                       PROPERTIES TIMEOUT 600 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
