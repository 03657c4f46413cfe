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

# -O3 gains nothing measurable here but for the loops over arrays, which ask for it themselves, and g++ 12 sees
# overlaps in std::string at -O3 that aren't there.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

set(QUILLON_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")
if(QUILLON_SANITIZE)
  add_compile_options(-fsanitize=${QUILLON_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${QUILLON_SANITIZE})
endif()

# The fuzzers see what a run has reached in the library, and not in their own few lines alone.
if(QUILLON_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Figures must come out the same on every machine: no contraction into fused operations unless a
# unit asks for it.
add_compile_options(-ffp-contract=off)

add_library(quillon_warnings INTERFACE)
target_compile_options(quillon_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
  # g++ takes an argument for a shadow of a base's private member, which no one can reach anyway.
  $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>
  # False alarms of g++ 12 in the standard library's strings.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# Instrumented code gives g++ false alarms; the plain builds hold the line.
if(NOT QUILLON_SANITIZE)
  target_compile_options(quillon_warnings INTERFACE -Werror)
endif()
