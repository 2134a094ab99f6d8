#include "platform/win32/win32_web.h"

#include "platform/win32/web_job.h"

#include <utility>

namespace corvel::win32 {
namespace {

class Win32WebRequest : public WebRequest {
 public:
  Win32WebRequest(std::string_view agent, std::string_view address)
      : job_(BeginWebJob(agent, address)), begin_(GetTickCount()) {}
  ~Win32WebRequest() override { GiveUp(0); }
  Win32WebRequest(const Win32WebRequest&) = delete;
  Win32WebRequest& operator=(const Win32WebRequest&) = delete;

  bool IsOver() override {
    if (!job_ || job_->isOver) return true;
    if (GetTickCount() - begin_ < kLongestWebAnswerMs) return false;
    GiveUp(web_error::kTimeout);
    return true;
  }
  std::uint32_t Error() override {
    if (!IsOver()) return 0;
    return job_ ? job_->error : error_;
  }
  std::string Text() override {
    const bool has = IsOver() && job_ && !job_->error;
    return has ? std::string(job_->text, job_->size) : std::string();
  }

 private:
  void GiveUp(std::uint32_t error) {
    if (job_) LetGo(std::exchange(job_, nullptr));
    error_ = error;
  }

  WebJob* job_;
  std::uint32_t error_ = ERROR_NOT_ENOUGH_MEMORY;  // without a job
  DWORD begin_;
};

}  // namespace

std::unique_ptr<WebRequest> Win32Web::Begin(std::string_view agent, std::string_view address) {
  return std::make_unique<Win32WebRequest>(agent, address);
}

}  // namespace corvel::win32
