// The drives of this machine.
#pragma once

#include "platform/files.h"

#include <windows.h>

namespace corvel::win32 {

class Win32Files : public Files {
 public:
  // While it lives the system doesn't ask for disks by itself; a missing one is an error of ours.
  Win32Files();
  ~Win32Files() override;
  Win32Files(const Win32Files&) = delete;
  Win32Files& operator=(const Win32Files&) = delete;

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

 private:
  UINT oldErrorMode_;
};

}  // namespace corvel::win32
