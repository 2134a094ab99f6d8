#include "wavlib/frmEditDesc.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/looks.h"
#include "core/menu_rows.h"
#include "core/report_error.h"
#include "wavlib/frmDescripAssign.h"
#include "wavlib/list_output.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace corvel {
namespace {

// A row's columns are parted by TAB, so the texts can't hold one.
std::string ColumnText(const std::string& text) { return Replaced(text, "\t", " "); }

std::string RowText(const Description& record) {
  return ColumnText(record.name) + '\t' + ColumnText(record.text);
}

std::string AlreadyExists(const std::string& name) {
  return "CANNOT ADD RECORD!\r\n\r\nThe wav \"" + name +
         "\" already exists in your Wav Descriptions queue.\r\n\r\nTo edit this wav's "
         "description, highlight the wav in the editor window and make changes as desired.";
}

}  // namespace

frmEditDesc::frmEditDesc(Program& program, AolClient& client)
    : ProgramForm(program, "frmEditDesc", "Wav Descriptions"),
      ListView1(*this, "ListView1", {"Wav", "Description"}),
      cmdNew(*this, "cmdNew", "&New..."),
      cmdEdit(*this, "cmdEdit", "&Edit..."),
      cmdDel(*this, "cmdDel", "&Delete"),
      cmdPrint(*this, "cmdPrint", "&Print"),
      cmdHelp(*this, "cmdHelp", "&Help"),
      cmdExit(*this, "cmdExit", "E&xit"),
      mnuPrintItem("mnuPrintItem", "",
                   {MenuItem("Print to Printer", [this] { PrintDescriptions(); }),
                    MenuItem("Print to E-Mail", [this] { ListToEMail(); }),
                    MenuItem("Print to File", [this] { ListsToFile(); })}),
      client_(client) {
  ListView1.SetAccessibleName("Wav descriptions");
  ListView1.onDblClick = [this] { cmdEdit_Click(); };
  cmdNew.onClick = [this] { cmdNew_Click(); };
  cmdEdit.onClick = [this] { cmdEdit_Click(); };
  cmdDel.onClick = [this] { cmdDel_Click(); };
  cmdPrint.onClick = [this] { PopupMenu(mnuPrintItem); };
  cmdHelp.onClick = [this] { ShowHelp(this->program, "Wav Descriptions"); };
  cmdExit.SetCancel(true);
  cmdExit.onClick = [this] { Unload(); };
}

void frmEditDesc::Form_Load() {
  SetFormColor(program, *this);
  using namespace forms;
  Arrange(forms::Row(
      {Stretch(Cell(ListView1, 56, 16)), Column({Cell(cmdNew), Cell(cmdEdit), Cell(cmdDel),
                                                 Cell(cmdPrint), Cell(cmdHelp), Cell(cmdExit)})}));
  Center();
  DescriptionIndex index;
  for (const std::string& file : DescriptionFiles(program))
    Reported(program, {"frmEditDesc", "Form_Load"},
             [&] { index.Add(program.platform.files.Read(file)); });
  ShowRecords(index.Records(), {});
  if (ListView1.ListCount() > 0) ListView1.SetListIndex(0);
}

void frmEditDesc::Refresh() {
  DescriptionIndex index;
  try {
    for (const std::string& file : DescriptionFiles(program))
      index.Add(program.platform.files.Read(file));
  } catch (const RunTimeError&) {
    return;  // the rows that stand are as good as any
  }
  ShowRecords(index.Records(), CurrentName());
}

