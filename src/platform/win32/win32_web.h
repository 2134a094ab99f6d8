// The web, by the system's own library.
#pragma once

#include "platform/web.h"

namespace corvel::win32 {

class Win32Web : public Web {
 public:
  std::unique_ptr<WebRequest> Begin(std::string_view agent, std::string_view address) override;
};

}  // namespace corvel::win32
