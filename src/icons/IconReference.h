// Where a zone's icon is: a program file and the number or name of an icon in it, stored as "inetcpl.cpl#00004480".
#pragma once

#include <optional>
#include <string>

#include "platform/Platform.h"

namespace icons {

struct IconReference {
    std::string file;
    std::string resource;  // as it is stored, leading zeros and all

    std::string text() const { return file + "#" + resource; }
    platform::ResourceId identifier() const;
    // Whether it says where an icon is; whether there is one is another question.
    bool isUsable() const { return !file.empty() && !resource.empty(); }

    friend bool operator==(const IconReference&, const IconReference&) = default;
};

// Cuts at the first separator, as the browser does: no path of a zone's icon can contain a "#". Nothing without a
// separator, or with a quotation mark, which no file's name contains.
std::optional<IconReference> parseReference(const std::string& text, const std::string& separator = "#");

// The program's own first icon.
IconReference defaultReference(platform::Platform& platform);
// What a zone's stored "Icon" stands for: the default where it cannot be parsed. The default is known again by its
// whole text, for the program may have been put into a folder whose name contains a "#".
IconReference referenceOrDefault(platform::Platform& platform, const std::string& stored);

}  // namespace icons
