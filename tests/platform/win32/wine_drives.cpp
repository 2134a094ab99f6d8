#include "tests/platform/win32/wine_drives.h"

#include "platform/win32/owned.h"
#include "tests/platform/win32/wine_path.h"

#include <cstring>
#include <stdexcept>
#include <windows.h>
// After the system's own.
#include <winioctl.h>

namespace corvel::test {
namespace {

// How Wine's manager of drives is told of one; the offsets are from the beginning, 0 for none.
struct UnixDrive {
  ULONG size, type, fileSystem;
  DWORD serial;
  ULONGLONG device;
  WCHAR letter;
  USHORT folderAt, deviceAt, labelAt;
};
constexpr DWORD kDefineDrive =
    CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS);

UINT TypeOf(DriveKind kind) {
  switch (kind) {
    case DriveKind::kFloppy:
    case DriveKind::kRemovable:
      return DRIVE_REMOVABLE;
    case DriveKind::kNetwork:
      return DRIVE_REMOTE;
    case DriveKind::kCd:
      return DRIVE_CDROM;
    default:
      return DRIVE_FIXED;
  }
}

// Without a folder the drive goes.
bool Define(char letter, DriveKind kind, const std::string& folder) {
  const win32::OwnedHandle manager(CreateFileA("\\\\.\\MountPointManager",
                                               GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                               OPEN_EXISTING, 0, nullptr));
  std::string bytes(sizeof(UnixDrive), '\0');
  UnixDrive drive{};
  drive.type = TypeOf(kind);
  drive.letter = static_cast<WCHAR>(letter);
  if (!folder.empty()) {
    drive.folderAt = static_cast<USHORT>(bytes.size());
    bytes += folder + '\0';
  }
  drive.size = static_cast<ULONG>(bytes.size());
  std::memcpy(bytes.data(), &drive, sizeof drive);
  DWORD back = 0;
  return manager && DeviceIoControl(manager.Get(), kDefineDrive, bytes.data(),
                                    static_cast<DWORD>(bytes.size()), nullptr, 0, &back, nullptr);
}

}  // namespace

WineDrives::~WineDrives() {
  for (const char letter : letters_) Define(letter, DriveKind::kFixed, "");
}

void WineDrives::Set(char letter, DriveKind kind, const std::string& folder) {
  if (!Define(letter, kind, folder)) throw std::runtime_error("no drive can be made here");
  letters_.insert(letter);
}

}  // namespace corvel::test
