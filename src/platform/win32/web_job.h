// One question to a web server, asked by a thread of its own, since the system's library blocks
// whoever asks.
//
// The program has one thread and must stay so. So the other one touches nothing but its job: a
// block of memory from the process's heap that both sides hold and the last one frees. It calls the
// system and its web library alone: no exception, no memory of the C++ library. A job that nobody
// waits for any more goes on until the library gives it up, which the end of the process does not
// wait for.
#pragma once

#include <atomic>
#include <string_view>
#include <windows.h>

namespace corvel::win32 {

struct WebJob {
  std::atomic<int> holders{1};
  std::atomic<bool> isOver{false};
  DWORD error = 0;       // of the system's web library, or of the system if it has none
  char* text = nullptr;  // what has come, up to 64 KB
  DWORD size = 0, room = 0;
  char* agent = nullptr;  // behind the job, as C texts
  char* address = nullptr;
};

// Begins a job, which the caller holds; nullptr without memory.
WebJob* BeginWebJob(std::string_view agent, std::string_view address);
void LetGo(WebJob* job);

}  // namespace corvel::win32
