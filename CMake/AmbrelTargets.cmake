# Settings shared by every target of this project: the language standard, warnings and sanitizers.

include(CheckLinkerFlag)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(AMBREL_SANITIZER "" CACHE STRING "Sanitizers for the project's own targets, for example address,undefined")
# Qt is not built with the thread sanitizer, which therefore cannot see its locks. Nothing else is suppressed: our data
# crosses threads under our own locks.
set(AMBREL_TSAN_OPTIONS "TSAN_OPTIONS=ignore_noninstrumented_modules=1")

add_library(AmbrelOptions INTERFACE)
target_compile_options(AmbrelOptions INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wimplicit-fallthrough)
if(AMBREL_SANITIZER)
  target_compile_options(AmbrelOptions INTERFACE
    -fsanitize=${AMBREL_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # Reports show lines but no values.
  set(CMAKE_CXX_FLAGS_DEBUG "-g1")
  target_link_options(AmbrelOptions INTERFACE -fsanitize=${AMBREL_SANITIZER})
endif()

# Only code that is used is linked, and relocations are stored compactly: both are read before the window appears.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo" AND NOT AMBREL_SANITIZER)
  target_compile_options(AmbrelOptions INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(AmbrelOptions INTERFACE LINKER:--gc-sections)
  check_linker_flag(CXX LINKER:-z,pack-relative-relocs AMBREL_CAN_PACK_RELOCATIONS)
  if(AMBREL_CAN_PACK_RELOCATIONS)
    target_link_options(AmbrelOptions INTERFACE LINKER:-z,pack-relative-relocs)
  endif()
endif()

if(AMBREL_BUILD_FOR_PACKAGE)
  target_compile_options(AmbrelOptions INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()
# The first version of the format holds no times of files, so that the same files always give the same program.
set(AMBREL_RESOURCE_OPTIONS --format-version 1)

include(AmbrelHardening)
target_link_libraries(AmbrelOptions INTERFACE AmbrelHardening)
include(AmbrelPrecompiledHeaders)

# ambrel_split_debug_information(TARGET): in an optimized build, the program keeps its function names for backtraces.
# Lines and types go to DebugInformation/TARGET.debug in the build directory, where debuggers find them through a link.
function(ambrel_split_debug_information target)
  if(NOT CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo")
    return()
  endif()
  set(folder ${CMAKE_BINARY_DIR}/DebugInformation)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}> ${folder}/${target}.debug
    COMMAND ${CMAKE_OBJCOPY} --strip-debug --add-gnu-debuglink=${folder}/${target}.debug $<TARGET_FILE:${target}>
    VERBATIM)
endfunction()

# ambrel_add_test(NAME SOURCES file... [LIBRARIES target...] [LABELS label...] [HEADERS CORE|WIDGETS])
# Adds a GoogleTest program as one CTest test. The result of each test case is written to TestResults/NAME.xml.
# HEADERS selects the precompiled headers. The ConcurrencyTests target builds the programs with the label "concurrency".
add_custom_target(ConcurrencyTests)
function(ambrel_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "HEADERS" "SOURCES;LIBRARIES;LABELS")
  add_executable(${name} ${test_SOURCES} ${CMAKE_SOURCE_DIR}/Tests/Support/TestLimits.cpp)
  target_link_libraries(${name} PRIVATE AmbrelOptions GTest::gmock ${test_LIBRARIES})
  if(NOT test_HEADERS)
    set(test_HEADERS STANDARD)
  endif()
  ambrel_precompile_headers(${name} ${test_HEADERS} TEST)
  if("concurrency" IN_LIST test_LABELS)
    add_dependencies(ConcurrencyTests ${name})
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    LABELS "${test_LABELS}"
    TIMEOUT 900
    ENVIRONMENT "GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/TestResults/${name}.xml;${AMBREL_TSAN_OPTIONS}")
endfunction()

# ambrel_add_python_test(NAME FILE [VARIABLE=VALUE...] [READS path...]): a file of Python's unittest, which is one test of
# CTest and leaves the result of each of its cases in TestResults/NAME.json. Debian's own Python runs it. READS names the
# files and folders of the source tree on which the test depends: while they are unchanged, ./test --quick leaves it out.
function(ambrel_add_python_test name file)
  cmake_parse_arguments(PARSE_ARGV 2 test "" "" "READS")
  find_program(AMBREL_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
  add_test(NAME ${name}
    COMMAND ${AMBREL_PYTHON} -B ${CMAKE_SOURCE_DIR}/Tests/EndToEnd/case_results.py
            ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  list(TRANSFORM test_READS PREPEND ${CMAKE_SOURCE_DIR}/)
  set_tests_properties(${name} PROPERTIES
    LABELS lint
    REQUIRED_FILES "${test_READS}"
    ENVIRONMENT "AMBREL_TEST_RESULTS=${CMAKE_BINARY_DIR}/TestResults/${name}.json;${test_UNPARSED_ARGUMENTS}")
endfunction()
