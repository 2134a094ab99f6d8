// Files, in DOS paths ("C:\Corvel\data\desc1.dat"; case means nothing, it is kept as made).
//
// A method that can fail throws RunTimeError with the number that the logic tests: 53 file not
// found, 58 exists, 61 disk full, 64 bad name, 68 device unavailable, 70 permission denied (open
// elsewhere), 71 disk not ready, 75 path or file access (read-only, or a folder where a file should
// be), 76 path not found. A method that says it never throws answers false or nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

namespace file_attribute {
inline constexpr std::uint32_t kReadOnly = 0x01;
inline constexpr std::uint32_t kHidden = 0x02;
inline constexpr std::uint32_t kSystem = 0x04;
inline constexpr std::uint32_t kFolder = 0x10;
inline constexpr std::uint32_t kArchive = 0x20;
}  // namespace file_attribute

struct FoundFile {
  std::string name;  // without its folder
  std::uint32_t attributes = 0;
};

// What a drive letter stands for. A diskette drive is a removable one at A or B, the letters that
// the system keeps for them: it tells the two apart in no other way.
enum class DriveKind { kNone, kFloppy, kRemovable, kFixed, kNetwork, kCd, kOther };

class Files {
 public:
  virtual ~Files() = default;

  // All that matches a path whose last part may hold * and ?, folders included but "." and ".."
  // not, in the drive's own order. Never throws; an unknown folder gives nothing.
  virtual std::vector<FoundFile> Search(std::string_view pattern) = 0;
  // True if there is a file or folder that matches the path or pattern. Never throws.
  virtual bool Exists(std::string_view pattern) = 0;
  virtual bool IsFolder(std::string_view path) = 0;

  virtual std::string Read(std::string_view path) = 0;
  // Replaces the whole file or nothing: the bytes are written beside it and renamed over it, so a
  // failure at any point leaves the old bytes as they were.
  virtual void Write(std::string_view path, std::string_view bytes) = 0;
  // Adds to the end, making the file if it is missing; a failure leaves the old bytes as they were.
  virtual void Append(std::string_view path, std::string_view bytes) = 0;

  virtual void MakeFolder(std::string_view path) = 0;  // one level; 75 if it exists
  virtual void Delete(std::string_view path) = 0;
  // Over an existing file too; 75 if both paths are the same file. The copy has its attributes.
  virtual void Copy(std::string_view from, std::string_view to) = 0;
  // A file or folder; 58 if `to` exists as another. May change the case of a name.
  virtual void Rename(std::string_view from, std::string_view to) = 0;
  virtual void SetAttributes(std::string_view path, std::uint32_t attributes) = 0;

  // The 8.3 form of an existing path; "" if there is none. Never throws.
  virtual std::string ShortPath(std::string_view path) = 0;
  // Of the path's drive ("C:"), whether a disk lies in it or not. Never throws.
  virtual DriveKind DriveKindOf(std::string_view path) = 0;
  // Whether the path's drive is there and holds a disk: 0, or 68 as the system's box of drives has
  // it. (A use of a drive without a disk fails with 71.)
  virtual int DriveState(std::string_view path) = 0;
  virtual std::vector<std::string> Drives() = 0;  // "a:", "c:"

  // The system's profile files: [section] / key=value. A value comes without blanks around it and
  // without one pair of quotes. Keys and sections are compared without case; a key may hold "=".
  virtual std::string ReadProfile(std::string_view path, std::string_view section,
                                  std::string_view key) = 0;  // "" if not there; never throws
  // Writes or, with nullopt, deletes a key. Makes the file. False if it can't be written or would
  // outgrow what the system's routines take (64 KB).
  virtual bool WriteProfile(std::string_view path, std::string_view section, std::string_view key,
                            std::optional<std::string_view> value) = 0;
};

}  // namespace corvel
