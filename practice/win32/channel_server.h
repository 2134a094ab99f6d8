// The answering end of the channel; see channel.h.
#pragma once

#include "practice/practice_client.h"
#include "practice/win32/channel.h"

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

class ChannelServer : public WindowProcedure {
 public:
  // Makes the hidden window. Both must outlive it.
  ChannelServer(Platform& platform, PracticeClient& client);
  ~ChannelServer() override;
  ChannelServer(const ChannelServer&) = delete;
  ChannelServer& operator=(const ChannelServer&) = delete;

  // What leaves the client, for whoever asks for it.
  void Note(std::string_view kind, const Words& words);
  // Goes there when all that was asked for before has been done.
  void GoLater(const std::string& target);
  // Somebody plays the user by commands.
  bool IsUsed() const { return lastTicket_ != 0; }

  MessageResult OnMessage(Window window, const Message& message) override;

 private:
  struct VerbRow;
  static const VerbRow kVerbs[];
  struct Task {
    int ticket = 0;  // 0: a target
    Words words;
  };
  bool OnRequest(const COPYDATASTRUCT& data);
  Words Ask(const Words& words);
  Words Begin(const Words& words);
  Words TellReply(const Words& words);
  Words TellWitness(const Words& words);
  Words TakeTarget(const Words& words);
  Words TellVersion(const Words& words);
  Words TellOnline(const Words& words);
  Words TellNames(const Words& words);
  Words HangLater(const Words& words);
  void HangNow();
  void Queue(Task task);
  void RunNext();

  Platform& platform_;
  PracticeClient& client_;
  Window window_{};
  std::deque<Task> tasks_;
  std::map<int, Reply> replies_;  // not asked for yet, by ticket
  std::deque<std::string> witness_;
  Words hang_;  // as it was asked for
  int lastTicket_ = 0;
};

}  // namespace corvel::practice
