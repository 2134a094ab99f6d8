// The desk's media control: wave devices, which tell what stands in the header of their file.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/wave_header.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class DeskMedia : public MediaControl {
 public:
  explicit DeskMedia(Desk& desk) : desk_(desk) {}
  MediaReply Send(std::string_view command) override;
  std::string ErrorText(std::uint32_t error) override;

  std::vector<std::string> OpenBy(ProcessId process) const;  // the aliases
  void ProcessEnded(ProcessId process) { devices_.erase(process); }

 private:
  struct Device {
    int number;
    std::string alias;
    WaveHeader header;
  };
  using Words = std::vector<std::string>;
  struct Row {
    const char* word;
    MediaReply (DeskMedia::*work)(const Words& words);
  };
  static const Row kRows[];

  MediaReply Open(const Words& words);
  MediaReply Status(const Words& words);
  MediaReply Close(const Words& words);
  // What stands at the path, or the error.
  std::uint32_t Load(std::string_view path, WaveHeader& header) const;
  std::vector<Device>& Own() { return devices_[desk_.Current()]; }
  Device* Find(std::string_view alias);

  Desk& desk_;
  std::map<ProcessId, std::vector<Device>> devices_;
};

}  // namespace corvel::desk
