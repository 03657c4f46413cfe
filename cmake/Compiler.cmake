# What every target is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

find_program(QUILLON_CCACHE ccache)
if(QUILLON_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${QUILLON_CCACHE}")
endif()

set(QUILLON_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")
if(QUILLON_SANITIZE)
  add_compile_options(-fsanitize=${QUILLON_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${QUILLON_SANITIZE})
endif()

# Figures must come out the same on every machine: no contraction into fused operations unless a
# unit asks for it.
add_compile_options(-ffp-contract=off)

add_library(quillon_warnings INTERFACE)
target_compile_options(quillon_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # g++ takes an argument for a shadow of a base's private member, which no one can reach anyway.
  $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>)
