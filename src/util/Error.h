// An unexpected error, after which a procedure cannot go on.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace util {

// A number, the part of the program it comes from, and a text for the user.
class Error : public std::runtime_error {
public:
    Error(std::uint32_t number, std::string source, const std::string& description)
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}
    std::uint32_t number() const { return number_; }  // shown as a signed decimal
    const std::string& source() const { return source_; }

private:
    std::uint32_t number_;
    std::string source_;
};

// Numbers of errors that have no better one.
enum ErrorNumber : std::uint32_t {
    NumberOutOfMemory = 7,
    NumberOutOfRange = 9,  // an item or element that is not there
    NumberNotANumber = 13,
    NumberInternal = 51,
    NumberFileNotFound = 53,
    NumberFileAccess = 75,  // a file or folder that cannot be read, written or made
};

}  // namespace util
