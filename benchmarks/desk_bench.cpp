// The desk at rest and its small reads: an idle, signed-on hour with all timers, beside a desk that
// has only a bare 10 ms timer; a settings read, a HotWord-sized list file, a description.
//
// The aims: the hour at least 20,000 times faster than real time (the counter "times_real"), no
// read above 20 microseconds.
#include "core/list_file.h"
#include "core/settings_store.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tools/desk/desk_stage.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <string>

namespace corvel {
namespace {

constexpr std::int64_t kHourMs = 3'600'000;

void CountSpeed(benchmark::State& state) {
  state.counters["times_real"] = benchmark::Counter(
      static_cast<double>(state.iterations()) * kHourMs / 1000, benchmark::Counter::kIsRate);
}

// The program beside a client, in a room if so asked.
std::unique_ptr<tools::DeskStage> SignedOnEvening(bool inRoom) {
  auto stage = std::make_unique<tools::DeskStage>(1);
  stage->desk().journal().KeepNothing();
  stage->PutClient();
  stage->desk().RunFor(1000);
  stage->StartProgram("");
  stage->desk().RunFor(10'000);
  if (inRoom) {
    stage->desk().RunAs(stage->ClientProcess(), [&] {
      stage->Client()->Do({"room", "Lobby", "Anna", "Bert", "Cleo"});
    });
    stage->desk().RunFor(1000);
  }
  return stage;
}

void IdleHour(benchmark::State& state) {
  const auto stage = SignedOnEvening(state.range(0) != 0);
  if (!stage->Program() || stage->desk().windows().HookCount() == 0)
    return state.SkipWithError("the program does not run");
  for (auto _ : state) stage->desk().RunFor(kHourMs);
  CountSpeed(state);
}
BENCHMARK(IdleHour)->ArgName("in_room")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// What an hour costs when its 360,000 ticks do nothing.
void BareTimerHour(benchmark::State& state) {
  struct Silent : WindowProcedure {
    MessageResult OnMessage(Window, const Message&) override { return 0; }
  } silent;
  NewWindow bare;
  bare.className = "Bare";
  desk::Desk desk;
  const Window window = desk.platform().ownWindows.Create(bare, silent);
  desk.platform().events.StartTimer(window, 1, 10);
  for (auto _ : state) desk.RunFor(kHourMs);
  CountSpeed(state);
  desk.platform().ownWindows.Destroy(window);
}
BENCHMARK(BareTimerHour)->Unit(benchmark::kMillisecond);

void ReadSetting(benchmark::State& state) {
  desk::Desk desk;
  SettingsStore store(desk.platform().registry);
  for (int i = 0; i < 100; ++i) store.WriteKey("Wav List", "Key" + std::to_string(i), "value");
  store.WriteKey("Wav List", "Default Category", "FavWavs");
  for (auto _ : state) benchmark::DoNotOptimize(store.ReadKey("Wav List", "Default Category"));
}
BENCHMARK(ReadSetting);

// Opened, read and taken apart anew at each use, as the program does.
void ReadHotWordList(benchmark::State& state) {
  desk::Desk desk;
  std::vector<std::string> words;
  for (int i = 0; i < 50; ++i) words.push_back("hotword number " + std::to_string(i));
  desk.files().Put("C:\\Corvel\\data\\hotwords\\1.dat", FormatListFile(words));
  for (auto _ : state)
    benchmark::DoNotOptimize(
        ParseListFile(desk.platform().files.Read("C:\\Corvel\\data\\hotwords\\1.dat")));
}
BENCHMARK(ReadHotWordList);

}  // namespace
}  // namespace corvel
