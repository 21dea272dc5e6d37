// A program file opened for its resources, as data only: none of its code runs. Closed with the object.
#pragma once

#include <string>

#include "platform/Modules.h"

namespace icons {

// How far reading a resource came, and its bytes when it came all the way. They live as long as the module.
struct Resource {
    enum class Reached { Nothing, Found, Loaded, Locked };
    Reached reached = Reached::Nothing;
    platform::ByteSpan bytes;
};

class ModuleFile {
public:
    ModuleFile(platform::Modules& modules, const std::string& file)
        : modules_(modules), module_(modules.LoadLibraryExA(file)) {}
    ~ModuleFile() {
        if (module_) modules_.FreeLibrary(module_);
    }
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;

    bool opened() const { return module_ != 0; }
    platform::Module handle() const { return module_; }
    Resource read(const platform::ResourceId& name, const platform::ResourceId& type) const;

private:
    platform::Modules& modules_;
    platform::Module module_;
};

// How identifiers are written in icon references: decimal text, with or without leading zeros, is a number
// ("0018" is 18), anything else a name. A number no resource can have stays a name, which no resource has either.
platform::ResourceId toIdentifier(const std::string& text);
std::string toText(const platform::ResourceId& identifier);

}  // namespace icons
