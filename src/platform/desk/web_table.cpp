// What each path of the web answers; see web_table.h.
#include "platform/desk/web_table.h"

#include "base/text.h"

#include <algorithm>

namespace corvel::desk {
namespace {

constexpr std::string_view kScheme = "http://";
constexpr std::size_t kMostText = 65536;

// Behind the server's name, without a question; "/" if nothing stands there.
std::string_view PathOf(std::string_view address) {
  const auto path = address.substr(std::min(address.find('/', kScheme.size()), address.size()));
  return path.empty() ? "/" : path.substr(0, path.find('?'));
}

}  // namespace

WebAnswer WebTable::For(std::string_view address) const {
  if (!EqualNoCase(address.substr(0, kScheme.size()), kScheme))
    return {.error = web_error::kUnknownScheme};
  const auto found = answers_.find(PathOf(address));
  if (found == answers_.end()) return {.error = web_error::kNameNotResolved};
  WebAnswer answer = found->second;
  if (answer.afterMs >= kLongestWebAnswerMs)
    return {.error = web_error::kTimeout, .afterMs = kLongestWebAnswerMs};
  answer.text.resize(answer.error ? 0 : std::min(answer.text.size(), kMostText));
  return answer;
}

}  // namespace corvel::desk
