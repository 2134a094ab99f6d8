// What whoever plays the user and the service can ask of the client, in words.
#pragma once

#include "practice/commands/reply.h"

#include <string>
#include <vector>

namespace corvel::practice {

class Client;

Reply DoCommand(Client& client, const std::vector<std::string>& words);
Reply AnswerQuestion(Client& client, const std::vector<std::string>& words);

}  // namespace corvel::practice
