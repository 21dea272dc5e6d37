# What both Windows builds have in common, and what the released one has on top.

enable_language(RC)

# Everything is declared as in the oldest Windows the program runs on, in both builds: a newer structure or function
# then fails to compile, not to start.
set(oldest_windows WINVER=0x0400 _WIN32_WINNT=0x0400 _WIN32_WINDOWS=0x0410 _WIN32_IE=0x0400)

add_link_options(-static)
set(CMAKE_CXX_FLAGS_DEBUG "-O1")
set(CMAKE_CXX_FLAGS_MINSIZEREL "-Os -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_MINSIZEREL}")  # not faster than what people get

if(CMAKE_BUILD_TYPE STREQUAL MinSizeRel)
    add_compile_options(-march=i586 -mpreferred-stack-boundary=2 -fno-threadsafe-statics -ffunction-sections
        -fdata-sections -fno-ident)
    # The whole program at once takes 130 KB less: what is inlined everywhere is kept nowhere, and every function that
    # is gone takes its unwind table along. In several parts, or with this analysis, GCC 12 crashes on std::function.
    add_compile_options(-flto -fno-ipa-modref)
    add_link_options(-flto-partition=one)
    # The version fields are what the loaders of Windows 95 and NT 4 look at.
    add_link_options(-s -Wl,--gc-sections -Wl,--major-os-version,4 -Wl,--minor-os-version,0 -Wl,--disable-dynamicbase
        -Wl,--disable-reloc-section -Wl,--disable-nxcompat)
    set(subsystem -Wl,--subsystem,windows:4.0)
endif()
add_link_options(-Wl,--no-insert-timestamp)
# Archives carry no times and no owners.
set(CMAKE_CXX_ARCHIVE_CREATE "<CMAKE_AR> qcD <TARGET> <LINK_FLAGS> <OBJECTS>")
set(CMAKE_CXX_ARCHIVE_FINISH "<CMAKE_RANLIB> -D <TARGET>")
