#include "platform/win32/file_errors.h"

#include "base/cp1252.h"
#include "base/error.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace corvel::win32 {
namespace {

struct Meaning {
  DWORD error;
  int number;
};
constexpr Meaning kMeanings[] = {
    {ERROR_FILE_NOT_FOUND, err::kFileNotFound},
    {ERROR_PATH_NOT_FOUND, err::kPathNotFound},
    {ERROR_DIRECTORY, err::kPathNotFound},
    {ERROR_BAD_NETPATH, err::kPathNotFound},
    {ERROR_BAD_NET_NAME, err::kPathNotFound},
    {ERROR_FILENAME_EXCED_RANGE, err::kPathNotFound},
    {ERROR_FILE_EXISTS, err::kFileExists},
    {ERROR_ALREADY_EXISTS, err::kFileExists},
    {ERROR_HANDLE_DISK_FULL, err::kDiskFull},
    {ERROR_DISK_FULL, err::kDiskFull},
    {ERROR_INVALID_NAME, err::kBadFileName},
    {ERROR_BAD_PATHNAME, err::kBadFileName},
    {ERROR_INVALID_DRIVE, err::kDeviceUnavailable},
    {ERROR_BAD_UNIT, err::kDeviceUnavailable},
    {ERROR_UNEXP_NET_ERR, err::kDeviceUnavailable},
    {ERROR_NETNAME_DELETED, err::kDeviceUnavailable},
    {ERROR_SHARING_VIOLATION, err::kPermissionDenied},
    {ERROR_LOCK_VIOLATION, err::kPermissionDenied},
    {ERROR_WRITE_PROTECT, err::kPermissionDenied},
    {ERROR_NOT_READY, err::kDiskNotReady},
    {ERROR_NOT_DOS_DISK, err::kDiskNotReady},
    {ERROR_CRC, err::kDeviceIo},
    {ERROR_SEEK, err::kDeviceIo},
    {ERROR_SECTOR_NOT_FOUND, err::kDeviceIo},
    {ERROR_WRITE_FAULT, err::kDeviceIo},
    {ERROR_READ_FAULT, err::kDeviceIo},
    {ERROR_GEN_FAILURE, err::kDeviceIo},
    {ERROR_NOT_ENOUGH_MEMORY, err::kOutOfMemory},
};

// The root of the path's drive as the system takes it; nullptr, for the current one, without any.
class Root {
 public:
  explicit Root(std::string_view path) : has_(path.size() >= 2 && path[1] == ':') {
    if (has_) text_[0] = path[0];
  }
  const char* Text() const { return has_ ? text_ : nullptr; }
  bool HasDisk() const {
    char system[MAX_PATH];
    return GetVolumeInformationA(Text(), nullptr, 0, nullptr, nullptr, nullptr, system,
                                 sizeof system);
  }

 private:
  bool has_;
  char text_[4] = "?:\\";
};

}  // namespace

int RunTimeErrorFor(DWORD error, std::string_view path) {
  const auto found = std::find_if(std::begin(kMeanings), std::end(kMeanings),
                                  [&](const Meaning& meaning) { return meaning.error == error; });
  const int number = found == std::end(kMeanings) ? err::kPathFileAccess : found->number;
  if (number != err::kPathNotFound && number != err::kFileNotFound) return number;
  const Root root(path);
  const UINT drive = GetDriveTypeA(root.Text());
  if (drive == DRIVE_NO_ROOT_DIR) return err::kDeviceUnavailable;
  const bool mayBeEmpty = drive == DRIVE_REMOVABLE || drive == DRIVE_CDROM;
  return mayBeEmpty && !root.HasDisk() ? err::kDiskNotReady : number;
}

void ThrowLastError(std::string_view path, std::string_view second) {
  const DWORD error = GetLastError();
  const int number = RunTimeErrorFor(error, path);
  const bool unexplained = number == err::kPathNotFound && !second.empty();
  throw RunTimeError(unexplained ? RunTimeErrorFor(error, second) : number);
}

int DriveStateOf(std::string_view path) {
  const Root root(path);
  if (GetDriveTypeA(root.Text()) == DRIVE_NO_ROOT_DIR) return err::kDeviceUnavailable;
  // The box of drives calls a drive without a disk unavailable.
  return root.HasDisk() ? 0 : err::kDeviceUnavailable;
}

DriveKind KindOfDrive(std::string_view path) {
  const Root root(path);
  const char letter = root.Text() ? UpperChar(*root.Text()) : 'C';
  switch (GetDriveTypeA(root.Text())) {
    case DRIVE_NO_ROOT_DIR:
      return DriveKind::kNone;
    case DRIVE_REMOVABLE:
      return letter == 'A' || letter == 'B' ? DriveKind::kFloppy : DriveKind::kRemovable;
    case DRIVE_FIXED:
      return DriveKind::kFixed;
    case DRIVE_REMOTE:
      return DriveKind::kNetwork;
    case DRIVE_CDROM:
      return DriveKind::kCd;
    default:
      return DriveKind::kOther;
  }
}

}  // namespace corvel::win32
