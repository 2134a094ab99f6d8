// What goes out for a name in the wav list: the line for a chat room, or the sound code for an IM
// or a mail. How it gets there is the voice's business.
//
// The whole send goes on at the next statement where one fails. It waits (0.3 seconds before a
// description) with events going on, so timers and further sends can run inside.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "voice/room_voice.h"

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
  WavSender(Program& program, AolClient& client, RoomVoice& voice)
      : program_(program), client_(client), voice_(voice) {}

  // Into the mail or IM that stands on top, else into the chat room. `owner` is the window of ours
  // that opens the clipboard for the former.
  void Send(const std::string& name, const GarlandChoice& garland, Window owner);
  // Into the chat input box, unsent.
  void SendWavToText(const std::string& name);
  // Pastes the code at the caret of a rich text control of the client, through the clipboard.
  void InsertWavCode(Window control, const std::string& name, Window owner);

 private:
  bool SendToWindowOnTop(const std::string& name, Window owner);
  Window WindowToWriteIn();
  void SendToRoom(const std::string& name, const GarlandChoice& garland);
  std::string RoomLine(const std::string& name, const GarlandChoice& garland);
  std::string ChooseStyle(const GarlandChoice& garland);
  void SendDescription(const std::string& name);

  Program& program_;
  AolClient& client_;
  RoomVoice& voice_;
};

}  // namespace corvel
