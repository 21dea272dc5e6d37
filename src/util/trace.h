// The procedure trace and the error object, both program-wide, and the trap's way to report an error.
//
// What is trapped or raised is handed to the reporter that the program has registered; without one it is only recorded
// in Err.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace basErrors {

// The last error raised, trapped or recorded.
struct ErrObject {
    std::uint32_t number = 0;  // 0 is no error
    std::string source;
    std::string description;
    void clear() { *this = {}; }
};
extern ErrObject Err;
extern std::string ErrLine;                 // line-number text of the last trapped error: code without lines gives "0"
extern std::vector<const char*> ProcStack;  // names of the running procedures, outermost first; literals
extern std::int32_t ProcCount;              // entries of ProcStack

void TracePush(const char* name);  // `name` lives as long as the program
void TracePop();

// Shows Err to the user and logs it. Null while there is none.
using Reporter = void (*)();
extern Reporter reporter;

// Hands Err to the reporter; nothing when its number is 0.
void ShowError();

}  // namespace basErrors
