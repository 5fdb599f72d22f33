# What every target of ours shares: the language level, the warnings, the sanitizers and hidden symbols.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

add_library(qz_build_options INTERFACE)
target_compile_features(qz_build_options INTERFACE cxx_std_20)
target_compile_options(qz_build_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                       $<$<BOOL:${QZ_WARNINGS_AS_ERRORS}>:-Werror>)
# g++ 12 takes the sum of a literal and a short string for overlapping memory.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(qz_build_options INTERFACE -Wno-restrict)
endif()
if(QZ_SANITIZE)
  target_compile_options(qz_build_options INTERFACE -fsanitize=${QZ_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(qz_build_options INTERFACE -fsanitize=${QZ_SANITIZE})
  # Checked code looks uninitialised to g++; clang does not know the warning.
  target_compile_options(qz_build_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

if(QZ_BUILD_FUZZERS) # a fuzzer is led by what the code that it calls reports
  target_compile_options(qz_build_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Calls within a shared library of ours go straight to their function and cannot be replaced from outside.
function(qz_bind_own_calls target)
  if(NOT WIN32)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
  endif()
endfunction()

# qz_target(NAME): applies the shared options to a target of ours.
function(qz_target target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:qz_build_options>)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden
                        VISIBILITY_INLINES_HIDDEN ON POSITION_INDEPENDENT_CODE ON)
endfunction()

# qz_shared_library(NAME MACRO FOLDER HEADERS): a shared library of ours, whose exported headers are the folder
# FOLDER below HEADERS, with an Export.h that defines MACRO. Installed libraries find each other.
function(qz_shared_library target macro folder headers)
  add_library(qzdescriptor::${target} ALIAS ${target})
  qz_target(${target})
  qz_bind_own_calls(${target})
  generate_export_header(${target} EXPORT_MACRO_NAME ${macro}
                         EXPORT_FILE_NAME ${PROJECT_BINARY_DIR}/include/${folder}/Export.h)
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                        INSTALL_RPATH $ORIGIN)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${headers}>
                                              $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endfunction()
