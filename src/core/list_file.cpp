#include "core/list_file.h"

#include "base/text.h"

namespace corvel {

namespace {

// A line end inside a text would tear its row in two, and the first half, without a TAB, would be
// lost at the next load.
std::string OnOneLine(std::string_view text) {
  std::string line(text);
  for (char& c : line)
    if (c == '\r' || c == '\n') c = ' ';
  return line;
}

// In one step where the control can, so that a long file doesn't cost the square of its rows.
void FillEmptyList(forms::ListBox& list, const std::vector<ListRow>& rows) {
  std::vector<std::string> texts;
  texts.reserve(rows.size());
  for (const ListRow& row : rows) texts.push_back(row.text);
  const std::vector<std::size_t> order = list.SetItems(std::move(texts));
  for (std::size_t i = 0; i < order.size(); ++i)
    list.SetItemData(static_cast<int>(i), rows[order[i]].number);
}

// A file that was edited by hand may lack its last line end; a row put right behind it would be
// read as that line's number.
std::string_view MissingLineEnd(std::string_view bytes) {
  const bool ended = bytes.empty() || bytes.back() == '\n' || bytes.back() == '\r';
  return ended ? "" : "\r\n";
}

}  // namespace

std::vector<ListRow> ParseListFile(std::string_view bytes) {
  std::vector<ListRow> rows;
  for (const std::string_view line : Lines(bytes)) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) continue;
    rows.push_back({std::string(line.substr(0, tab)), IntVal(line.substr(tab + 1))});
  }
  return rows;
}

std::string FormatListFile(const std::vector<std::string>& rows) {
  std::string bytes;
  for (const std::string& row : rows) bytes += OnOneLine(row) + "\t\r\n";
  return bytes;
}

void SaveListItemData(Program& program, const forms::Rows& list, std::string_view path) {
  program.platform.files.Write(path, FormatListFile(list.Items()));
}

void LoadListItemData(Program& program, forms::Rows& list, std::string_view path) {
  program.platform.files.Append(path, "");
  const std::vector<ListRow> rows = ParseListFile(program.platform.files.Read(path));
  if (auto* box = dynamic_cast<forms::ListBox*>(&list); box && box->ListCount() == 0) {
    FillEmptyList(*box, rows);
    return;
  }
  for (const ListRow& row : rows) {
    list.AddItem(row.text);
    list.SetItemData(list.NewIndex(), row.number);
  }
}

void AppendList(Program& program, forms::Rows& list, std::string_view path, std::string& text) {
  Files& files = program.platform.files;
  const std::string before = files.Exists(path) ? files.Read(path) : std::string();
  // The file first: if it refuses, the control doesn't show a row that isn't kept.
  files.Append(path, std::string(MissingLineEnd(before)) + FormatListFile({text}));
  list.AddItem(text);
  text.clear();
}

}  // namespace corvel
