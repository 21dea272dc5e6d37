// The resources of a program file, by type and name, and the names of the resource types.
#pragma once

#include <string>
#include <vector>

#include "icons/ModuleFile.h"
#include "platform/Platform.h"

// A program file open for enumeration. Errors are those of basResouce.
class cResources {
public:
    cResources(platform::Platform& platform, const std::string& fileName);

    // In the order of the file; nothing when there are none.
    std::vector<platform::ResourceId> Types() const;
    std::vector<platform::ResourceId> Names(const platform::ResourceId& type) const;

    const icons::ModuleFile& module() const { return module_; }

    // "Group Icon" for 14, "Other (13)" for a number without a name; a type that is text is its own name.
    static std::string TypeName(const platform::ResourceId& type);

private:
    [[noreturn]] void raiseError(std::uint32_t number, const char* what, platform::Result code) const;
    void check(platform::Result code) const;

    platform::Platform& platform_;
    icons::ModuleFile module_;
};
