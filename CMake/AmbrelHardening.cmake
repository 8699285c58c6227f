# Compiler and linker options that make memory errors harder to exploit, for every target of this project.
# Tests/Hardening checks the built programs for all of them. Not used with sanitizers, which replace the same functions
# with stricter ones.

include(CheckPIESupported)
check_pie_supported(OUTPUT_VARIABLE pie_problem LANGUAGES CXX)
if(NOT CMAKE_CXX_LINK_PIE_SUPPORTED)
  message(FATAL_ERROR "Programs that can be loaded at any address cannot be linked here: ${pie_problem}")
endif()

add_library(AmbrelHardening INTERFACE)
if(AMBREL_SANITIZER)
  return()
endif()

target_compile_definitions(AmbrelHardening INTERFACE _GLIBCXX_ASSERTIONS)
target_compile_options(AmbrelHardening INTERFACE -fstack-protector-strong)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  # The C library can check sizes only in optimized code. A flag, so that tests can undo it.
  string(APPEND CMAKE_CXX_FLAGS " -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
  target_compile_options(AmbrelHardening INTERFACE -fcf-protection=full)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
  target_compile_options(AmbrelHardening INTERFACE -mbranch-protection=standard)
endif()
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  target_compile_options(AmbrelHardening INTERFACE -fstack-clash-protection)
  target_link_options(AmbrelHardening INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    # Set explicitly, since Debian's start files do not declare it, although they only call and return. Indirect branch
    # tracking cannot be declared: _start and _init have no landing pad.
    target_link_options(AmbrelHardening INTERFACE LINKER:-z,shstk)
  endif()
endif()
