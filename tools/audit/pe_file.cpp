#include "tools/audit/pe_file.h"

#include "base/text.h"

#include <algorithm>

namespace corvel::audit {
namespace {

constexpr std::size_t kSectionSize = 40;
constexpr std::size_t kDescriptorSize = 20;
constexpr int kImportDirectory = 1;
constexpr int kDelayedImportDirectory = 13;

struct Section {
  std::uint32_t address, size, place, sizeInFile;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {
    if (bytes.substr(0, 2) != "MZ") throw BadProgram("is no program");
    header_ = Number(0x3C, 4);
    if (Part(header_, 4) != std::string_view("PE\0\0", 4)) throw BadProgram("is no program");
    const std::uint64_t kind = Number(Optional(), 2);
    if (kind != 0x10B && kind != 0x20B) throw BadProgram("is of an unknown format");
    is64_ = kind == 0x20B;
    ReadSections();
  }

  PeFile Read() const {
    PeFile file;
    file.machine = Half(header_ + 4);
    file.system = {Half(Optional() + 40), Half(Optional() + 42)};
    file.subsystem = {Half(Optional() + 48), Half(Optional() + 50)};
    file.loaderBits = Half(Optional() + 70);
    file.hasDelayedImports = Directory(kDelayedImportDirectory) != 0;
    if (const auto imports = Directory(kImportDirectory)) ReadImports(imports, file.imports);
    return file;
  }

 private:
  std::string_view Part(std::uint64_t place, std::uint64_t size) const {
    if (place > bytes_.size() || size > bytes_.size() - place) throw BadProgram("ends too early");
    return bytes_.substr(place, size);
  }
  std::uint64_t Number(std::uint64_t place, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; const char c : Part(place, size))
      value |= std::uint64_t{static_cast<unsigned char>(c)} << (8 * i++);
    return value;
  }
  std::uint16_t Half(std::uint64_t place) const {
    return static_cast<std::uint16_t>(Number(place, 2));
  }
  std::uint32_t Word(std::uint64_t place) const {
    return static_cast<std::uint32_t>(Number(place, 4));
  }
  std::uint64_t Optional() const { return header_ + 24; }

  void ReadSections() {
    const std::uint64_t first = Optional() + Number(header_ + 20, 2);
    const auto count = static_cast<std::size_t>(Number(header_ + 6, 2));
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint64_t at = first + i * kSectionSize;
      sections_.push_back({Word(at + 12), Word(at + 8), Word(at + 20), Word(at + 16)});
    }
  }

  // The address of a table of the loader's, 0 if there is none.
  std::uint32_t Directory(int index) const {
    const std::uint64_t tables = Optional() + (is64_ ? 112 : 96);
    if (static_cast<std::uint64_t>(index) >= Number(tables - 4, 4)) return 0;
    return Word(tables + static_cast<std::uint64_t>(index) * 8);
  }

  // Where the file has what the loader puts at an address.
  std::uint64_t PlaceOf(std::uint64_t address) const {
    for (const Section& section : sections_)
      if (address >= section.address && address - section.address < section.sizeInFile)
        return section.place + (address - section.address);
    throw BadProgram("points outside of itself");
  }

  std::string TextAt(std::uint64_t address) const {
    const std::uint64_t place = PlaceOf(address);
    const std::string_view rest = Part(place, bytes_.size() - std::min(place, Size()));
    return std::string(rest.substr(0, rest.find('\0')));
  }
  std::uint64_t Size() const { return bytes_.size(); }

  void ReadImports(std::uint64_t descriptor, std::vector<Import>& imports) const {
    for (;; descriptor += kDescriptorSize) {
      const std::uint64_t at = PlaceOf(descriptor);
      const std::uint32_t name = Word(at + 12), slots = Word(at + 16);
      if (name == 0 && slots == 0) return;
      const std::uint32_t names = Word(at) ? Word(at) : slots;
      ReadNames(Lower(TextAt(name)), names, imports);
    }
  }

  void ReadNames(const std::string& library, std::uint64_t entry,
                 std::vector<Import>& imports) const {
    const std::size_t size = is64_ ? 8 : 4;
    const std::uint64_t byNumber = std::uint64_t{1} << (size * 8 - 1);
    for (;; entry += size) {
      const std::uint64_t value = Number(PlaceOf(entry), size);
      if (value == 0) return;
      if (value & byNumber)
        imports.push_back({library, "", static_cast<std::uint16_t>(value)});
      else
        imports.push_back({library, TextAt(value + 2), 0});  // behind a hint
    }
  }

  std::string_view bytes_;
  std::uint64_t header_ = 0;
  bool is64_ = false;
  std::vector<Section> sections_;
};

}  // namespace

PeFile ReadPeFile(std::string_view bytes) { return Reader(bytes).Read(); }

}  // namespace corvel::audit
