// The list file: one row a line, `text` TAB [`number`], CR LF. A line without a TAB is no row.
#pragma once

#include "core/program.h"
#include "forms/control.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel {

struct ListRow {
  std::string text;
  long number = 0;
};

// Pure readers and writer; any bytes are taken.
std::vector<ListRow> ParseListFile(std::string_view bytes);
std::string FormatListFile(const std::vector<std::string>& rows);

// Replaces the file with the control's rows, text and TAB only.
void SaveListItemData(Program& program, const forms::Rows& list, std::string_view path);
// Adds the file's rows with their numbers to the control; a missing file comes to exist, empty.
void LoadListItemData(Program& program, forms::Rows& list, std::string_view path);
// Adds to both, then clears the caller's text.
void AppendList(Program& program, forms::Rows& list, std::string_view path, std::string& text);

}  // namespace corvel
