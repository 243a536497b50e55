# Compiler settings that every target shares, and the helpers that the folders use.

option(QUILLARY_TESTS "Build the tests" ON)
option(QUILLARY_BENCH "Build the benchmarks" ON)
option(QUILLARY_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(QUILLARY_FUZZ "Build the fuzz targets only (clang)" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

find_program(QUILLARY_CCACHE ccache)
if(QUILLARY_CCACHE)
  # Precompiled headers hash only with these allowances; hash_dir off lets two build folders share.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    CCACHE_NOHASHDIR=1 ${QUILLARY_CCACHE})
endif()

add_library(QuillaryWarnings INTERFACE)
target_compile_options(QuillaryWarnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
  -Wcast-align -Wextra-semi)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # ccache and precompiled headers: without it GCC's preprocessed text hides the precompiled header.
  target_compile_options(QuillaryWarnings INTERFACE -fpch-preprocess -Wlogical-op -Wduplicated-cond
    # False alarms of GCC 12 on optimised string concatenation (GCC bug 105651).
    $<$<CONFIG:Release>:-Wno-restrict>
    $<$<CONFIG:Release>:-Wno-stringop-overflow>
    $<$<CONFIG:Release>:-Wno-array-bounds>)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Some libraries ask for it and some don't; a precompiled header serves only sources that agree on it.
  add_compile_options(-pthread)
  add_link_options(-pthread)
endif()

# Linkers that are faster than the default one, best first. The program itself is linked by the default.
find_program(QUILLARY_FAST_LINKER NAMES ld.lld ld.gold)
function(quillary_link_fast)
  if(QUILLARY_FAST_LINKER AND NOT APPLE)
    get_filename_component(name ${QUILLARY_FAST_LINKER} NAME)
    string(REPLACE "ld." "" name ${name})
    add_link_options(-fuse-ld=${name})
  endif()
endfunction()

if(QUILLARY_SANITIZE)
  quillary_link_fast()
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Compile settings of one of our own targets: warnings as errors, includes from the root of the repository.
function(quillary_target target)
  target_link_libraries(${target} PRIVATE QuillaryWarnings)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII
                                               QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER)
endfunction()

# Precompiles headers that include Qt's, once, for all targets that name this one in target_precompile_headers(REUSE_FROM).
#
# The headers are few because GCC reads a precompiled header as a whole: with all of Qt in it, most sources compile
# slower than without any.
function(quillary_precompiled_headers target)
  set(empty ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
  file(CONFIGURE OUTPUT ${empty} CONTENT "")
  add_library(${target} OBJECT ${empty})
  quillary_target(${target})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
  # Not linked to Qt: that defines a name for each library, which the targets that use few of them would lack.
  foreach(library Core Gui Widgets)
    target_include_directories(${target} SYSTEM PRIVATE
      $<TARGET_PROPERTY:Qt6::${library},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  target_compile_definitions(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG>)
  target_precompile_headers(${target} PRIVATE ${ARGN})
endfunction()

# Gives a Qt target of the program the precompiled headers that all of them share.
function(quillary_precompile_qt target)
  target_precompile_headers(${target} REUSE_FROM QuillaryPrecompiledQt)
endfunction()

# Gives a Qt target of the tests the precompiled headers that all of them share, GoogleTest's included.
function(quillary_precompile_tests target)
  target_precompile_headers(${target} REUSE_FROM QuillaryPrecompiledTests)
endfunction()
