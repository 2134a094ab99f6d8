// Five calls that the compiler's own library makes and Windows 95 and 98 don't have: they export
// them as stubs that fail, or not at all. The first of them makes locks, without which neither an
// exception nor a guarded static works.
//
// A call of the system goes through a slot with a name of its own, which the loader fills. Defined
// here, the slots hold calls of ours, and the program no longer imports the system's. This works
// only where the linker sees this object before it looks into libraries, so it is linked as an
// object and not from an archive. On 64-bit editions the system's calls are all there.
#include <windows.h>

#if defined(_M_IX86) || defined(__i386__)

#include <cstring>
#include <sys/stat.h>

namespace {

// A name in the system's code page. Those that the library asks for are short.
class Name {
 public:
  explicit Name(const wchar_t* wide) : isNull_(wide == nullptr) {
    if (!isNull_) WideCharToMultiByte(CP_ACP, 0, wide, -1, text_, sizeof text_, nullptr, nullptr);
    text_[sizeof text_ - 1] = '\0';
  }
  const char* Text() const { return isNull_ ? nullptr : text_; }

 private:
  bool isNull_;
  char text_[MAX_PATH] = {};
};

HANDLE WINAPI MakeSemaphore(SECURITY_ATTRIBUTES* security, LONG count, LONG most,
                            const wchar_t* name) {
  return CreateSemaphoreA(security, count, most, Name(name).Text());
}

HMODULE WINAPI FindModule(const wchar_t* name) { return GetModuleHandleA(Name(name).Text()); }

HMODULE WINAPI Load(const wchar_t* name) { return LoadLibraryA(Name(name).Text()); }

HMODULE ModuleAt(const void* address) {
  MEMORY_BASIC_INFORMATION memory;
  if (!VirtualQuery(address, &memory, sizeof memory)) return nullptr;
  return static_cast<HMODULE>(memory.AllocationBase);
}

BOOL WINAPI FindModuleAndKeep(DWORD flags, const wchar_t* name, HMODULE* found) {
  *found = flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS ? ModuleAt(name) : FindModule(name);
  char path[MAX_PATH];
  if (!*found || !GetModuleFileNameA(*found, path, sizeof path)) return FALSE;
  // One count more keeps it; there is no way to pin it for good, but nothing gives this one back.
  if (flags & GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) return TRUE;
  return LoadLibraryA(path) != nullptr;
}

// The older call tells the same, but for times that have 32 bits.
int DescribeFile(int file, struct _stat64* description) {
  struct _stati64 old;
  if (_fstati64(file, &old) != 0) return -1;
  std::memset(description, 0, sizeof *description);
  description->st_dev = old.st_dev;
  description->st_ino = old.st_ino;
  description->st_mode = old.st_mode;
  description->st_nlink = old.st_nlink;
  description->st_uid = old.st_uid;
  description->st_gid = old.st_gid;
  description->st_rdev = old.st_rdev;
  description->st_size = old.st_size;
  description->st_atime = old.st_atime;
  description->st_mtime = old.st_mtime;
  description->st_ctime = old.st_ctime;
  return 0;
}

}  // namespace

#define CORVEL_SLOT(variable, symbol, function)                  \
  extern "C" decltype(&function) const variable __asm__(symbol); \
  extern "C" __attribute__((used)) decltype(&function) const variable = function

CORVEL_SLOT(createSemaphoreSlot, "__imp__CreateSemaphoreW@16", MakeSemaphore);
CORVEL_SLOT(getModuleHandleSlot, "__imp__GetModuleHandleW@4", FindModule);
CORVEL_SLOT(loadLibrarySlot, "__imp__LoadLibraryW@4", Load);
CORVEL_SLOT(getModuleHandleExSlot, "__imp__GetModuleHandleExW@12", FindModuleAndKeep);
CORVEL_SLOT(fstat64Slot, "__imp___fstat64", DescribeFile);

#endif
