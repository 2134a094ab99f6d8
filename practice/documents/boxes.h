// Modal windows and the small documents: about box, upload, refusals, member profiles, Locate.
#pragma once

#include "practice/client/document.h"

#include <functional>
#include <string>

namespace corvel::practice {

// A top-level `_AOL_MODAL` window, owned by the frame. A click on any of its icons or buttons
// closes it. `whenGone` runs once, however it goes.
Window OpenModal(Client& client, std::string caption, std::function<void()> whenGone = {});

// Gives its controls their places, once they are all there.
void ArrangeModal(Client& client, Window modal);

// The about box, which comes after the delay. Closing it ends a stuck hourglass.
void OpenAbout(Client& client);

// "Untitled": an empty document to write in, with its row of buttons.
void OpenUntitled(Client& client);

// The window that asks for a name, and then shows the profile or says that there is none.
void OpenGetProfile(Client& client);

// Where a member is: the Locate window, or a box if not online.
void OpenLocate(Client& client, const std::string& name);

// "Invitation From: NAME".
void OpenInvitation(Client& client, const std::string& name);

// An upload blocks the client with its gauge until it ends.
void BeginUpload(Client& client);
void EndUpload(Client& client);

// The notice that a room is full.
void OpenRoomFull(Client& client, const std::string& room);

}  // namespace corvel::practice
