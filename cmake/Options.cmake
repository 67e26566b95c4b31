# Everything that all targets are compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

option(BUILD_TESTING "Build the tests" ON)
option(PITCH_WERROR "Warnings are errors (./check sets this)" OFF)
option(PITCH_UNITY "Compile the tests several files at a time" ON)
option(PITCH_UNITY_ALL "So too training ground and workshop: half the time, but more after an edit" OFF)
option(PITCH_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(PITCH_SANITIZE_THREADS "Build with ThreadSanitizer" OFF)
option(PITCH_COVERAGE "Build with gcov counters" OFF)
option(PITCH_FUZZ "Build the fuzz targets with libFuzzer and sanitizers (needs clang)" OFF)

include(CTest)

add_library(pitch_options INTERFACE)
# Two builds given the same messages must put the same bytes on the link, so no expression may be
# fused or reordered by the compiler.
target_compile_options(pitch_options INTERFACE -ffp-contract=off)
target_compile_options(pitch_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 warns falsely about std::string assignments that it has inlined (GCC bug 105651).
  target_compile_options(pitch_options INTERFACE -Wno-restrict)
endif()
target_include_directories(pitch_options INTERFACE ${CMAKE_SOURCE_DIR})
if(PITCH_WERROR)
  target_compile_options(pitch_options INTERFACE -Werror)
endif()
if(PITCH_SANITIZE)
  target_compile_options(pitch_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(pitch_options INTERFACE -fsanitize=address,undefined)
endif()
if(PITCH_FUZZ)
  # Besides what `undefined` holds: a number that doesn't fit its new type is undefined too.
  set(PITCH_FUZZ_SANITIZERS address,undefined,float-cast-overflow)
  target_compile_options(pitch_options INTERFACE
    -fsanitize=fuzzer-no-link,${PITCH_FUZZ_SANITIZERS} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(pitch_options INTERFACE -fsanitize=${PITCH_FUZZ_SANITIZERS})
endif()
if(PITCH_SANITIZE_THREADS)
  target_compile_options(pitch_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  # It can't follow memory fences. Those of Asio stand round handlers that its locks order as well.
  target_compile_definitions(pitch_options INTERFACE BOOST_ASIO_DISABLE_FENCED_BLOCK)
  target_link_options(pitch_options INTERFACE -fsanitize=thread)
endif()
if(PITCH_COVERAGE)
  target_compile_options(pitch_options INTERFACE --coverage)
  target_link_options(pitch_options INTERFACE --coverage)
endif()
