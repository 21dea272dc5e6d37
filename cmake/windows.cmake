# What both Windows builds have in common, and what the released one adds.

enable_language(RC)

# In both builds the system's headers declare only what the oldest Windows has: the use of a newer structure or function
# is an error when the program is compiled, not when it is started.
set(oldest_windows WINVER=0x0400 _WIN32_WINNT=0x0400 _WIN32_WINDOWS=0x0410 _WIN32_IE=0x0400)

# A terminal server would otherwise tell the program a Windows folder of the user's own. No data of ours is ever run.
add_link_options(-static -Wl,--tsaware -Wl,--nxcompat)
set(CMAKE_CXX_FLAGS_DEBUG "-O1")
set(CMAKE_CXX_FLAGS_MINSIZEREL "-Os -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_MINSIZEREL}")  # for benchmarks: what people get is measured

if(CMAKE_BUILD_TYPE STREQUAL MinSizeRel)
    add_compile_options(-march=i586 -mpreferred-stack-boundary=2 -fno-threadsafe-statics -ffunction-sections
        -fdata-sections -fno-ident)
    # Optimising the whole program at link time saves 130 KB: a function that is inlined at every call needs no code of
    # its own, and no unwind table. GCC 12 crashes on std::function when it does this in several partitions, or with the
    # analysis that is turned off here.
    add_compile_options(-flto -fno-ipa-modref)
    add_link_options(-flto-partition=one)
    # The loaders of Windows 95 and NT 4 refuse a program that asks for a later version.
    add_link_options(-Wl,--major-os-version,4 -Wl,--minor-os-version,0
        -Wl,--major-subsystem-version,4 -Wl,--minor-subsystem-version,0)
    add_link_options(-s -Wl,--gc-sections -Wl,--disable-dynamicbase -Wl,--disable-reloc-section)
endif()
add_link_options(-Wl,--no-insert-timestamp)
# Archives carry no times and no owners.
set(CMAKE_CXX_ARCHIVE_CREATE "<CMAKE_AR> qcD <TARGET> <LINK_FLAGS> <OBJECTS>")
set(CMAKE_CXX_ARCHIVE_FINISH "<CMAKE_RANLIB> -D <TARGET>")
