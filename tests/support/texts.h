// texts.txt: what people are to read.
#pragma once

#include <set>
#include <string>

namespace texts {

// The lines about a form, or of the log: those that begin with that word.
std::set<std::string> linesOf(const std::string& form);
// A message by its name, with what is inserted where it has "{}": "new zone exists|6". What is no name is a text.
std::string message(const std::string& nameAndParts);
// Whether it is a message's, whatever is inserted.
bool isMessage(const std::string& text);

}  // namespace texts
