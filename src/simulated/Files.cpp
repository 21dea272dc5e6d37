#include "simulated/Files.h"

#include <algorithm>

#include "simulated/Names.h"

namespace simulated {

using namespace platform;

namespace {

constexpr std::uint32_t AttributeArchive = 32;

// The parts of a path: drive, folders, name. A path without drive begins at the root of drive C.
std::vector<std::string> partsOf(const std::string& path) {
    std::vector<std::string> parts(1);
    for (const char c : std::string_view(path.c_str())) {
        if (c != '\\' && c != '/')
            parts.back().push_back(c);
        else if (!parts.back().empty())
            parts.emplace_back();
    }
    if (parts.back().empty()) parts.pop_back();
    std::erase(parts, ".");
    if (parts.empty() || parts[0].size() != 2 || parts[0][1] != ':') parts.insert(parts.begin(), "C:");
    return parts;
}

// "*" is any text, "?" any character.
bool matches(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == '*') {
        for (std::size_t skipped = 0; skipped <= name.size(); ++skipped)
            if (matches(name.substr(skipped), pattern.substr(1))) return true;
        return false;
    }
    if (name.empty() || (pattern[0] != '?' && fold(pattern[0]) != fold(name[0]))) return false;
    return matches(name.substr(1), pattern.substr(1));
}

}  // namespace

struct Files::Node {
    std::string name;
    bool folder = false;
    std::string bytes;
    std::vector<std::unique_ptr<Node>> children;  // as they were made: no search comes sorted

    Node* find(std::string_view child) const {
        const auto found = std::ranges::find_if(children, [&](const auto& node) { return same(node->name, child); });
        return found == children.end() ? nullptr : found->get();
    }
    Node& add(const std::string& child, bool isFolder) {
        children.push_back(std::make_unique<Node>());
        children.back()->name = child;
        children.back()->folder = isFolder;
        return *children.back();
    }
    std::uint32_t attributes() const { return folder ? FileAttributeDirectory : AttributeArchive; }
};

// Where a path leads: `node` is what is there, `folder` what holds it or would. No folder: the way there is missing.
struct Files::Place {
    Node* folder = nullptr;
    Node* node = nullptr;
    std::string name;
    Result missing() const { return folder ? FileNotFound : PathNotFound; }
};

Files::Files() : root_(std::make_unique<Node>()) {
    root_->folder = true;
    root_->add("C:", true);
}

Files::~Files() = default;

Files::Place Files::place(const std::string& path) const {
    const std::vector<std::string> parts = partsOf(path);
    Place place;
    place.node = root_.get();
    for (const std::string& part : parts) {
        place.folder = place.node && place.node->folder ? place.node : nullptr;
        if (!place.folder) return {};
        place.node = place.folder->find(part);
        place.name = part;
    }
    return place;
}

void Files::addFolder(const std::string& path) {
    Node* node = root_.get();
    for (const std::string& part : partsOf(path)) {
        Node* child = node->find(part);
        node = child ? child : &node->add(part, true);
    }
}

void Files::addFile(const std::string& path, std::string_view bytes) {
    if (const std::size_t name = path.find_last_of("\\/"); name != std::string::npos) addFolder(path.substr(0, name));
    const Place there = place(path);
    Node& file = there.node ? *there.node : there.folder->add(there.name, false);
    file.bytes = bytes;
}

Result Files::findFirst(const std::string& pattern, Search& search, FoundFile& found) {
    search = 0;
    if (const auto code = watch.before("findFirst")) return *code;
    const std::size_t split = pattern.find_last_of("\\/:");
    const std::string folder = split == std::string::npos ? "" : pattern.substr(0, split + 1);
    std::string wildcard = split == std::string::npos ? pattern : pattern.substr(split + 1);
    const Place there = place(folder);
    if (!there.node || !there.node->folder || pattern.empty()) return PathNotFound;
    if (wildcard == "*.*") wildcard = "*";  // means every name, also one without a point

    Matches all;
    const bool isRoot = there.folder == root_.get();
    for (const char* dots : {".", ".."})
        if (!isRoot && wildcard == "*") all.push_back({dots, FileAttributeDirectory, lastWritten});
    for (const auto& child : there.node->children)
        if (matches(child->name, wildcard)) all.push_back({child->name, child->attributes(), lastWritten});
    if (all.empty()) return FileNotFound;

    std::ranges::reverse(all);
    search = ++next_;
    searches_.emplace(search, std::move(all));
    const Watch::Pause pause(watch);
    return findNext(search, found);
}

Result Files::findNext(Search search, FoundFile& found) {
    if (const auto code = watch.before("findNext")) return *code;
    const auto open = searches_.find(search);
    if (open == searches_.end()) return InvalidHandle;
    if (open->second.empty()) return NoMoreItems;
    found = std::move(open->second.back());
    open->second.pop_back();
    return Success;
}

void Files::findClose(Search search) {
    (void)watch.before("findClose");
    searches_.erase(search);
}

Result Files::attributes(const std::string& path, std::uint32_t& bits) {
    if (const auto code = watch.before("attributes")) return *code;
    if (path.empty()) return PathNotFound;
    const Place there = place(path);
    if (!there.node) return there.missing();
    bits = there.node->attributes();
    return Success;
}

Result Files::read(const std::string& path, std::string& bytes, std::size_t limit) {
    bytes.clear();
    if (const auto code = watch.before("read")) return *code;
    if (path.empty()) return PathNotFound;
    const Place there = place(path);
    if (!there.node) return there.missing();
    if (there.node->folder) return AccessDenied;
    bytes = there.node->bytes.substr(0, limit);
    return Success;
}

Result Files::fileToWrite(const std::string& path, Node*& file) {
    if (path.empty()) return PathNotFound;
    const Place there = place(path);
    if (!there.folder) return PathNotFound;
    if (there.node && there.node->folder) return AccessDenied;
    file = there.node ? there.node : &there.folder->add(there.name, false);
    return Success;
}

Result Files::create(const std::string& path, std::string_view bytes, std::uint32_t& written) {
    written = 0;
    if (const auto code = watch.before("create")) return *code;
    Node* file = nullptr;
    if (const Result code = fileToWrite(path, file); code != Success) return code;
    file->bytes = bytes;
    written = static_cast<std::uint32_t>(bytes.size());
    return Success;
}

Result Files::append(const std::string& path, std::string_view bytes, std::uint32_t& written) {
    written = 0;
    if (const auto code = watch.before("append")) return *code;
    Node* file = nullptr;
    if (const Result code = fileToWrite(path, file); code != Success) return code;
    file->bytes += bytes;
    written = static_cast<std::uint32_t>(bytes.size());
    return Success;
}

Result Files::remove(const std::string& path) {
    if (const auto code = watch.before("remove")) return *code;
    if (path.empty()) return PathNotFound;
    const Place there = place(path);
    if (!there.node) return there.missing();
    if (there.node->folder) return AccessDenied;
    std::erase_if(there.folder->children, [&](const auto& child) { return child.get() == there.node; });
    return Success;
}

Result Files::createFolder(const std::string& path) {
    if (const auto code = watch.before("createFolder")) return *code;
    if (path.empty()) return PathNotFound;
    const Place there = place(path);
    if (there.node) return AlreadyExists;
    if (!there.folder) return PathNotFound;
    there.folder->add(there.name, true);
    return Success;
}

}  // namespace simulated
