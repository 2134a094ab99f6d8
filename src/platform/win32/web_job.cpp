// A question to a web server; see web_job.h.
#include "platform/win32/web_job.h"

#include "platform/web.h"

#include <cstring>
#include <new>
// After the system's own.
#include <wininet.h>

namespace corvel::win32 {
namespace {

constexpr DWORD kMostText = 65536, kPart = 4096;
// The library's calls, found at run time: a bare Windows 95 has no such library. It stays loaded,
// for a thread may be in it for ever.
struct Library {
  decltype(&InternetOpenA) open = nullptr;
  decltype(&InternetSetOptionA) setOption = nullptr;
  decltype(&InternetOpenUrlA) openUrl = nullptr;
  decltype(&InternetReadFile) readFile = nullptr;
  decltype(&InternetCloseHandle) close = nullptr;

  bool Load() {
    const HMODULE module = LoadLibraryA("wininet.dll");
    return module && Find(module, "InternetOpenA", open) &&
           Find(module, "InternetSetOptionA", setOption) &&
           Find(module, "InternetOpenUrlA", openUrl) &&
           Find(module, "InternetReadFile", readFile) && Find(module, "InternetCloseHandle", close);
  }

 private:
  template <class F>
  static bool Find(HMODULE module, const char* name, F& function) {
    function = reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    return function != nullptr;
  }
};

// Room for one part more; false at the most or without memory.
bool MakeRoom(WebJob& job) {
  if (job.size + kPart <= job.room) return true;
  if (job.room + kPart > kMostText) return false;
  void* const larger = job.text ? HeapReAlloc(GetProcessHeap(), 0, job.text, job.room + kPart)
                                : HeapAlloc(GetProcessHeap(), 0, kPart);
  if (!larger) return false;
  job.text = static_cast<char*>(larger);
  job.room += kPart;
  return true;
}

DWORD ReadAll(const Library& library, HINTERNET url, WebJob& job) {
  while (MakeRoom(job)) {
    DWORD read = 0;
    if (!library.readFile(url, job.text + job.size, kPart, &read)) return GetLastError();
    if (read == 0) break;
    job.size += read;
  }
  return 0;
}

// Nobody waits longer, so the thread need not either. (Not every release of the library heeds it.)
void LimitSilence(const Library& library, HINTERNET session) {
  constexpr DWORD kOptions[] = {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                                INTERNET_OPTION_RECEIVE_TIMEOUT};
  DWORD limit = kLongestWebAnswerMs, once = 1;
  for (const DWORD option : kOptions) library.setOption(session, option, &limit, sizeof limit);
  library.setOption(session, INTERNET_OPTION_CONNECT_RETRIES, &once, sizeof once);
}

DWORD Fetch(WebJob& job) {
  Library library;
  if (!library.Load()) return web_error::kNoLibrary;
  const HINTERNET session = library.open(job.agent, INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0);
  if (!session) return GetLastError();
  LimitSilence(library, session);
  const HINTERNET url =
      library.openUrl(session, job.address, nullptr, 0, INTERNET_FLAG_EXISTING_CONNECT, 0);
  const DWORD error = url ? ReadAll(library, url, job) : GetLastError();
  if (url) library.close(url);
  library.close(session);
  return error;
}

DWORD WINAPI Run(void* given) {
  auto* const job = static_cast<WebJob*>(given);
  job->error = Fetch(*job);
  job->isOver = true;
  LetGo(job);
  return 0;
}

char* PutText(char* at, std::string_view text) {
  std::memcpy(at, text.data(), text.size());
  at[text.size()] = '\0';
  return at + text.size() + 1;
}

}  // namespace

static_assert(INTERNET_FLAG_EXISTING_CONNECT == 0x20000000);

WebJob* BeginWebJob(std::string_view agent, std::string_view address) {
  agent = agent.substr(0, agent.find('\0'));
  address = address.substr(0, address.find('\0'));
  void* const block =
      HeapAlloc(GetProcessHeap(), 0, sizeof(WebJob) + agent.size() + address.size() + 2);
  if (!block) return nullptr;
  auto* const job = new (block) WebJob;
  job->agent = static_cast<char*>(block) + sizeof(WebJob);
  job->address = PutText(job->agent, agent);
  PutText(job->address, address);
  ++job->holders;
  DWORD id = 0;  // Windows 95 wants to tell it
  if (const HANDLE thread = CreateThread(nullptr, 0, Run, job, 0, &id)) {
    CloseHandle(thread);
    return job;
  }
  job->error = GetLastError();
  job->isOver = true;
  --job->holders;
  return job;
}

void LetGo(WebJob* job) {
  if (--job->holders > 0) return;
  if (job->text) HeapFree(GetProcessHeap(), 0, job->text);
  HeapFree(GetProcessHeap(), 0, job);
}

}  // namespace corvel::win32
