// The procedures of the wav list's buttons and menus, but for those of its categories.
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "core/settings_wavs.h"
#include "wavlib/frmDescrip.h"
#include "wavlib/frmEditDesc.h"
#include "wavlib/frmTabs.h"
#include "wavlib/wav_descriptions.h"
#include "wavlib/wav_files.h"
#include "wavlib/wav_following.h"
#include "wavlib/wav_name.h"

#include <algorithm>

namespace corvel {

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
  if (program.g.hChatRoom || client_.WriteMailByTitle() || client_.NewIMWindow() ||
      client_.IMFromSomebodyOnTop() || program.platform.windows.IsVisible(client_.ManagerOnTop()))
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
  const ListedWav wav = Current();
  if (!InFavWavs || FileExists(program, wav.path)) {
    program.platform.sound.Play(wav.path, sound_flag::kAsync);
    return;
  }
  if (AskYesNo(program, "The following FavWav path~B " + wav.path +
                            " ~Bis no longer valid.~N ~NWould you like to remove this FavWav?"))
    RemoveFavWavs({{wav.name, wav.path}});
}

void frmTabs::cmdDel_Click() {
  if (lstWav.ListIndex() < 0) {
    MsgBoxEx(program,
             "~B~CRNo wav has been selected for deletion.~B~CN~N ~NPlease select a wav in the wav "
             "list box before attempting to use this function.",
             style::kOk + style::kExclamation);
    return;
  }
  if (InFavWavs) {
    const int row = lstWav.ListIndex();
    if (DelFavWav()) SelectRow(row);
    return;
  }
  const ListedWav wav = Current();
  if (!DeleteWav(program, Handle(), wav.path)) return;
  if (frmTabs* list = StandingAt(wav.folder)) list->Refresh();
}

void frmTabs::RenameCurrent() {
  const ListedWav wav = Current();
  const auto newName = RenameWav(program, wav);
  if (!newName) return;
  FollowRename(program, wav, *newName);
  RefreshFavWavs();
  frmTabs* const list = StandingAt(wav.folder);
  if (!list) return;
  list->Refresh();
  const int row = list->lstWav.FindExact(Lower(*newName));
  if (row >= 0 && list->Shows(wav.folder)) list->SelectRow(row);
}

void frmTabs::SendCurrentTo() {
  const ListedWav wav = Current();
  const auto path = SendWavTo(program, *this, wav);
  if (!path) return;
  if (*path != wav.path) {
    FollowMove(program, wav, *path);
    RefreshFavWavs();
  }
  if (frmTabs* list = StandingAt(wav.folder)) list->Refresh();
}

void frmTabs::cmdFav_Click() {
  if (InFavWavs)
    PopupMenu(mnuFavWav);
  else
    Refresh();
}

void frmTabs::AddFavWav() {
  if (cboList.ListIndex() < 0) {
    MsgBoxEx(program, "No wav group selected.", style::kOk + style::kExclamation);
    return;
  }
  cmdClose.SetEnabled(false);
  const std::string path = OpenDialog(program, Handle(), "WAV Files", "*.wav", 1);
  cmdClose.SetEnabled(true);
  if (path.empty()) return;
  std::vector<FavWav> known;
  if (!Reported(program, {"frmTabs", "AddFavWav"}, [&] { known = favWavs_.Load(); })) return;
  const std::string fileName = FileNameOf(path), lower = Lower(path);
  if (std::any_of(known.begin(), known.end(),
                  [&](const FavWav& wav) { return wav.path == lower; })) {
    MsgBoxEx(program, "The ~B~CR" + fileName + "~B~CN file in ~B~CB" + Lower(FolderOf(path)) +
                          "~B~CN already exists in your FavWavs category!");
    return;
  }
  AppendFavWav({Lower(WithoutExtension(fileName)), lower});
}

void frmTabs::AddFavWavPath(const std::string& path) {
  AppendFavWav({Lower(WithoutExtension(FileNameOf(path))), Lower(path)});
}

void frmTabs::AppendFavWav(const FavWav& wav) {
  if (!Reported(program, {"frmTabs", "AddFavWavPath"}, [&] { favWavs_.Append(wav); })) return;
  frmTabs* const list = Standing();
  if (!list || !list->InFavWavs) return;
  if (!list->favWavsRead_) return list->RefreshFavWavs();
  list->List3.AddItem(wav.path, list->lstWav.AddItem(wav.name));
  list->WriteCount();
}

bool frmTabs::DelFavWav() {
  std::vector<FavWav> gone;
  for (const int row : lstWav.SelectedRows()) gone.push_back({lstWav.List(row), List3.List(row)});
  return !gone.empty() && RemoveFavWavs(gone);
}

bool frmTabs::RemoveFavWavs(const std::vector<FavWav>& gone) {
  if (!Reported(program, {"frmTabs", "DelFavWav"}, [&] { favWavs_.Remove(gone); })) return false;
  frmTabs* const list = Standing();
  if (!list || !list->InFavWavs) return false;
  list->DropRows(gone);
  return list == this;
}

void frmTabs::DropRows(const std::vector<FavWav>& gone) {
  std::vector<FavWav> shown;
  for (int row = 0; row < lstWav.ListCount(); ++row)
    shown.push_back({lstWav.List(row), List3.List(row)});
  const std::vector<int> rows = RowsOf(gone, shown);
  lstWav.RemoveRows(rows);
  List3.RemoveRows(rows);
  WriteCount();
}

// Behind a change of the file elsewhere: rows that aren't the file's any more must not stand.
void frmTabs::RefreshFavWavs() {
  frmTabs* const list = Standing();
  if (!list || !list->InFavWavs) return;
  list->ShowFavWavs();
  list->WriteCount();
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
  sender_.SendWavToText(InFavWavs ? std::string(WithoutExtension(FileNameOf(Current().path)))
                                  : lstWav.Text());
}

void frmTabs::chkGarland_Click() {
  program.settings.WavList.Garland.Set(chkGarland.Value() == 1);
}

void frmTabs::cmdFadeWav_Click() {
  if (!client_.CanFade()) {
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
  RefreshDescriptionEditor(program);
  const frmTabs* const list = Standing();
  frmDescrip* const window = program.forms.Loaded<frmDescrip>();
  if (window && list && list->lstWav.Text() == name) window->lblDes.SetCaption(text);
}

void frmTabs::ToggleDescrip() {
  auto& settings = program.settings.Descriptions;
  settings.Show.SetForThisRun(!settings.Show);
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
