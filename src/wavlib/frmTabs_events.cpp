// The procedures of the wav list's buttons and menus.
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "wavlib/frmDescrip.h"
#include "wavlib/frmTabs.h"
#include "wavlib/path_check.h"
#include "wavlib/wav_categories.h"
#include "wavlib/wav_descriptions.h"
#include "wavlib/wav_files.h"
#include "wavlib/wav_name.h"

#include <algorithm>

namespace corvel {

// --- Categories ----------------------------------------------------------------------------------

void frmTabs::cmdNewCat_Click() {
  const std::string folder = Lower(ChooseFolder(program, WavFolderQuestion()));
  if (folder.empty()) return;
  const std::string name = InputBoxEx(
      program,
      "Enter a name this new Wav Category and click ~BOK~B.~N ~NPath for this Wav Category is: "
      "~B~CB" +
          folder);
  if (name.empty()) return;
  if (cboList.FindExact(name) >= 0) {
    MsgBoxEx(program,
             "~B~CRCategory name already exists!~B~CN~N ~NPlease choose another name for this Wav "
             "Category.",
             style::kOk + style::kExclamation);
    return;
  }
  if (!Reported(program, {"frmTabs", "cmdNewCat_Click"},
                [&] { WriteCategory(program, name, folder); }))
    return;
  cboList.AddItem(name, cboList.ListCount() - 1);
  SelectCategoryQuietly(cboList.FindString(-1, name));
  cboList_Click();
  CheckPath(program, name);
}

void frmTabs::cmdEditCat_Click() {
  if (cboList.ListIndex() < 0) {
    MsgBoxEx(program,
             "~B~CRNo Category Name has been selected for editing.~B~CN~N ~NPlease select a "
             "Category before attempting to use this function.",
             style::kOk + style::kExclamation);
    return;
  }
  const std::string oldName = cboList.Text(), folder = lblpath.Caption();
  const std::string name = InputBoxEx(
      program, "Below is the currently selected Category.  Make changes as necessary and click OK.",
      oldName);
  if (name.empty()) return;
  // Written first and deleted then, also if the name hasn't changed: the entry is then gone at the
  // next start.
  if (!Reported(program, {"frmTabs", "cmdEditCat_Click"},
                [&] { WriteCategory(program, name, folder); }))
    return;
  program.store.DeleteValue("Categories", oldName);
  cboList.RemoveItem(cboList.FindExact(oldName));
  SelectCategoryQuietly(cboList.AddItem(name, cboList.ListCount() - 1));
  program.store.WriteKey("Wav List", "Default Category", name);
}

void frmTabs::cmdDelCat_Click() {
  const int row = cboList.ListIndex();
  if (row < 0) {
    MsgBoxEx(program,
             "~B~CRNo Category has been selected for deletion.~B~CN~N ~NPlese select a category "
             "before attemping this function.",
             style::kOk + style::kExclamation);
    return;
  }
  const std::string name = cboList.Text();
  if (!AskYesNo(program, "You are about to delete Wav Category ~B~CR" + name +
                             ".~B~CN~N ~NThis action will ~Bnot~B delete actual wavs.~N ~NDo you "
                             "wish to proceed?"))
    return;
  program.store.DeleteValue("Categories", name);
  cboList.RemoveItem(cboList.FindExact(name));
  if (cboList.ListCount() > 0) {
    SelectCategoryQuietly(0);
    cboList_Click();
  } else {
    lstWav.Clear();
    List3.Clear();
  }
}

// --- Wavs and FavWavs ----------------------------------------------------------------------------

void frmTabs::lstWav_Click() {
  if (!program.settings.Descriptions.Show) return;
  const std::string text = GetWavDescrip(program, lstWav.Text());
  if (!program.settings.Descriptions.AsWindow) {
    lstWav.SetToolTip(text);
    return;
  }
  lstWav.SetToolTip("");
  frmDescrip* window = program.forms.Loaded<frmDescrip>();
  if (window && window->Visible()) window->lblDes.SetCaption(text);
}

void frmTabs::lstWav_DblClick() {
  if (!program.settings.WavList.DoubleClickSends) {
    PreviewWav();
    return;
  }
  WindowSystem& windows = program.platform.windows;
  const Window top = windows.TopChild(program.g.hMDI);
  const std::string title = client_.GetCaptionText(top);
  const auto holds = [&](std::string_view part) { return title.find(part) != std::string::npos; };
  if (program.g.hChatRoom || sender_.ComposeWindowByTitle() || sender_.NewIMWindow() ||
      holds("Instant Message From:") || (holds("Corvel IM Manager") && windows.IsVisible(top)))
    cmdSend_Click();
  else
    PreviewWav();
}

void frmTabs::lstWav_RightClick() {
  if (lstWav.ListIndex() < 0) return;
  mnuWav.Row(WavRow::kDescriptions).caption =
      program.settings.Descriptions.Show ? "Hide Wav Descriptions" : "Show Wav Descriptions";
  mnuWav.Row(WavRow::kDelete).caption = InFavWavs ? "Delete FavWav" : "Delete Wav From System";
  for (const WavRow row :
       {WavRow::kRename, WavRow::kMove, WavRow::kFavWavSeparator, WavRow::kAddFavWav})
    mnuWav.Row(row).visible = !InFavWavs;
  PopupMenu(mnuWav);
}

void frmTabs::PreviewWav() {
  if (lstWav.ListIndex() < 0) return;
  const std::string path = CurrentPath();
  if (!InFavWavs || FileExists(program, path)) {
    program.platform.sound.Play(path, sound_flag::kAsync);
    return;
  }
  if (AskYesNo(program, "The following FavWav path~B " + path +
                            " ~Bis no longer valid.~N ~NWould you like to remove this FavWav?"))
    DelFavWav();
}

void frmTabs::cmdDel_Click() {
  const int row = lstWav.ListIndex();
  if (row < 0) {
    MsgBoxEx(program,
             "~B~CRNo wav has been selected for deletion.~B~CN~N ~NPlease select a wav in the wav "
             "list box before attempting to use this function.",
             style::kOk + style::kExclamation);
    return;
  }
  if (InFavWavs)
    DelFavWav();
  else if (DeleteWav(program, Handle(), CurrentPath()))
    cmdFav_Click();
  SelectRow(row);
}

void frmTabs::RenameCurrent() {
  if (!RenameWav(program, lblpath.Caption(), lstWav.Text())) return;
  LoadWavList();
  WriteCount();
}

void frmTabs::SendCurrentTo() {
  if (SendWavTo(program, *this, CurrentPath(), lstWav.Text())) Refresh();
}

void frmTabs::cmdFav_Click() {
  if (InFavWavs)
    PopupMenu(mnuFavWav);
  else
    Refresh();
}

// After a failed reading the rows aren't the file's: it is read again before it is changed.
bool frmTabs::EnsureFavWavsRead() {
  if (InFavWavs && !favWavsRead_) cboList_Click();
  return favWavsRead_;
}

void frmTabs::AddFavWav() {
  if (cboList.ListIndex() < 0) {
    MsgBoxEx(program, "No wav group selected.", style::kOk + style::kExclamation);
    return;
  }
  cmdClose.SetEnabled(false);
  const std::string path = OpenDialog(program, Handle(), "WAV Files", "*.wav", 1);
  cmdClose.SetEnabled(true);
  if (path.empty() || !EnsureFavWavsRead()) return;  // read, and still shown
  const std::string fileName = FileNameOf(path);
  if (List3.FindExact(Lower(path)) >= 0) {
    MsgBoxEx(program, "The ~B~CR" + fileName + "~B~CN file in ~B~CB" + Lower(FolderOf(path)) +
                          "~B~CN already exists in your FavWavs category!");
    return;
  }
  const FavWav wav{std::string(WithoutExtension(Lower(fileName))), Lower(path)};
  if (!Reported(program, {"frmTabs", "AddFavWav"}, [&] { favWavs_.Append(wav); })) return;
  List3.AddItem(wav.path, lstWav.AddItem(wav.name));
  WriteCount();
}

void frmTabs::AddFavWavPath(const std::string& path) {
  Reported(program, {"frmTabs", "AddFavWavPath"}, [&] {
    favWavs_.Append({Lower(lstWav.Text()), Lower(path)});
  });
}

std::vector<FavWav> frmTabs::FavWavsShown() const {
  std::vector<FavWav> wavs;
  for (int row = 0; row < lstWav.ListCount(); ++row)
    wavs.push_back({lstWav.List(row), List3.List(row)});
  return wavs;
}

void frmTabs::DelFavWav() {
  const std::vector<int> rows = lstWav.SelectedRows();
  if (!favWavsRead_ || rows.empty()) return;
  std::vector<FavWav> left = FavWavsShown();
  std::vector<bool> goes(left.size());
  for (const int row : rows) goes[static_cast<std::size_t>(row)] = true;
  std::size_t at = 0;
  std::erase_if(left, [&](const FavWav&) { return goes[at++]; });
  if (!Reported(program, {"frmTabs", "DelFavWav"}, [&] { favWavs_.Save(left); })) return;
  lstWav.RemoveRows(rows);
  List3.RemoveRows(rows);
  WriteCount();
}

// --- Sending and descriptions --------------------------------------------------------------------

void frmTabs::cmdSend_Click() {
  const std::string name = lstWav.Text();
  if (name.empty()) {
    MsgBoxEx(program,
             "~B~CRNo wav selected!~B~CN~N ~NPlease choose a wav in the wav list box before "
             "attempting to use thie feature!",
             style::kOk + style::kExclamation);
    return;
  }
  sender_.Send(name, {chkGarland.Value() == 1, randomGarland_, lstGarlandRnd.Items()}, Handle());
}

void frmTabs::SendCurrentToText() {
  sender_.SendWavToText(InFavWavs ? std::string(WithoutExtension(FileNameOf(CurrentPath())))
                                  : lstWav.Text());
}

void frmTabs::chkGarland_Click() {
  program.store.WriteKey("Wav List", "Garland", chkGarland.Value() == 1 ? "On" : "Off");
}

void frmTabs::cmdFadeWav_Click() {
  if (!program.g.IsVersion4Or5()) {
    MsgBoxEx(program,
             "~B~CRAOL 4.0 not found!~B~CN~N ~NThe ~B~CBFadeWav~B~CN feature requires ~B~CBAOL "
             "4.0~B~CN and is not available with AOL 3.0",
             style::kOk + style::kStop);
    return;
  }
  program.hub.commands.Run(Command::kFadeDesigner);
  program.g.FadePanelUp = false;
}

void frmTabs::EditWavDescrip() {
  const std::string name = lstWav.Text();
  program.g.InputBoxUp = true;
  const std::string text = InputBoxEx(
      program,
      "~B~CR" + name +
          ".wav~B~CN~N ~NEnter the description for the selected wav listed below and click "
          "~BOK~B.~N ~NTIP: Try to keep your descriptions under 70 characters for best results!",
      FindDescription(program, name));
  program.g.InputBoxUp = false;
  if (text.empty()) return;
  if (!CanBeDescribed(name)) {
    MsgBoxEx(program,
             "~B~CRDescription not saved!~B~CN~N ~NA description file cannot hold the wav name "
             "~B~CB" +
                 name + "~B~CN.  Please rename the wav first.",
             style::kOk + style::kExclamation);
    return;
  }
  if (!Reported(program, {"frmTabs", "EditWavDescrip"}, [&] {
        WriteDescription(program, {name, text});
      }))
    return;
  if (frmDescrip* window = program.forms.Loaded<frmDescrip>()) window->lblDes.SetCaption(text);
}

void frmTabs::ToggleDescrip() {
  auto& settings = program.settings.Descriptions;
  settings.Show = !settings.Show;
  if (!settings.Show) {
    lstWav.SetToolTip("");
    if (frmDescrip* window = program.forms.Loaded<frmDescrip>()) window->Hide();
    return;
  }
  const std::string text = GetWavDescrip(program, lstWav.Text());
  if (!settings.AsWindow) {
    lstWav.SetToolTip(text);
    return;
  }
  auto& window = program.forms.Load<frmDescrip>(program);
  window.lblDes.SetCaption(text);
  window.Show(false);
}

}  // namespace corvel
