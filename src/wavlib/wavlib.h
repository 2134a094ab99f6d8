// The wav library's door: wav categories, the wav list and what it sends, wav descriptions. Its
// commands are "Wav List", "Wav Descriptions" and "Hushlet".
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "voice/room_voice.h"

#include <string>
#include <string_view>

namespace corvel {

class WavLibrary {
 public:
  WavLibrary(Program& program, AolClient& client, RoomVoice& voice)
      : program_(program), client_(client), voice_(voice) {}

  void Join(Hub& hub);

  void ShowWavList();       // frmTabs
  void EditDescriptions();  // frmEditDesc
  void Hushlet() { client_.Hushlet(); }

  // The path of "name.wav" among the FavWavs, "" if it isn't one. A file that can't be read is
  // reported.
  std::string SearchFavWavs(std::string_view wav);
  // The description of a wav (no ".wav"), or the words that say that there is none.
  std::string GetWavDescrip(std::string_view name);

 private:
  Program& program_;
  AolClient& client_;
  RoomVoice& voice_;
};

}  // namespace corvel
