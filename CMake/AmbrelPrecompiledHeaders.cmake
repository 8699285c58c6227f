# Headers that nearly every source includes are compiled once for all targets with the same options. Sources still
# include what they use: clang, as a compiler and in static analysis, reads the headers directly.

set(AMBREL_STANDARD_HEADERS
  <algorithm> <array> <chrono> <cstdint> <filesystem> <functional> <memory> <optional> <span> <string> <string_view>
  <utility> <vector>)
set(AMBREL_CORE_HEADERS ${AMBREL_STANDARD_HEADERS} <QObject> <QPointer> <QString> <QStringList>)
set(AMBREL_WIDGETS_HEADERS ${AMBREL_CORE_HEADERS}
  <QAccessibleWidget> <QApplication> <QHBoxLayout> <QKeyEvent> <QPainter> <QVBoxLayout> <QWidget>)
set(AMBREL_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h>)

set(AMBREL_STANDARD_LIBRARIES)
set(AMBREL_CORE_LIBRARIES Qt6::Core)
set(AMBREL_WIDGETS_LIBRARIES Qt6::Widgets)
set(AMBREL_TEST_LIBRARIES GTest::gmock)

# ambrel_precompile_headers(TARGET STANDARD|CORE|WIDGETS [TEST])
# STANDARD: the headers of the C++ library. CORE: those and Qt Core's. WIDGETS: those and Qt Widgets'.
# TEST: the headers of GoogleTest as well.
function(ambrel_precompile_headers target kind)
  # What GCC writes for these headers depends on the addresses of that one run, and now and then the debug information of
  # what is compiled with them differs. A package must be the same every time.
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR AMBREL_BUILD_FOR_PACKAGE)
    return()
  endif()
  # Executables are compiled as PIE and libraries as PIC, unless Qt requires PIC for both.
  get_target_property(type ${target} TYPE)
  set(position PIC)
  if(type STREQUAL "EXECUTABLE")
    set(position PIE)
  endif()
  get_directory_property(options COMPILE_OPTIONS)
  string(SHA256 flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_RELWITHDEBINFO} ${options}")
  string(SUBSTRING ${flags} 0 8 flags)
  string(MAKE_C_IDENTIFIER "AmbrelHeaders_${kind}_${ARGN}_${position}_${flags}" provider)
  if(NOT TARGET ${provider})
    add_library(${provider} OBJECT ${CMAKE_SOURCE_DIR}/CMake/PrecompiledHeaders.cpp)
    target_link_libraries(${provider} PRIVATE AmbrelOptions ${AMBREL_${kind}_LIBRARIES})
    target_precompile_headers(${provider} PRIVATE ${AMBREL_${kind}_HEADERS})
    if("TEST" IN_LIST ARGN)
      target_link_libraries(${provider} PRIVATE ${AMBREL_TEST_LIBRARIES})
      target_precompile_headers(${provider} PRIVATE ${AMBREL_TEST_HEADERS})
    endif()
    if(position STREQUAL "PIE")
      set_target_properties(${provider} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
      target_compile_options(${provider} PRIVATE -fPIE)
    endif()
  endif()
  target_precompile_headers(${target} REUSE_FROM ${provider})
endfunction()

# Without it, ccache recompiles all of these sources every time.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache")
  target_compile_options(AmbrelOptions INTERFACE -fpch-preprocess)
endif()
