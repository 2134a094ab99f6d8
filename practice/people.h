// Invented people who react: company for a person who uses the practice client by hand.
//
// They come into whatever room the user enters, talk at intervals and answer when they are spoken
// to; one sends sound codes, one sends instant messages. No scenario has them: there everybody says
// what the script says.
#pragma once

#include "practice/practice_client.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

class People : public WindowProcedure {
 public:
  // Makes a hidden window for its timer. Both must outlive it.
  People(Platform& platform, PracticeClient& client);
  ~People() override;
  People(const People&) = delete;
  People& operator=(const People&) = delete;

  // What the user's client has sent: give it all that the client's witness gets.
  void Hear(std::string_view kind, const std::vector<std::string>& words);
  MessageResult OnMessage(Window window, const Message& message) override;

 private:
  struct Person;
  static const std::vector<Person>& Cast();
  // What somebody is about to do.
  struct Plan {
    std::uint32_t due = 0;  // tick count
    std::vector<std::string> command;
  };
  void Tick();
  void NoticeRoom();
  void Chat();
  void RunDue();
  void After(std::uint32_t milliseconds, std::vector<std::string> command);
  std::string Pick(const std::vector<std::string>& sentences);
  std::uint32_t Between(std::uint32_t least, std::uint32_t most);
  bool IsSignedOn();

  Platform& platform_;
  PracticeClient& client_;
  Window window_{};
  std::string room_;
  std::uint32_t nextTalk_ = 0;
  std::vector<Plan> plans_;
};

}  // namespace corvel::practice
