// What the rules look at in a file: its code without comments and without what stands in literals,
// and its directives, however they are written.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvel::tidy {

// A line for the preprocessor, with its line ends joined and its comments gone.
struct Directive {
  std::size_t line = 0;  // from 1
  std::string name;      // "include", "if", ...
  std::string rest;      // "<string>", "\"base/text.h\"", "defined(X)"
};

struct SourceText {
  std::string code;  // as long as the text, blanks for what has been taken out
  std::vector<Directive> directives;
  std::size_t LineOf(std::size_t offset) const;  // from 1; of a place in `code`

  std::vector<std::size_t> lineStarts;
};

SourceText ReadSource(const std::string& text);

bool IsWordCharacter(char c);  // of a name or a number

}  // namespace corvel::tidy
