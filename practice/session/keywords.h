// Keywords: where `waol.exe -sTARGET` sends the client.
#pragma once

#include <string_view>

namespace corvel::practice {

class Client;

// Goes to the target and notes that. A target that the practice client doesn't know is only noted,
// as a page that would have opened.
void GoToKeyword(Client& client, std::string_view target);

}  // namespace corvel::practice
