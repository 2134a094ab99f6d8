// The drive of a scenario run: real folders, made for the run and emptied before each scenario.
//
// Whoever starts the runner where a user's own program and client stand must lose nothing. So the
// first run on a machine looks whether there is anything of theirs; if not, it leaves a mark that
// lists what the drive held, and all that comes later belongs to scenarios.
#pragma once

#include "platform/platform.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace corvel::tools {

class RunDrive {
 public:
  // Empties the drive and the settings. Throws std::runtime_error if they are a user's.
  explicit RunDrive(Platform& platform);
  ~RunDrive();
  RunDrive(const RunDrive&) = delete;
  RunDrive& operator=(const RunDrive&) = delete;

  void Put(std::string_view path, std::string_view bytes);  // folders included
  void Remove(std::string_view path);
  std::optional<std::string> Peek(std::string_view path);
  // As if another process held it open.
  void Lock(const std::string& path, bool locked);

 private:
  void MakeFoldersOf(std::string_view path);
  void DeleteTree(const std::string& folder);
  void DeleteKeys(const std::string& key);
  void Clear();
  void TakePossession();

  Platform& platform_;
  std::set<std::string> kept_;    // what stood in the root at first, in small letters
  std::set<std::string> strewn_;  // files put into folders that are kept
  std::map<std::string, std::shared_ptr<void>> locks_;
};

}  // namespace corvel::tools
