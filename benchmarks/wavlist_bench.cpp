// The wav list on the desk: a category and a FavWavs list of a hundred thousand wavs shown anew
// (read, lower-cased, sorted), and the look-ups that each send and each mail does.
//
// The aim is 150 ms for a list and 20 microseconds for a look-up in files of ordinary size.
#include "core/settings_fader.h"
#include "platform/desk/desk.h"
#include "platform/desk/desk_services.h"
#include "wavlib/fav_wavs.h"
#include "wavlib/frmTabs.h"
#include "wavlib/wav_categories.h"
#include "wavlib/wav_descriptions.h"

#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <string>

namespace corvel {
namespace {

// Names in no order, each its own.
std::string WavName(int i) {
  return "Wav" + std::to_string(i * 7919LL % 1'000'003) + "_" + std::to_string(i);
}

// A process on the desk with the program's parts in it, without a client.
class WavDesk {
 public:
  WavDesk() {
    struct Idle : desk::ProcessBody {
      void Start(const std::string&) override {}
      bool Finished() override { return false; }
    };
    desk_.journal().KeepNothing();
    desk_.Install("C:\\Corvel\\corvel32.exe", [](desk::Desk&) { return std::make_unique<Idle>(); });
    process_ = desk_.Spawn("C:\\Corvel\\corvel32.exe", "");
    desk_.RunDue();
  }

  desk::DeskFiles& files() { return desk_.files(); }
  Program& program() { return program_; }
  void Run(const std::function<void()>& step) { desk_.RunAs(process_, step); }

  frmTabs& ShowList(std::string_view category) {
    program_.store.WriteKey("Categories", "Mine", "C:\\Wavs");
    program_.store.WriteKey("Wav List", "Default Category", category);
    return program_.forms.Load<frmTabs>(program_, client_, fader_);
  }

 private:
  desk::Desk desk_;
  ProcessId process_ = 0;
  Program program_{desk_.platform()};
  AolClient client_{program_};
  Fader fader_{program_.settings.Fader.Fade};
};

void ShowAgain(benchmark::State& state, WavDesk& desk, std::string_view category) {
  desk.Run([&] {
    frmTabs& list = desk.ShowList(category);
    for (auto _ : state) list.cboList_Click();
    if (list.lstWav.ListCount() != state.range(0)) state.SkipWithError("the list isn't whole");
    list.Unload();
  });
}

void ShowCategory(benchmark::State& state) {
  WavDesk desk;
  for (int i = 0; i < state.range(0); ++i) desk.files().Put("C:\\Wavs\\" + WavName(i) + ".WAV", "");
  ShowAgain(state, desk, "Mine");
}
BENCHMARK(ShowCategory)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

std::string FavWavsFile(std::int64_t count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    const std::string name = WavName(i);
    bytes += FormatFavWav({name, "c:\\wavs\\" + name + ".wav"}) + "\r\n";
  }
  return bytes;
}

void ShowFavWavs(benchmark::State& state) {
  WavDesk desk;
  desk.files().Put("C:\\Corvel\\favwavs.dat", FavWavsFile(state.range(0)));
  ShowAgain(state, desk, kFavWavs);
}
BENCHMARK(ShowFavWavs)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void SearchFavWavs(benchmark::State& state) {
  WavDesk desk;
  desk.files().Put("C:\\Corvel\\favwavs.dat", FavWavsFile(state.range(0)));
  desk.Run([&] {
    FavWavFile file(desk.program());
    const std::string wav = WavName(0) + ".wav";
    for (auto _ : state) benchmark::DoNotOptimize(file.Search(wav));
  });
}
BENCHMARK(SearchFavWavs)->Arg(100)->Arg(1000);

void FindDescription(benchmark::State& state) {
  WavDesk desk;
  std::string bytes = "[Data]\r\n";
  for (int i = 0; i < state.range(0); ++i) bytes += WavName(i) + "=What this wav is about\r\n";
  desk.files().Put("C:\\Corvel\\data\\desc1.dat", bytes);
  desk.Run([&] {
    const std::string name = WavName(static_cast<int>(state.range(0)) - 1);
    for (auto _ : state) benchmark::DoNotOptimize(GetWavDescrip(desk.program(), name));
  });
}
BENCHMARK(FindDescription)->Arg(100)->Arg(1000);

}  // namespace
}  // namespace corvel
