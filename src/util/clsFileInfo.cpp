#include "util/clsFileInfo.h"

#include "util/basSystem.h"
#include "util/characters.h"

clsFileInfo::clsFileInfo(platform::Platform& platform, std::string path) : platform_(platform), path_(std::move(path)) {
    const auto separator = util::findLast(path_, "\\/:");
    name_ = separator == std::string::npos ? 0 : separator + 1;
    const auto point = path_.rfind('.');
    point_ = point == std::string::npos || point < name_ ? path_.size() : point;
}

std::string clsFileInfo::Folder() const {
    return path_.substr(0, name_);
}

std::string clsFileInfo::Name() const {
    return path_.substr(name_);
}

std::string clsFileInfo::BaseName() const {
    return path_.substr(name_, point_ - name_);
}

std::string clsFileInfo::Extension() const {
    return point_ == path_.size() ? std::string() : path_.substr(point_ + 1);
}

bool clsFileInfo::Exists() const {
    return basSystem::FileExists(platform_, path_);
}
