# 64-bit Windows, and Wine without its 32-bit half: where the tests run.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
# The name without a suffix may be the flavour without std::mutex, which GoogleTest needs.
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
# What runs a program for this system.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/run-on-wine.sh)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
