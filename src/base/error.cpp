#include "base/error.h"

namespace corvel {

const char* RunTimeErrorText(int number) {
  switch (number) {
    case err::kInvalidCall:
      return "Invalid procedure call or argument";
    case err::kOutOfMemory:
      return "Out of memory";
    case err::kFileNotFound:
      return "File not found";
    case err::kFileAlreadyOpen:
      return "File already open";
    case err::kDeviceIo:
      return "Device I/O error";
    case err::kFileExists:
      return "File already exists";
    case err::kDiskFull:
      return "Disk full";
    case err::kBadFileName:
      return "Bad file name";
    case err::kDeviceUnavailable:
      return "Device unavailable";
    case err::kPermissionDenied:
      return "Permission denied";
    case err::kDiskNotReady:
      return "Disk not ready";
    case err::kPathFileAccess:
      return "Path/File access error";
    case err::kPathNotFound:
      return "Path not found";
    default:
      return "Application-defined error";
  }
}

}  // namespace corvel
