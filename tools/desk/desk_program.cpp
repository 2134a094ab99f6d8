// The program as a process of the desk; see desk_program.h.
#include "tools/desk/desk_program.h"

#include "app/corvel_process.h"

#include <memory>
#include <utility>

namespace corvel::tools {
namespace {

using Started = std::function<void(ProcessId)>;

class CorvelBody : public desk::ProcessBody {
 public:
  CorvelBody(desk::Desk& desk, Platform& platform, Started started)
      : desk_(desk), started_(std::move(started)), process_(platform) {}

  void Start(const std::string&) override {  // the command line is asked of the platform
    process_.Start();
    if (started_) started_(desk_.Current());
  }
  bool Finished() override { return process_.Finished(); }

 private:
  desk::Desk& desk_;
  Started started_;
  CorvelProcess process_;
};

}  // namespace

void InstallCorvelOnDesk(desk::Desk& desk, Platform& platform, Started started) {
  desk.Install(kProgramPath, [&platform, started = std::move(started)](desk::Desk& home) {
    return std::make_unique<CorvelBody>(home, platform, started);
  });
}

}  // namespace corvel::tools
