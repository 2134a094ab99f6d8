// How the program says a line of its own in the chat room.
//
// The line takes the same way as the user's: it is put into the chat input box and Enter is sent
// there. So the box, what the user has half typed in it and the program's own hook on it are in the
// way, and all of them come back. With no room the user is told, and nothing is said.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "fader/modFade.h"

#include <functional>
#include <string>

namespace corvel {

class RoomVoice {
 public:
  RoomVoice(Program& program, AolClient& client, Fader& fader)
      : program_(program), client_(client), fader_(fader) {}

  // A plain line, as if the user had typed it: what hooks the box hears its Enter. What he had half
  // typed is lost.
  void Say(const std::string& line);

  // The line with the mark-up of the current fade; as it came if that fails. With four colours and
  // more events happen meanwhile, so any hook or timer can run inside.
  std::string Faded(std::string line);

  // A line with mark-up. While it passes, the box is hidden, so that nobody sees the mark-up, and
  // isn't hooked. Then it shows again, and what the user had half typed stands in it, the caret
  // behind. No event happens meanwhile, but where there is no room to say it in.
  void SayUnseen(const std::string& markedUp);

  // Runs `speak`, which may wait, while the program hears nothing of what goes into the input box:
  // not its own lines, nor what the user types there. Afterwards the box is hooked again, also
  // behind an error, unless it has died, the room was left or changed, or the program ends. A call
  // within another leaves that to the outer one.
  void Unheard(const std::function<void()>& speak);

 private:
  void HearAgain(Window input);

  Program& program_;
  AolClient& client_;
  Fader& fader_;
};

}  // namespace corvel
