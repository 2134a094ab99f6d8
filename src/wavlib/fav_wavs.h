// FavWavs: a hand-picked list of wavs scattered over any folders, in favwavs.dat. The file's form
// is told in docs/formats/favwavs.md.
#pragma once

#include "core/program.h"

#include <compare>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

struct FavWav {
  std::string name;  // as the list shows it, no ".wav"
  std::string path;  // whole, with ".wav"
  friend auto operator<=>(const FavWav&, const FavWav&) = default;
};

// Where these stand among `all`: ascending, each of them once. What isn't there is left out.
std::vector<int> RowsOf(const std::vector<FavWav>& these, const std::vector<FavWav>& all);

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
  // Takes each of them away, and writes what is left in the order of the wav list.
  void Remove(const std::vector<FavWav>& gone);
  // The wav with this path (case ignored) is called otherwise or lies elsewhere now. Whatever else
  // the file holds stays as it is. False: it is no FavWav.
  bool Follow(std::string_view oldPath, const FavWav& now);

 private:
  std::string Path() const;
  std::string Bytes();

  Program& program_;
};

}  // namespace corvel
