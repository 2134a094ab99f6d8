// FavWavs: a hand-picked list of wavs scattered over any folders, in favwavs.dat. The file's form
// is told in docs/formats/favwavs.md.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel {

struct FavWav {
  std::string name;  // as the list shows it, no ".wav"
  std::string path;  // whole, with ".wav"
  friend bool operator==(const FavWav&, const FavWav&) = default;
};

// Reads older forms too, skips lines without a TAB; any bytes are taken.
std::vector<FavWav> ParseFavWavs(std::string_view bytes);

// One line of the file, without its line end.
std::string FormatFavWav(const FavWav& wav);

// The path kept for "name.wav", "" if there is none; of several the last one. The search knows
// nothing of older forms, and a line without a TAB ends it with nothing, whatever was found before.
std::string FindFavWav(std::string_view bytes, std::string_view wav);

// The file itself. Each method throws RunTimeError where the file can't be used, and has then
// changed nothing.
class FavWavFile {
 public:
  explicit FavWavFile(Program& program) : program_(program) {}

  std::vector<FavWav> Load();  // a missing file comes to exist, empty
  std::string Search(std::string_view wav);
  void Append(const FavWav& wav);
  void Save(const std::vector<FavWav>& wavs);  // all lines anew

 private:
  std::string Path() const;
  std::string Bytes();

  Program& program_;
};

}  // namespace corvel
