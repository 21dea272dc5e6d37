# 32-bit Windows from 95 on: the program people get.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
# This flavour brings no thread library with it, and so none of the functions that old Windows lacks for it.
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-win32)
# These see what is in an object that is still to be optimised with the whole program.
set(CMAKE_AR /usr/bin/i686-w64-mingw32-gcc-ar-win32 CACHE FILEPATH "")
set(CMAKE_RANLIB /usr/bin/i686-w64-mingw32-gcc-ranlib-win32 CACHE FILEPATH "")
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
# What runs a program for this system.
set(CMAKE_CROSSCOMPILING_EMULATOR env WINE_BITS=32 ${CMAKE_CURRENT_LIST_DIR}/../tools/run-on-wine.sh)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
