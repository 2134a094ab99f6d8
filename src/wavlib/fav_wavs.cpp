#include "wavlib/fav_wavs.h"

#include "base/text.h"
#include "wavlib/append_line.h"
#include "wavlib/wav_name.h"

#include <algorithm>
#include <map>

namespace corvel {
namespace {

FavWav FavWavOf(std::string_view line, std::size_t tab) {
  FavWav wav{std::string(line.substr(0, tab)), std::string(line.substr(tab + 1))};
  if (tab == 0) wav.name = Replaced(wav.path, "\t", " ");  // or it could not be written back
  if (wav.name.find(".wav") != std::string::npos)
    wav.name.resize(WithoutExtension(wav.name).size());
  return wav;
}

}  // namespace

std::vector<FavWav> ParseFavWavs(std::string_view bytes) {
  std::vector<FavWav> wavs;
  for (const std::string_view line : Lines(bytes)) {
    const auto tab = line.find('\t');
    if (tab != std::string_view::npos) wavs.push_back(FavWavOf(line, tab));
  }
  return wavs;
}

std::vector<int> RowsOf(const std::vector<FavWav>& these, const std::vector<FavWav>& all) {
  std::map<FavWav, int> wanted;
  for (const FavWav& wav : these) ++wanted[wav];
  std::vector<int> rows;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto found = wanted.find(all[i]);
    if (found == wanted.end() || found->second == 0) continue;
    --found->second;
    rows.push_back(static_cast<int>(i));
  }
  return rows;
}

std::string FormatFavWav(const FavWav& wav) { return wav.name + '\t' + wav.path; }

std::string FindFavWav(std::string_view bytes, std::string_view wav) {
  if (Trim(wav).size() < kWavExtension) return {};
  const std::string key = Trim(WithoutExtension(wav));
  std::string_view found;
  for (const std::string_view line : Lines(bytes)) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) return {};
    if (line.substr(0, tab) == key) found = line.substr(tab + 1);
  }
  return std::string(found);
}

std::string FavWavFile::Path() const { return program_.InFolder("favwavs.dat"); }

std::string FavWavFile::Bytes() {
  Files& files = program_.platform.files;
  if (!files.Exists(Path())) files.Append(Path(), "");
  return files.Read(Path());
}

std::vector<FavWav> FavWavFile::Load() { return ParseFavWavs(Bytes()); }

std::string FavWavFile::Search(std::string_view wav) {
  return Trim(wav).empty() ? std::string() : FindFavWav(Bytes(), wav);
}

void FavWavFile::Append(const FavWav& wav) { AppendLine(program_, Path(), FormatFavWav(wav)); }

void FavWavFile::Remove(const std::vector<FavWav>& gone) {
  std::vector<FavWav> wavs = Load();
  const std::vector<int> rows = RowsOf(gone, wavs);
  if (rows.empty()) return;
  int at = 0;
  auto row = rows.begin();
  std::erase_if(wavs, [&](const FavWav&) {
    if (row == rows.end() || *row != at++) return false;
    ++row;
    return true;
  });
  std::stable_sort(wavs.begin(), wavs.end(),
                   [](const FavWav& a, const FavWav& b) { return LessNoCase(a.name, b.name); });
  std::string bytes;
  for (const FavWav& wav : wavs) bytes += FormatFavWav(wav) + "\r\n";
  program_.platform.files.Write(Path(), bytes);
}

bool FavWavFile::Follow(std::string_view oldPath, const FavWav& now) {
  Files& files = program_.platform.files;
  if (!files.Exists(Path())) return false;
  const std::string old = files.Read(Path());
  std::string bytes;
  bool found = false;
  for (const std::string_view line : Lines(old)) {
    const auto tab = line.find('\t');
    const bool isIt = tab != line.npos && EqualNoCase(line.substr(tab + 1), oldPath);
    bytes.append(isIt ? FormatFavWav(now) : std::string(line)).append("\r\n");
    found = found || isIt;
  }
  if (found) files.Write(Path(), bytes);
  return found;
}

}  // namespace corvel
