// Names as the system compares them, and lists of named things.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace simulated {

// Lower case in code page 1252.
inline unsigned char fold(char c) {
    const auto u = static_cast<unsigned char>(c);
    if (u >= 'A' && u <= 'Z') return static_cast<unsigned char>(u + 32);
    if (u >= 0xC0 && u <= 0xDE && u != 0xD7) return static_cast<unsigned char>(u + 32);
    return u;
}

inline std::string fold(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (const char c : text) folded.push_back(static_cast<char>(fold(c)));
    return folded;
}

// By bytes, not by a language's rules: "10" stands before "2", "_" before "A".
inline bool before(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return fold(x) < fold(y); });
}

inline bool same(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return fold(x) == fold(y); });
}

// Things with a unique `name`, whose case does not matter, in the order of their names.
template <class T>
class NamedList {
public:
    std::size_t size() const { return all_.size(); }
    bool empty() const { return all_.empty(); }
    const std::shared_ptr<T>& at(std::size_t index) const { return all_[index]; }
    std::shared_ptr<T> find(std::string_view name) const {
        const auto place = placeOf(name);
        return place != all_.end() && same((*place)->name, name) ? *place : nullptr;
    }
    void add(std::shared_ptr<T> item) { all_.insert(placeOf(item->name), std::move(item)); }
    void remove(const std::shared_ptr<T>& item) { std::erase(all_, item); }
    const std::vector<std::shared_ptr<T>>& all() const { return all_; }

private:
    auto placeOf(std::string_view name) const {
        return std::lower_bound(all_.begin(), all_.end(), name,
                                [](const auto& item, std::string_view n) { return before(item->name, n); });
    }

    std::vector<std::shared_ptr<T>> all_;
};

}  // namespace simulated
