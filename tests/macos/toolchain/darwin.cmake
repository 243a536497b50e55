# Cross-compiles to macOS with the compiler that scripts/check-macos installed. Nothing built this way is ever run.
#
# QUILLARY_MACOS_CACHE is the folder of that compiler, QUILLARY_MACOS_ARCHITECTURE is aarch64 or x86_64.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${QUILLARY_MACOS_ARCHITECTURE})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUILLARY_MACOS_CACHE QUILLARY_MACOS_ARCHITECTURE)

set(tools ${QUILLARY_MACOS_CACHE}/tools)
foreach(language C CXX OBJC OBJCXX)
  set(CMAKE_${language}_COMPILER ${tools}/c++-${QUILLARY_MACOS_ARCHITECTURE})
endforeach()
set(CMAKE_C_COMPILER ${tools}/cc-${QUILLARY_MACOS_ARCHITECTURE})
set(CMAKE_OBJC_COMPILER ${CMAKE_C_COMPILER})
set(CMAKE_AR ${tools}/ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${tools}/ranlib CACHE FILEPATH "")
# Not used by anything built here; without a value CMake looks for Apple's.
set(CMAKE_INSTALL_NAME_TOOL ${tools}/ranlib CACHE FILEPATH "")
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")

# In the place of the SDK's own headers.
foreach(language CXX OBJCXX)
  set(CMAKE_${language}_STANDARD_INCLUDE_DIRECTORIES ${CMAKE_CURRENT_LIST_DIR}/../declarations)
endforeach()

# Nothing of this machine's may be found by chance: what is needed is named in modules/.
set(CMAKE_FIND_ROOT_PATH ${QUILLARY_MACOS_CACHE}/include)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/modules)
