// The user's hand: keys and clicks, each as the messages that the system would make of them.
//
// Every one of these may find at its end that the window has gone: what is listened in on can do
// anything.
#pragma once

#include "platform/window_types.h"

#include <string>
#include <string_view>

namespace corvel::practice {

class Client;
class RoomWindow;

// Characters, one message each. Stops when the window goes.
void TypeText(Client& client, Window window, std::string_view text);
// A key by its name: enter, tab, backspace, escape, delete, up, down; with "ctrl+" in front, which
// a letter can have too, Control is held meanwhile. False: no such key.
bool PressKey(Client& client, Window window, std::string_view name);
void Click(Client& client, Window icon);
// On the row of this person; false if nobody of that name is in the room.
bool RightClickPerson(Client& client, RoomWindow& room, std::string_view person);
// Where typing goes: the client's text window with the focus, else the chat input; 0 for neither.
Window TypingTarget(Client& client);

}  // namespace corvel::practice
