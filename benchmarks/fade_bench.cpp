// How fast the fade engine is, in characters of plain text a second, and how that compares with
// copying the same output and with a plain engine that formats each tag with snprintf.
#include "fader/modFade.h"
#include "tests/fader/reference_fade.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace corvel {
namespace {

constexpr std::size_t kLine = 60;       // a chat line
constexpr std::size_t kLetter = 30000;  // the longest mail text that is faded

// Words of one to nine letters.
std::string PlainText(std::size_t length) {
  std::string text;
  for (unsigned seed = 1; text.size() < length;) {
    seed = seed * 1664525u + 1013904223u;
    const unsigned letters = 1 + (seed >> 24) % 9;
    for (unsigned i = 0; i < letters; ++i) text += static_cast<char>('a' + (seed >> 8) % 26);
    text += ' ';
  }
  text.resize(length);
  return text;
}

// Many different texts, so that no branch can be learnt by heart.
std::vector<std::string> Texts(std::size_t length) {
  const std::size_t count = length > 1000 ? 1 : 512;
  const std::string all = PlainText(length * count);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) texts.push_back(all.substr(i * length, length));
  return texts;
}

FadeSettings Colors(std::int16_t number, bool solid) {
  FadeSettings settings;
  settings.FadeNumber = number;
  settings.SolidFade = solid;
  settings.One = 255, settings.Two = 16711680, settings.Three = 65280;
  settings.Four = 8421504, settings.Five = 33023, settings.Six = 12615935;
  return settings;
}

void CountCharacters(benchmark::State& state, std::size_t length) {
  state.counters["chars/s"] =
      benchmark::Counter(static_cast<double>(length) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate);
}

void Engine(benchmark::State& state, std::size_t length, FadeSettings settings) {
  const auto texts = Texts(length);
  Fader fader(settings);
  std::string text;
  std::size_t next = 0;
  for (auto _ : state) {
    text = texts[next++ % texts.size()];
    benchmark::DoNotOptimize(fader.FadeEngine(text).data());
  }
  CountCharacters(state, length);
}

void CopyOfOutput(benchmark::State& state, std::size_t length, FadeSettings settings) {
  auto texts = Texts(length);
  Fader fader(settings);
  std::size_t longest = 0;
  for (std::string& text : texts) longest = std::max(longest, fader.FadeEngine(text).size());
  std::vector<char> copy(longest);
  std::size_t next = 0;
  for (auto _ : state) {
    const std::string& text = texts[next++ % texts.size()];
    std::memcpy(copy.data(), text.data(), text.size());
    benchmark::ClobberMemory();
  }
  CountCharacters(state, length);
}

void Snprintf(benchmark::State& state, std::size_t length, FadeSettings settings) {
  const auto texts = Texts(length);
  ReferenceFader fader;
  std::size_t next = 0;
  for (auto _ : state) {
    const std::string text = fader.Engine(texts[next++ % texts.size()], settings);
    benchmark::DoNotOptimize(text.data());
  }
  CountCharacters(state, length);
}

// Keeps the figures of the run, for the ratios at its end.
class Figures : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs)
      if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
        double& best = charactersPerSecond_[run.run_name.function_name];
        best = std::max(best, static_cast<double>(run.counters.at("chars/s")));
      }
    ConsoleReporter::ReportRuns(runs);
  }

  void PrintRatios(const std::string& scene) const {
    const auto engine = charactersPerSecond_.find("engine/" + scene);
    const auto copy = charactersPerSecond_.find("memcpy/" + scene);
    const auto plain = charactersPerSecond_.find("snprintf/" + scene);
    const auto none = charactersPerSecond_.end();
    if (engine == none || copy == none || plain == none) return;
    std::printf("%-24s %6.1f million chars/s, %5.1f times snprintf, memcpy is %4.1f times that\n",
                scene.c_str(), engine->second / 1e6, engine->second / plain->second,
                copy->second / engine->second);
  }

 private:
  std::map<std::string, double> charactersPerSecond_;
};

struct Scene {
  const char* name;
  std::size_t length;
  FadeSettings settings;
};

int Run(int argc, char** argv) {
  FadeSettings waving = Colors(2, false);
  waving.Wavy = true;
  const Scene scenes[] = {{"two_colours_line", kLine, Colors(2, false)},
                          {"two_colours_30000", kLetter, Colors(2, false)},
                          {"two_colours_wavy_line", kLine, waving},
                          {"six_colours_line", kLine, Colors(6, false)},
                          {"six_colours_30000", kLetter, Colors(6, false)},
                          {"six_solid_line", kLine, Colors(6, true)},
                          {"six_solid_30000", kLetter, Colors(6, true)}};
  for (const Scene& scene : scenes) {
    const std::string name = scene.name;
    benchmark::RegisterBenchmark(("engine/" + name).c_str(), Engine, scene.length, scene.settings);
    benchmark::RegisterBenchmark(("memcpy/" + name).c_str(), CopyOfOutput, scene.length,
                                 scene.settings);
    benchmark::RegisterBenchmark(("snprintf/" + name).c_str(), Snprintf, scene.length,
                                 scene.settings);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Figures figures;
  benchmark::RunSpecifiedBenchmarks(&figures);
  std::printf("\n");
  for (const Scene& scene : scenes) figures.PrintRatios(scene.name);
  return 0;
}

}  // namespace
}  // namespace corvel

int main(int argc, char** argv) { return corvel::Run(argc, argv); }
