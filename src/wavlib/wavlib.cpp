#include "wavlib/wavlib.h"

#include "core/report_error.h"
#include "wavlib/fav_wavs.h"
#include "wavlib/frmEditDesc.h"
#include "wavlib/frmTabs.h"
#include "wavlib/wav_descriptions.h"

namespace corvel {

void WavLibrary::Join(Hub& hub) {
  hub.commands.Set(Command::kWavList, [this] { ShowWavList(); });
  hub.commands.Set(Command::kDescriptions, [this] { EditDescriptions(); });
  hub.commands.Set(Command::kHushlet, [this] { Hushlet(); });
}

void WavLibrary::ShowWavList() { program_.forms.Load<frmTabs>(program_, client_, voice_).Show(); }

void WavLibrary::EditDescriptions() { program_.forms.Load<frmEditDesc>(program_, client_).Show(); }

std::string WavLibrary::SearchFavWavs(std::string_view wav) {
  std::string path;
  Reported(program_, {"frmCV7", "SearchFavWavs"}, [&] { path = FavWavFile(program_).Search(wav); });
  return path;
}

std::string WavLibrary::GetWavDescrip(std::string_view name) {
  return corvel::GetWavDescrip(program_, name);
}

}  // namespace corvel
