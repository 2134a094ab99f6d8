// The windows that a person at the client goes about by, which no program asks for: where to chat,
// whom to find, what came by mail.
#pragma once

namespace corvel::practice {

class Client;

// Each does nothing while signed off.
void OpenChatList(Client& client);      // rooms to enter, one of the user's own naming too
void OpenKeywordBox(Client& client);    // a target as `waol.exe -s` takes it
void OpenLocateBox(Client& client);     // asks for a name
void OpenEmptyCompose(Client& client);  // an IM to anybody
void OpenInbox(Client& client);         // a mail to read

}  // namespace corvel::practice
