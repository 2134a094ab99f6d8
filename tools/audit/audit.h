// Whether a program would load on Windows 95 and 98.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::audit {

// What may be imported: "library!function", and libraries of our own with anything they have.
struct Allowed {
  std::set<std::string> functions;
  std::set<std::string> ownLibraries;
};

// The list of allowed imports: a line for each, '#' begins a remark, a word behind a name is one.
std::set<std::string> ReadList(std::string_view text);

// A sentence for each reason why it wouldn't, without the file's name; none if all is well. Any
// bytes are taken.
std::vector<std::string> Complaints(std::string_view program, const Allowed& allowed);

}  // namespace corvel::audit
