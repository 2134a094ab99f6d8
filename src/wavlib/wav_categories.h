// Wav categories: named folders of .wav files, kept as the values of the settings section
// Categories, and what a category's folder holds.
#pragma once

#include "core/program.h"
#include "core/settings_wavs.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel {

inline constexpr std::string_view kWindowsDirectory = "Windows Directory";
inline constexpr std::string_view kFavWavs = "FavWavs";  // no folder, never in the settings

// The names in the registry's own order, without "FavWavs". A section that can't be opened is first
// written with the two built-in names.
std::vector<std::string> CategoryNames(Program& program);

// A category's folder in lower case, without a trailing backslash. "" if there is no such category.
std::string CategoryFolder(Program& program, std::string_view name);

// What the settings hold for it, as it is written there.
std::string StoredFolder(Program& program, std::string_view name);

// Throws RunTimeError (75) if the settings can't be written: whoever is about to delete the old
// value must know.
void WriteCategory(Program& program, std::string_view name, std::string_view folder);

// One of the sounds that the client itself plays at events.
bool IsClientSound(std::string_view name);

// The names of the wavs in a folder, in lower case, no extension, in the drive's order. Throws
// RunTimeError (76) if there is no such folder.
std::vector<std::string> WavsIn(Program& program, const std::string& folder,
                                bool withoutClientSounds);

// Takes over the categories of old settings: the names from groups.dat, their folders from
// corvel32.ini. Throws RunTimeError if groups.dat can't be read; without one it does nothing.
void CatsToReg(Program& program);

}  // namespace corvel
