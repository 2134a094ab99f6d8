// From a name in the wav list to a line in a chat room, or to the sound code in an IM or a mail.
//
// The whole send goes on at the next statement where one fails. It waits (0.3 seconds before a
// description) with events going on, so timers and further sends can run inside.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "fader/modFade.h"

#include <string>
#include <vector>

namespace corvel {

// How the sound code is wrapped.
struct GarlandChoice {
  bool on = false;
  bool random = false;  // drawn from `styles`; else the current one
  const std::vector<std::string>& styles;
};

class WavSender {
 public:
  WavSender(Program& program, AolClient& client, Fader& fader)
      : program_(program), client_(client), fader_(fader) {}

  // Into the mail or IM that stands on top, else into the chat room. `owner` is the window of ours
  // that opens the clipboard for the former.
  void Send(const std::string& name, const GarlandChoice& garland, Window owner);
  // Into the chat input box, unsent.
  void SendWavToText(const std::string& name);
  // Pastes the code at the caret of a rich text control of the client. The clipboard's mail text is
  // kept, whatever else it held is lost.
  void InsertWavCode(Window control, const std::string& name, Window owner);

 private:
  bool SendToWindowOnTop(const std::string& name, Window owner);
  Window WindowToWriteIn();
  void SendToRoom(const std::string& name, const GarlandChoice& garland);
  std::string RoomLine(const std::string& name, const GarlandChoice& garland);
  std::string ChooseStyle(const GarlandChoice& garland);
  void SendDescription(const std::string& name, Window input);
  void Say(std::string text, bool faded, Window input);

  Program& program_;
  AolClient& client_;
  Fader& fader_;
};

}  // namespace corvel
