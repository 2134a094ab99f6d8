#include "platform/win32/win32_media.h"

#include "base/text.h"
#include "platform/win32/callback.h"

#include <windows.h>
// After the system's own.
#include <mmsystem.h>

namespace corvel::win32 {
namespace {

constexpr UINT kRoom = 128;

// As the system's header has them, as far as it has.
static_assert(media_error::kNotOpen == MCIERR_INVALID_DEVICE_NAME &&
              media_error::kUnknownParameter == MCIERR_UNRECOGNIZED_KEYWORD &&
              media_error::kFileNotFound == MCIERR_FILE_NOT_FOUND &&
              media_error::kNoSuchMedium == MCIERR_INVALID_FILE &&
              media_error::kTextBehindQuote == MCIERR_EXTRA_CHARACTERS);

}  // namespace

Win32MediaControl::~Win32MediaControl() {
  if (used_) mciSendStringA("close all wait", nullptr, 0, nullptr);
}

MediaReply Win32MediaControl::Send(std::string_view command) {
  used_ = true;
  char text[kRoom] = "";
  const MCIERROR error = mciSendStringA(CutAtNul(command).c_str(), text, kRoom, nullptr);
  Callback::Rethrow();  // while it waits the system may have let our windows be called
  text[kRoom - 1] = '\0';
  return {error, error ? "" : text};
}

std::string Win32MediaControl::ErrorText(std::uint32_t error) {
  char text[kRoom] = "";
  if (!mciGetErrorStringA(error, text, kRoom)) return {};
  text[kRoom - 1] = '\0';
  return text;
}

}  // namespace corvel::win32
