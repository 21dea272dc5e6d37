// Program files and what they hold: resources, icons, strings.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "platform/Registry.h"

namespace platform {

// A resource's type or name: a number (MAKEINTRESOURCE) or text. The text "#100" means the number 100.
using ResourceId = std::variant<std::uint16_t, std::string>;

// Resource types the program reads (winuser.h).
enum : std::uint16_t { RtBitmap = 2, RtIcon = 3, RtString = 6, RtGroupIcon = 14 };

using Module = std::uintptr_t;        // 0 is no module
using ResourceInfo = std::uintptr_t;  // 0 is no resource
using ResourceData = std::uintptr_t;  // 0 is no data
using IconHandle = std::uintptr_t;    // 0 is no icon

class Modules {
public:
    virtual ~Modules() = default;

    // As data only: no code of the file runs. A file without a path is searched as the system searches libraries.
    virtual Module LoadLibraryExA(const std::string& file) = 0;
    virtual void FreeLibrary(Module module) = 0;

    virtual ResourceInfo FindResourceA(Module module, const ResourceId& name, const ResourceId& type) = 0;
    virtual ResourceData LoadResource(Module module, ResourceInfo info) = 0;
    // The bytes live as long as the module is loaded. An empty span without data pointer is a failure.
    virtual std::span<const std::uint8_t> LockResource(Module module, ResourceInfo info, ResourceData data) = 0;

    // In the order of the file. A code other than Success leaves what was found so far.
    virtual Result EnumResourceTypesA(Module module, std::vector<ResourceId>& types) = 0;
    virtual Result EnumResourceNamesA(Module module, const ResourceId& type, std::vector<ResourceId>& names) = 0;

    // "" when there is no such string.
    virtual std::string LoadStringA(Module module, std::uint32_t number) = 0;

    // The number of icon groups in a program file or icons in an icon file; 0 for anything else.
    virtual std::uint32_t countIcons(const std::string& path) = 0;

    // A system icon made from one stored icon image (header, colours and masks as in a resource of type RtIcon).
    // 0 when the image is damaged.
    virtual IconHandle CreateIconFromResource(std::span<const std::uint8_t> image, int width, int height) = 0;
    virtual void DestroyIcon(IconHandle icon) = 0;

    // The system's text for a result code, without line end; "" when it has none.
    virtual std::string FormatMessageA(Result code) = 0;
    // The code of the last failed call of this interface.
    virtual Result lastError() const = 0;
};

// Global memory: blocks handed to the system.
class Memory {
public:
    using Block = std::uintptr_t;  // 0 is no block

    virtual ~Memory() = default;
    virtual Block GlobalAlloc(std::size_t bytes) = 0;  // zeroed; 0 when there is not enough memory
    virtual std::uint8_t* GlobalLock(Block block) = 0;
    virtual void GlobalUnlock(Block block) = 0;
    virtual void GlobalFree(Block block) = 0;
};

}  // namespace platform
