// The standard library's exception classes for the 32-bit program, as its headers declare them, each with a copy of its
// text. The library's own definitions keep the text in the old reference-counted string, and the first use of one links
// 80 KB of that string's code into the program.
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

namespace std {

namespace {

// Without memory for the text, the exception has none.
const char* copied(const char* text, size_t length) {
    auto* const copy = text ? static_cast<char*>(std::malloc(length + 1)) : nullptr;
    if (!copy) return nullptr;
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}
const char* copied(const char* text) {
    return copied(text, text ? std::strlen(text) : 0);
}

}  // namespace

__cow_string::__cow_string(const string& text) : _M_p(copied(text.c_str(), text.size())) {}
__cow_string::__cow_string(const char* text, size_t length) : _M_p(copied(text, length)) {}
__cow_string::__cow_string(const __cow_string& other) noexcept : _M_p(copied(other._M_p)) {}
__cow_string::~__cow_string() {
    std::free(const_cast<char*>(_M_p));
}

logic_error::logic_error(const char* text) : _M_msg(text, std::strlen(text)) {}
logic_error::logic_error(const logic_error&) noexcept = default;
logic_error::~logic_error() noexcept = default;
const char* logic_error::what() const noexcept {
    return _M_msg._M_p ? _M_msg._M_p : "";
}
out_of_range::out_of_range(const char* text) : logic_error(text) {}
out_of_range::~out_of_range() noexcept = default;
length_error::length_error(const char* text) : logic_error(text) {}
length_error::~length_error() noexcept = default;

runtime_error::runtime_error(const string& text) : _M_msg(text) {}
runtime_error::runtime_error(const runtime_error&) noexcept = default;
runtime_error::~runtime_error() noexcept = default;
const char* runtime_error::what() const noexcept {
    return _M_msg._M_p ? _M_msg._M_p : "";
}

// What strings and vectors call to throw.
void __throw_bad_alloc() {
    throw bad_alloc();
}
void __throw_bad_array_new_length() {
    throw bad_array_new_length();
}
void __throw_logic_error(const char* text) {
    throw logic_error(text);
}
void __throw_length_error(const char* text) {
    throw length_error(text);
}
void __throw_out_of_range(const char* text) {
    throw out_of_range(text);
}
void __throw_out_of_range_fmt(const char* text, ...) {
    throw out_of_range(text);  // without the numbers that the library puts into it
}

}  // namespace std
