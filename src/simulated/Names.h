// Names as the system compares them, and lists of named things.
#pragma once

#include <algorithm>
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

// Things with a unique `name`, or pointers to such, in the order of their names, whose case does not matter.
template <class T>
class NamedList {
public:
    std::size_t size() const { return all_.size(); }
    bool empty() const { return all_.empty(); }
    const T& at(std::size_t index) const { return all_[index]; }
    const std::vector<T>& all() const { return all_; }

    // Null when there is none with this name. What is found is where it is until the next change.
    T* find(std::string_view name) {
        const std::size_t place = placeOf(name);
        return isAt(place, name) ? &all_[place] : nullptr;
    }
    // `make` makes one with this name when there is none.
    template <class Make>
    T& findOrAdd(std::string_view name, Make&& make) {
        const std::size_t place = placeOf(name);
        if (!isAt(place, name)) all_.insert(all_.begin() + static_cast<std::ptrdiff_t>(place), make());
        return all_[place];
    }
    void remove(const T* item) { all_.erase(all_.begin() + (item - all_.data())); }

private:
    static const std::string& nameOf(const T& item) {
        if constexpr (requires { item->name; })
            return item->name;
        else
            return item.name;
    }
    bool isAt(std::size_t place, std::string_view name) const {
        return place < all_.size() && same(nameOf(all_[place]), name);
    }
    // Most things come in the order of their names.
    std::size_t placeOf(std::string_view name) const {
        if (all_.empty() || before(nameOf(all_.back()), name)) return all_.size();
        const auto place = std::lower_bound(all_.begin(), all_.end(), name,
                                            [](const T& item, std::string_view n) { return before(nameOf(item), n); });
        return static_cast<std::size_t>(place - all_.begin());
    }

    std::vector<T> all_;
};

}  // namespace simulated
