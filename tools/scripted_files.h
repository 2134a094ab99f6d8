// The drives of a scenario on a home of real files: the home's own, behind the drives and the
// faults that the scenario asks for. A call that is to fail never reaches the home.
#pragma once

#include "platform/desk/file_faults.h"
#include "platform/files.h"

#include <map>

namespace corvel::tools {

struct ScriptedDrive {
  DriveKind kind = DriveKind::kFixed;
  bool hasDisk = true;
};

// What drives the machine has, by lower-case letter, whatever the home's own are.
using ScriptedDrives = std::map<char, ScriptedDrive>;
ScriptedDrives DrivesOfEveryMachine();
// Makes room for the drive on the home's C, where all drives but C itself lie in folders.
void AddDrive(Files& home, ScriptedDrives& drives, char letter, ScriptedDrive drive);
// Where a path of a scenario lies there.
std::string RealPath(std::string_view path);

class ScriptedFiles : public Files {
 public:
  // All outlive it.
  ScriptedFiles(Files& home, desk::FileFaults& faults, const ScriptedDrives& drives)
      : home_(home), faults_(faults), drives_(drives) {}

  std::vector<FoundFile> Search(std::string_view pattern) override;
  bool Exists(std::string_view pattern) override;
  bool IsFolder(std::string_view path) override;
  std::string Read(std::string_view path) override;
  void Write(std::string_view path, std::string_view bytes) override;
  void Append(std::string_view path, std::string_view bytes) override;
  void MakeFolder(std::string_view path) override;
  void Delete(std::string_view path) override;
  void Copy(std::string_view from, std::string_view to) override;
  void Rename(std::string_view from, std::string_view to) override;
  void SetAttributes(std::string_view path, std::uint32_t attributes) override;
  std::string ShortPath(std::string_view path) override;
  DriveKind DriveKindOf(std::string_view path) override;
  int DriveState(std::string_view path) override;
  std::vector<std::string> Drives() override;
  std::string ReadProfile(std::string_view path, std::string_view section,
                          std::string_view key) override;
  bool WriteProfile(std::string_view path, std::string_view section, std::string_view key,
                    std::optional<std::string_view> value) override;

  // Past all faults: the bytes that the file takes, 0 if there is none or it can't be looked into.
  std::size_t SizeOf(std::string_view path);

 private:
  // 0, or the error number of every use of the path's drive.
  int StateOf(std::string_view path) const;
  // Where the path lies; throws if its drive can't be used.
  std::string Reached(std::string_view path) const;
  void CheckRoom(std::string_view path, std::size_t bytes);

  Files& home_;
  desk::FileFaults& faults_;
  const ScriptedDrives& drives_;
};

}  // namespace corvel::tools
