// The desk's web: a table of answers, each of which takes its virtual time.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/web_table.h"

namespace corvel::desk {

class DeskWeb : public Web {
 public:
  explicit DeskWeb(Desk& desk) : desk_(desk) {}
  std::unique_ptr<WebRequest> Begin(std::string_view agent, std::string_view address) override;

  WebTable& table() { return table_; }

 private:
  Desk& desk_;
  WebTable table_;
};

}  // namespace corvel::desk
