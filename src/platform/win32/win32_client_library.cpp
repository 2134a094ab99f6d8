#include "platform/win32/win32_client_library.h"

#include "base/text.h"

namespace corvel::win32 {
namespace {

constexpr std::size_t kNames = 6;
constexpr std::size_t kNameRoom = 175;
constexpr std::size_t kLongestVersion = 3;

using GetVersionFunction = int(WINAPI*)(const char* folder, char* buffer);
using IsOnlineFunction = int(WINAPI*)();
using GetScreenNameFunction = int(WINAPI*)(const char* folder, char*, char*, char*, char*, char*,
                                           char*);

template <class F>
F As(FARPROC address) {
  return reinterpret_cast<F>(reinterpret_cast<void*>(address));
}

}  // namespace

// Asked for anew until it is there: it comes with the client.
FARPROC Win32ClientLibrary::Find(const char* name) {
  if (!library_) library_ = Owned<HMODULE, FreeLibrary>(LoadLibraryA(file_.c_str()));
  return library_ ? GetProcAddress(library_.Get(), name) : nullptr;
}

std::string Win32ClientLibrary::GetVersion(std::string_view clientFolder) {
  const auto getVersion = As<GetVersionFunction>(Find("AOLGetVersion"));
  if (!getVersion) return {};
  std::string buffer(kNameRoom, '\0');  // more than the library is told, in case it adds a NUL
  getVersion(CutAtNul(clientFolder).c_str(), buffer.data());
  return CutAtNul(buffer).substr(0, kLongestVersion);
}

int Win32ClientLibrary::IsOnline() {
  const auto isOnline = As<IsOnlineFunction>(Find("AOLIsOnline"));
  return isOnline ? isOnline() : 0;
}

std::vector<std::string> Win32ClientLibrary::GetScreenNames(
    std::string_view clientFolderWithSlash) {
  const auto getNames = As<GetScreenNameFunction>(Find("AOLGetScreenName"));
  if (!getNames) return std::vector<std::string>(kNames);
  std::vector<std::string> n(kNames, std::string(kNameRoom, ' '));
  getNames(CutAtNul(clientFolderWithSlash).c_str(), n[0].data(), n[1].data(), n[2].data(),
           n[3].data(), n[4].data(), n[5].data());
  return n;
}

}  // namespace corvel::win32
