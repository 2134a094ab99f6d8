#include "wavlib/frmEditDesc.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/looks.h"
#include "core/menu_rows.h"
#include "core/report_error.h"
#include "wavlib/frmDescripAssign.h"
#include "wavlib/list_output.h"

namespace corvel {
namespace {

// A row's columns are parted by TAB, so the texts can't hold one.
std::string RowText(const Description& record) {
  return Replaced(record.name, "\t", " ") + '\t' + Replaced(record.text, "\t", " ");
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
  LoadRows();
}

void frmEditDesc::LoadRows() {
  Files& files = program.platform.files;
  std::vector<std::string> rows;
  for (const FoundFile& file : files.Search(program.InFolder("data\\desc*.dat"))) {
    if ((file.attributes & file_attribute::kFolder) != 0) continue;
    Reported(program, {"frmEditDesc", "Form_Load"}, [&] {
      const std::string bytes = files.Read(program.InFolder("data\\" + file.name));
      for (const Description& record : ParseDescriptions(bytes)) rows.push_back(RowText(record));
    });
  }
  ListView1.SetItems(std::move(rows));
  EnableButtons();
  if (ListView1.ListCount() > 0) ListView1.SetListIndex(0);
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

int frmEditDesc::FindName(const std::string& name) const {
  for (int row = 0; row < ListView1.ListCount(); ++row)
    if (Trim(ListView1.Cell(row, 0)) == name) return row;
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
  const auto record = AskDescription(program, *this, {});
  if (!record || !IsUsable(*record)) return;
  if (FindName(record->name) >= 0) {
    PlainBox(program, AlreadyExists(record->name), style::kOk + style::kInformation);
    return;
  }
  if (!Reported(program, {"frmEditDesc", "cmdNew_Click"},
                [&] { WriteDescription(program, *record); }))
    return;
  ListView1.SetListIndex(ListView1.AddItem(RowText(*record)));
  ListView1.Sort();
  EnableButtons();
}

void frmEditDesc::cmdEdit_Click() {
  const int row = ListView1.ListIndex();
  if (row < 0) return;
  const std::string oldName = Row(row).name;
  const auto record = AskDescription(program, *this, Row(row));
  if (!record || !IsUsable(*record)) return;
  const int other = FindName(record->name);
  if (other >= 0 && record->name != Trim(oldName)) {  // its description would be lost
    PlainBox(program, AlreadyExists(record->name), style::kOk + style::kInformation);
    return;
  }
  const bool written = Reported(program, {"frmEditDesc", "cmdEdit_Click"}, [&] {
    const auto deleted = DeleteDescription(program, oldName);
    try {
      WriteDescription(program, *record);
    } catch (const RunTimeError&) {
      RestoreDescriptions(program, deleted);
      throw;
    }
  });
  if (written) ListView1.SetItem(row, RowText(*record));
}

void frmEditDesc::cmdDel_Click() {
  const int row = ListView1.ListIndex();
  if (row < 0) return;
  const std::string name = Row(row).name;
  if (!AskYesNo(program,
                "~B~CRDelete record?~B~CN~N ~NAre you sure you want to delete the record~B~CB " +
                    name + "~B~CN from your Wav Description queue?"))
    return;
  if (!Reported(program, {"frmEditDesc", "cmdDel_Click"},
                [&] { DeleteDescription(program, name); }))
    return;
  ListView1.RemoveItem(row);
  EnableButtons();
}

std::vector<Description> frmEditDesc::Records() const {
  std::vector<Description> records;
  for (int row = 0; row < ListView1.ListCount(); ++row) records.push_back(Row(row));
  return records;
}

void frmEditDesc::PrintDescriptions() {
  const auto font = AskRowFont(program);
  if (!font) return;
  Print(program, program.g.CurrentSN + "'s Wav Descriptions", [&](PrintJob& job) {
    for (const Description& record : Records()) {
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
  const std::string path = AskTextFile(program, "Wav Descriptions", "Descriptions");
  if (path.empty()) return;
  std::string text;
  for (const Description& record : Records())
    text += record.name + "\r\n" + record.text + "\r\n\r\n";
  Reported(program, {"frmEditDesc", "ListsToFile"},
           [&] { program.platform.files.Write(path, text); });
}

}  // namespace corvel
