#include "base/file_name.h"

#include "base/text.h"

#include <algorithm>
#include <span>
#include <string>

namespace corvel {
namespace {

constexpr std::string_view kDevices[] = {"con", "prn", "aux", "nul", "clock$"};
constexpr std::string_view kNumberedDevices[] = {"com", "lpt"};  // 1 to 9

bool IsOneOf(std::span<const std::string_view> devices, std::string_view name) {
  return std::any_of(devices.begin(), devices.end(),
                     [&](std::string_view device) { return EqualNoCase(device, name); });
}

bool IsDevice(std::string_view name) {
  const std::string base = Trim(name.substr(0, name.find('.')));
  if (IsOneOf(kDevices, base)) return true;
  return base.size() == 4 && base[3] >= '1' && base[3] <= '9' &&
         IsOneOf(kNumberedDevices, base.substr(0, 3));
}

bool IsBarred(char c) {
  return static_cast<unsigned char>(c) < ' ' ||
         std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
}

}  // namespace

bool IsFileName(std::string_view name) {
  return !name.empty() && name.back() != '.' && name.back() != ' ' && !IsDevice(name) &&
         std::none_of(name.begin(), name.end(), IsBarred);
}

}  // namespace corvel
