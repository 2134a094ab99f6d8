// The client's list and combo boxes: rows that are pointers into its own memory.
#pragma once

#include "practice/controls/hosted_window.h"
#include "practice/controls/own_memory.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

// The client's record of one row. A stranger reads it so: at the row's data value + 24 stands the
// address of a second record, and at that + 6 the name, NUL-terminated, at most 16 bytes.
class RowMemory {
 public:
  RowMemory(OwnMemory& memory, std::string_view name);
  ~RowMemory();
  RowMemory(RowMemory&& other) noexcept;
  RowMemory& operator=(RowMemory&& other) noexcept;

  std::uint32_t data() const { return data_; }
  const std::string& name() const { return name_; }

 private:
  OwnMemory* memory_;
  std::string name_;
  std::uint32_t record_ = 0, data_ = 0;
};

// _AOL_LISTBOX and _AOL_COMBOBOX, which answer the messages of both kinds alike.
class RowList : public HostedWindow {
 public:
  using HostedWindow::HostedWindow;

  void Add(std::string_view name);
  // False: no such row. Names are compared as the service does.
  bool Remove(std::string_view name);
  std::optional<std::size_t> RowOf(std::string_view name) const;
  std::string NameAt(int row) const;  // "" out of range
  std::size_t Count() const { return rows_.size(); }
  int selected() const { return selected_; }
  void Select(int row);
  static constexpr int kRowHeight = 16;  // pixels
  // The point of a row, as mouse messages carry it.
  static LParam PointOf(std::size_t row);
  const std::vector<RowMemory>& rows() const { return rows_; }

 protected:
  MessageResult Handle(const Message& message) override;

 private:
  void Changed(MessageId how);  // tells the system, which draws the rows
  std::vector<RowMemory> rows_;
  int selected_ = -1;
};

}  // namespace corvel::practice
