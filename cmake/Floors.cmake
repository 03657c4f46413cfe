# Target all_verify_interface_header_sets compiles every header of every floor alone.
set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ON)

# quillon_floor(NAME [ABOVE floor ...] [LINK library ...])
#
# One folder under src/ is one floor is one library. ABOVE names the floors it may see; a header of
# any other floor is then found by the include check and, for what needs linking, by the linker.
function(quillon_floor name)
  cmake_parse_arguments(arg "" "" "ABOVE;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp"
                                      "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h"
                                      "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*/*.h")
  set(target quillon_${name})
  if(sources)
    add_library(${target} STATIC)
    target_sources(${target} PRIVATE ${sources})
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(Quillon::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  target_sources(${target} ${scope} FILE_SET HEADERS BASE_DIRS "${CMAKE_CURRENT_SOURCE_DIR}" FILES ${headers})
  target_compile_features(${target} ${scope} cxx_std_20)
  if(sources)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quillon_warnings>)
  endif()
  foreach(floor IN LISTS arg_ABOVE)
    target_link_libraries(${target} ${scope} quillon_${floor})
  endforeach()
  target_link_libraries(${target} ${scope} ${arg_LINK})
  set_property(GLOBAL APPEND PROPERTY QUILLON_FLOORS ${target})
endfunction()

# quillon_floor_tests(NAME [LINK library ...]): the test program of one floor, linked with that floor
# and with nothing above it.
function(quillon_floor_tests name)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_include_directories(${name}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name}_tests PRIVATE quillon_${name} quillon_warnings quillon_test_support
                                              GTest::gmock GTest::gtest_main ${arg_LINK})
  target_precompile_headers(${name}_tests REUSE_FROM quillon_test_pch)
  target_compile_definitions(${name}_tests PRIVATE
    QUILLON_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    QUILLON_SHARED_DATA="${PROJECT_SOURCE_DIR}/../shared/data")
  gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 600)
endfunction()
