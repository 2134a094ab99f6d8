// UsersTurn: the start needs something that only the user can do, in the client.
//
// The start holds the client still, and nothing of the program but the splash is there yet. While
// this stands the client takes its user's input again, the splash says what is waited for, and a
// button there ends the program. After the start it does nothing: the client is free and the
// program has its other ways out.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>

namespace corvel {

class UsersTurn {
 public:
  UsersTurn(Program& program, std::string_view request);
  ~UsersTurn();
  UsersTurn(const UsersTurn&) = delete;
  UsersTurn& operator=(const UsersTurn&) = delete;

 private:
  Program& program_;
  bool duringStart_;
  std::string before_;  // what the splash has said
};

}  // namespace corvel
