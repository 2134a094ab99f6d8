#include "platform/desk/desk_web.h"

namespace corvel::desk {
namespace {

class DeskWebRequest : public WebRequest {
 public:
  DeskWebRequest(Desk& desk, WebAnswer answer) : answer_(std::move(answer)) {
    // An event of the world's own, so that the clock does not jump over it.
    desk.After(0, answer_.afterMs, [over = over_] { *over = true; });
  }
  bool IsOver() override { return *over_; }
  std::uint32_t Error() override { return *over_ ? answer_.error : 0; }
  std::string Text() override { return *over_ ? answer_.text : ""; }

 private:
  WebAnswer answer_;
  std::shared_ptr<bool> over_ = std::make_shared<bool>(false);
};

}  // namespace

std::unique_ptr<WebRequest> DeskWeb::Begin(std::string_view, std::string_view address) {
  desk_.Note("web", {std::string(address)});
  return std::make_unique<DeskWebRequest>(desk_, table_.For(address));
}

}  // namespace corvel::desk
