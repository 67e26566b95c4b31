# The few verbs that the CMakeLists.txt files are written in.

# pitch_library(name SOURCES ... HEADERS ... [LINK external targets ...])
# One static library. Every header is compiled alone by the target all_verify_interface_header_sets.
function(pitch_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  if(ARG_HEADERS)
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR} FILES ${ARG_HEADERS})
  endif()
  target_link_libraries(${name} PUBLIC pitch_options ${ARG_LINK})
endfunction()

# pitch_edges(name dependencies ...): the libraries of this project that NAME may include.
function(pitch_edges name)
  target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()

# pitch_program(name SOURCES ... LINK ...): an executable in the build's bin/.
function(pitch_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE pitch_options ${ARG_LINK})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
endfunction()

add_custom_target(tests_with_threads)
# How much longer tests may take than plain ones: ThreadSanitizer makes programs many times slower.
set(PITCH_TEST_PATIENCE 1)
if(PITCH_SANITIZE_THREADS)
  set(PITCH_TEST_PATIENCE 5)
endif()

# pitch_test(name LABEL unit|process|match|browser|slow SOURCES ... LINK ... [TIMEOUT seconds]
#            [PROCESSORS n] [THREADS])
# A GoogleTest program; ctest runs each of its tests in a process of its own, so the player's
# singletons never leak from one test into the next. THREADS: there are several, in the test or in
# what it runs; it has that label too, and the target tests_with_threads builds it.
function(pitch_test name)
  cmake_parse_arguments(ARG "THREADS" "LABEL;TIMEOUT;PROCESSORS" "SOURCES;LINK" ${ARGN})
  # What may take long starts first, so that the end of a run never waits for it.
  set(cost 0)
  if(ARG_TIMEOUT)
    set(cost ${ARG_TIMEOUT})
  else()
    set(ARG_TIMEOUT 60)
  endif()
  math(EXPR ARG_TIMEOUT "${ARG_TIMEOUT} * ${PITCH_TEST_PATIENCE}")
  if(NOT ARG_PROCESSORS)
    set(ARG_PROCESSORS 1)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE pitch_options ${ARG_LINK} GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    PITCH_SOURCE_DIR="${CMAKE_SOURCE_DIR}" PITCH_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT} COST ${cost} PROCESSORS ${ARG_PROCESSORS})
  if(ARG_THREADS)
    add_dependencies(tests_with_threads ${name})
    # A second label is more than the line above can pass on: ctest gives it to the tests that it has
    # found by then.
    set(labels_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_labels.cmake)
    file(WRITE ${labels_file} "foreach(test IN LISTS ${name}_TESTS)\n"
      "  set_tests_properties(\"\${test}\" PROPERTIES LABELS \"${ARG_LABEL};threads\")\n"
      "endforeach()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${labels_file})
  endif()
endfunction()

# pitch_command_test(FILE LABEL label TIMEOUT seconds [GROUP name] [OWN_NETWORK] [THREADS])
# FILE_test.sh holds tests, bash functions with a capital at the front. Each runs as a ctest of its own
# called GROUP.FILE.FUNCTION (GROUP: Commands), with the programs of this build; with OWN_NETWORK in a
# network of its own. THREADS: the programs that it runs have several.
function(pitch_command_test file)
  cmake_parse_arguments(ARG "OWN_NETWORK;THREADS" "LABEL;TIMEOUT;GROUP" "" ${ARGN})
  if(NOT ARG_GROUP)
    set(ARG_GROUP Commands)
  endif()
  math(EXPR ARG_TIMEOUT "${ARG_TIMEOUT} * ${PITCH_TEST_PATIENCE}")
  set(labels ${ARG_LABEL})
  if(ARG_THREADS)
    list(APPEND labels threads)
  endif()
  set(script ${CMAKE_CURRENT_SOURCE_DIR}/${file}_test.sh)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script})
  set(runner bash)
  if(ARG_OWN_NETWORK)
    set(runner $<TARGET_FILE:in_own_network> bash)
  endif()
  file(STRINGS ${script} heads REGEX "^[A-Z][A-Za-z]+\\(\\) {")
  foreach(head IN LISTS heads)
    string(REGEX REPLACE "\\(.*" "" test ${head})
    set(name ${ARG_GROUP}.${file}.${test})
    add_test(NAME ${name} COMMAND ${runner} ${script} ${test})
    set_tests_properties(${name} PROPERTIES
      LABELS "${labels}" TIMEOUT ${ARG_TIMEOUT}
      ENVIRONMENT "PITCH_TEST_BUILD=${CMAKE_BINARY_DIR};PITCH_TEST_PATIENCE=${PITCH_TEST_PATIENCE}")
  endforeach()
endfunction()