void frmEditDesc::ShowRecords(const std::vector<Description>& records, const std::string& current) {
  std::unordered_map<std::string, std::size_t> places;
  for (int row = 0; row < ListView1.ListCount(); ++row)
    places.try_emplace(Lower(Row(row).name), places.size());
  std::vector<std::pair<std::size_t, std::string>> rows;
  for (const Description& record : records) {
    const auto place = places.find(Lower(ColumnText(record.name)));
    rows.emplace_back(place == places.end() ? places.size() : place->second, RowText(record));
  }
  std::stable_sort(rows.begin(), rows.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> texts;
  for (auto& row : rows) texts.push_back(std::move(row.second));
  ListView1.SetItems(std::move(texts));
  EnableButtons();
  ListView1.SetListIndex(RowOf(current));
}

void frmEditDesc::EnableButtons() {
  const bool any = ListView1.ListCount() > 0;
  cmdEdit.SetEnabled(any);
  cmdDel.SetEnabled(any);
  cmdPrint.SetEnabled(any);
}

Description frmEditDesc::Row(int row) const {
  return {ListView1.Cell(row, 0), ListView1.Cell(row, 1)};
}

int frmEditDesc::RowOf(std::string_view name) const {
  for (int row = 0; row < ListView1.ListCount(); ++row)
    if (EqualNoCase(Trim(ListView1.Cell(row, 0)), Trim(name))) return row;
  return -1;
}

bool frmEditDesc::IsUsable(const Description& record) {
  if (CanBeDescribed(record.name)) return true;
  PlainBox(program,
           "A description file cannot hold the wav name \"" + record.name +
               "\".\r\n\r\nPlease enter the name of the wav, without the .wav extension.",
           style::kOk + style::kExclamation);
  return false;
}

void frmEditDesc::cmdNew_Click() {
  const auto record = Ask<frmDescripAssign>(program, this, Description{});
  if (!record || !IsUsable(*record)) return;
  if (Row(RowOf(record->name)).name == record->name) {
    PlainBox(program, AlreadyExists(record->name), style::kOk + style::kInformation);
    return;
  }
  if (!Reported(program, {"frmEditDesc", "cmdNew_Click"},
                [&] { WriteDescription(program, *record); }))
    return;
  ListView1.AddItem(RowText(*record));
  Refresh();
  ListView1.SetListIndex(RowOf(record->name));
  ListView1.Sort();
}

void frmEditDesc::cmdEdit_Click() {
  if (ListView1.ListIndex() < 0) return;
  const Description old = Row(ListView1.ListIndex());
  const auto record = Ask<frmDescripAssign>(program, this, old);
  if (!record || !IsUsable(*record)) return;
  // Under another's name it would take that one's place.
  if (RowOf(record->name) >= 0 && !EqualNoCase(record->name, Trim(old.name))) {
    PlainBox(program, AlreadyExists(record->name), style::kOk + style::kInformation);
    return;
  }
  const bool written = Reported(program, {"frmEditDesc", "cmdEdit_Click"}, [&] {
    const auto deleted = DeleteDescription(program, old.name);
    try {
      WriteDescription(program, *record);
    } catch (const RunTimeError&) {
      RestoreDescriptions(program, deleted);
      throw;
    }
  });
  if (!written) return;
  ListView1.SetItem(RowOf(old.name), RowText(*record));
  Refresh();
}

void frmEditDesc::cmdDel_Click() {
  if (ListView1.ListIndex() < 0) return;
  const std::string name = CurrentName();
  if (!AskYesNo(program,
                "~B~CRDelete record?~B~CN~N ~NAre you sure you want to delete the record~B~CB " +
                    name + "~B~CN from your Wav Description queue?"))
    return;
  if (!Reported(program, {"frmEditDesc", "cmdDel_Click"},
                [&] { DeleteDescription(program, name); }))
    return;
  ListView1.RemoveItem(RowOf(name));
  EnableButtons();
  Refresh();
}

std::vector<Description> frmEditDesc::Records() const {
  std::vector<Description> records;
  for (int row = 0; row < ListView1.ListCount(); ++row) records.push_back(Row(row));
  return records;
}

void frmEditDesc::PrintDescriptions() {
  const std::vector<Description> records = Records();
  const auto font = AskRowFont(program);
  if (!font) return;
  Print(program, program.g.CurrentSN + "'s Wav Descriptions", [&](PrintJob& job) {
    for (const Description& record : records) {
      job.Line(record.name, *font);
      job.Line(record.text, *font);
    }
  });
}

void frmEditDesc::ListToEMail() {
  const std::string& user = program.g.CurrentSN;
  std::string body = MailHead(user, "<B>Wav Descriptions</B>");
  for (const Description& record : Records())
    body += "<FONT COLOR=#FF0000><B>" + record.name + "</B><FONT COLOR=#000000>\r\n<I>" +
            record.text + "</I>\r\n";
  ComposeMail(program, client_, user + "'s Wav Descriptions", body.append(kMailEnd));
}

void frmEditDesc::ListsToFile() {
  const std::vector<Description> records = Records();
  const std::string path = AskTextFile(program, "Wav Descriptions", "Descriptions");
  if (path.empty()) return;
  std::string text;
  for (const Description& record : records) text += record.name + "\r\n" + record.text + "\r\n\r\n";
  Reported(program, {"frmEditDesc", "ListsToFile"},
           [&] { program.platform.files.Write(path, text); });
}

void RefreshDescriptionEditor(Program& program) {
  if (frmEditDesc* editor = program.forms.Loaded<frmEditDesc>()) editor->Refresh();
}

}  // namespace corvel
