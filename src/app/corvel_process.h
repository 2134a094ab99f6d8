// CorvelProcess: the whole program as one process of whatever home it runs on, and its composition:
// each feature joins the hub through its door, and knows those below it only.
#pragma once

#include "aolbridge/aolclient.h"
#include "app/fader_switch.h"
#include "core/program.h"
#include "fader/modFade.h"
#include "shell/shell.h"
#include "voice/room_voice.h"
#include "wavlib/wavlib.h"

namespace corvel {

class CorvelProcess {
 public:
  explicit CorvelProcess(Platform& platform);  // which outlives it

  // Runs Main. Afterwards the program lives on events, or has refused to start: then Finished.
  void Start();
  // The user's session ends, in the middle of whatever runs: the way down, without a question. What
  // waits below unwinds afterwards, as when the client has vanished.
  void EndSession();
  // The program has ended by itself: it has refused to start, or its last window has gone and none
  // of its procedures is running any more. Asked after each event.
  bool Finished() const;

 private:
  Program program_;
  AolClient client_;
  Fader fader_;
  FaderSwitch faderSwitch_;
  RoomVoice voice_;
  WavLibrary wavLibrary_;
  ShellFeature shell_;
  bool running_ = false;
};

}  // namespace corvel
