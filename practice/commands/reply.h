// An answer to a command or a question.
#pragma once

#include <string>
#include <vector>

namespace corvel::practice {

struct Reply {
  std::string error;  // what the user could not do ("no room is open"); "" if all is well
  std::vector<std::string> answers;  // of a question
};

}  // namespace corvel::practice
