// The drive of a scenario on a home of real files: the home's own, behind the faults that the
// scenario asks for. A call that is to fail never reaches the home.
#pragma once

#include "platform/desk/file_faults.h"
#include "platform/files.h"

namespace corvel::tools {

class ScriptedFiles : public Files {
 public:
  // Both outlive it.
  ScriptedFiles(Files& home, desk::FileFaults& faults) : home_(home), faults_(faults) {}

  std::vector<FoundFile> Search(std::string_view pattern) override { return home_.Search(pattern); }
  bool Exists(std::string_view pattern) override { return home_.Exists(pattern); }
  bool IsFolder(std::string_view path) override { return home_.IsFolder(path); }
  std::string Read(std::string_view path) override;
  void Write(std::string_view path, std::string_view bytes) override;
  void Append(std::string_view path, std::string_view bytes) override;
  void MakeFolder(std::string_view path) override;
  void Delete(std::string_view path) override;
  void Copy(std::string_view from, std::string_view to) override;
  void Rename(std::string_view from, std::string_view to) override;
  void SetAttributes(std::string_view path, std::uint32_t attributes) override;
  std::string ShortPath(std::string_view path) override { return home_.ShortPath(path); }
  int DriveState(std::string_view path) override { return home_.DriveState(path); }
  std::vector<std::string> Drives() override { return home_.Drives(); }
  std::string ReadProfile(std::string_view path, std::string_view section,
                          std::string_view key) override {
    return home_.ReadProfile(path, section, key);
  }
  bool WriteProfile(std::string_view path, std::string_view section, std::string_view key,
                    std::optional<std::string_view> value) override;

  // Past all faults: the bytes that the file takes, 0 if there is none or it can't be looked into.
  std::size_t SizeOf(std::string_view path);

 private:
  void CheckRoom(std::string_view path, std::size_t bytes);

  Files& home_;
  desk::FileFaults& faults_;
};

}  // namespace corvel::tools
