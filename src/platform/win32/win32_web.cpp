#include "platform/win32/win32_web.h"

#include "platform/win32/web_job.h"

namespace corvel::win32 {
namespace {

class Win32WebRequest : public WebRequest {
 public:
  Win32WebRequest(std::string_view agent, std::string_view address)
      : job_(BeginWebJob(agent, address)) {}
  ~Win32WebRequest() override {
    if (job_) LetGo(job_);
  }
  Win32WebRequest(const Win32WebRequest&) = delete;
  Win32WebRequest& operator=(const Win32WebRequest&) = delete;

  bool IsOver() override { return !job_ || job_->isOver; }
  std::uint32_t Error() override {
    if (!job_) return ERROR_NOT_ENOUGH_MEMORY;
    return job_->isOver ? job_->error : 0;
  }
  std::string Text() override {
    const bool has = job_ && job_->isOver && !job_->error;
    return has ? std::string(job_->text, job_->size) : std::string();
  }

 private:
  WebJob* job_;
};

}  // namespace

std::unique_ptr<WebRequest> Win32Web::Begin(std::string_view agent, std::string_view address) {
  return std::make_unique<Win32WebRequest>(agent, address);
}

}  // namespace corvel::win32
