#include "wavlib/frmTabs.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/looks.h"
#include "core/main.h"
#include "core/menu_rows.h"
#include "core/report_error.h"
#include "core/settings_wavs.h"
#include "wavlib/frmDescrip.h"
#include "wavlib/garland_styles.h"
#include "wavlib/wav_categories.h"

#include <algorithm>
#include <utility>

namespace corvel {

frmTabs::frmTabs(Program& program, AolClient& client, RoomVoice& voice)
    : ProgramForm(program, "frmTabs", "Wav List"),
      cboList(*this, "cboList"),
      cmdMin(*this, "cmdMin", "Min"),
      cmdClose(*this, "cmdClose", "Close"),
      lblpath(*this, "lblpath"),
      lstWav(*this, "lstWav", true, true),
      List3(*this, "List3"),
      lblCount(*this, "lblCount"),
      cmdSend(*this, "cmdSend", "&Send"),
      cmdHushlet(*this, "cmdHushlet", "&Hushlet"),
      cmdFadeWav(*this, "cmdFadeWav", "&FadeWav"),
      cmdEMail(*this, "cmdEMail", "E-&Mail"),
      cmdFav(*this, "cmdFav", "Refresh"),
      cmdDel(*this, "cmdDel", "&Delete"),
      cmdPrint(*this, "cmdPrint", "&Print"),
      cmdHelp(*this, "cmdHelp", "He&lp"),
      cmdNewCat(*this, "cmdNewCat", "&New Category"),
      cmdEditCat(*this, "cmdEditCat", "&Edit Category"),
      cmdDelCat(*this, "cmdDelCat", "Delete Ca&tegory"),
      chkGarland(*this, "chkGarland", "Use &Garland Style"),
      cmdChooseGL(*this, "cmdChooseGL", "&Choose Style"),
      lstGarlandRnd(*this, "lstGarlandRnd"),
      mnuWav("mnuWav", "",
             {MenuItem("Send to AOL", [this] { cmdSend_Click(); }),
              MenuItem("Send to Text", [this] { SendCurrentToText(); }),
              MenuItem("Preview", [this] { PreviewWav(); }), Separator(),
              MenuItem("Edit Wav Description", [this] { EditWavDescrip(); }),
              MenuItem(WavRow::kDescriptions, "Show Wav Description Window",
                       [this] { ToggleDescrip(); }),
              GreyedItem("Change Garland Style"), GreyedItem("Attach to E-Mail"), Separator(),
              MenuItem(WavRow::kDelete, "Delete Wav From System", [this] { cmdDel_Click(); }),
              MenuItem(WavRow::kRename, "Rename Wav", [this] { RenameCurrent(); }),
              MenuItem(WavRow::kMove, "Move Selected Wav", [this] { SendCurrentTo(); }),
              MenuItem(WavRow::kFavWavSeparator, "-", {}),
              MenuItem(WavRow::kAddFavWav, "Add to FavWav List",
                       [this] { AddFavWavPath(Current().path); }),
              GreyedItem("View Wav Properties")}),
      mnuFavWav("mnuFavWav", "",
                {MenuItem("Add a FavWav", [this] { AddFavWav(); }),
                 MenuItem("Delete a FavWav", [this] { DelFavWav(); })}),
      mnuPrLst(
          "mnuPrLst", "",
          {MenuItem("Print to Printer", [this] { PrintToPrinter(this->program, Listing()); }),
           MenuItem("Print to E-Mail", [this] { PrintToEMail(this->program, client_, Listing()); }),
           MenuItem("Print to File", [this] { PrintToFile(this->program, Listing()); })}),
      client_(client),
      sender_(program, client, voice),
      favWavs_(program) {
  ConnectButtons();
}

void frmTabs::ConnectButtons() {
  lblpath.SetMnemonic(false);
  cboList.SetAccessibleName("Wav category");
  lstWav.SetAccessibleName("Wavs");
  List3.SetVisible(false);
  lstGarlandRnd.SetVisible(false);
  cboList.onClick = [this] { cboList_Click(); };
  lstWav.onClick = [this] { lstWav_Click(); };
  lstWav.onDblClick = [this] { lstWav_DblClick(); };
  lstWav.onRightClick = [this] { lstWav_RightClick(); };
  cmdMin.SetToolTip("Minimize");
  cmdMin.onClick = [this] { cmdMin_Click(); };
  cmdClose.SetCancel(true);
  cmdClose.onClick = [this] { Unload(); };
  cmdSend.onClick = [this] { cmdSend_Click(); };
  cmdHushlet.onClick = [this] { client_.Hushlet(); };
  cmdFadeWav.onClick = [this] { cmdFadeWav_Click(); };
  cmdFav.onClick = [this] { cmdFav_Click(); };
  cmdDel.onClick = [this] { cmdDel_Click(); };
  cmdPrint.onClick = [this] { PopupMenu(mnuPrLst); };
  cmdHelp.onClick = [this] { ShowHelp(program, "Wav List"); };
  cmdNewCat.onClick = [this] { cmdNewCat_Click(); };
  cmdEditCat.onClick = [this] { cmdEditCat_Click(); };
  cmdDelCat.onClick = [this] { cmdDelCat_Click(); };
  for (forms::Button* button : {&cmdChooseGL, &cmdEMail}) {
    button->SetEnabled(false);
    button->SetToolTip(kNotBuiltTip);
  }
  // Here and not with the rest of the start-up, which can wait for the user in the middle.
  const bool hasPanel = program.hub.commands.IsBuilt(Command::kFadeDesigner);
  cmdFadeWav.SetEnabled(client_.CanFade() && hasPanel);
  if (!hasPanel) cmdFadeWav.SetToolTip(kNotBuiltTip);
}

// The upper part, which stays when the window is folded, is the category with its path and count.
void frmTabs::ArrangeControls() {
  using namespace forms;
  constexpr int kButton = 12;
  Arrange(Column(
      {Row({Stretch(Cell(cboList, 30)), Cell(cmdMin, 8), Cell(cmdClose, 8)}), Cell(lblpath, 46),
       Cell(lblCount, 46),
       Row({Stretch(Cell(lstWav, 34, 14)),
            Column({Cell(cmdSend, kButton), Cell(cmdHushlet, kButton), Cell(cmdFadeWav, kButton),
                    Cell(cmdEMail, kButton), Cell(cmdFav, kButton), Cell(cmdDel, kButton),
                    Cell(cmdPrint, kButton), Cell(cmdHelp, kButton)})}),
       Row({Stretch(Cell(cmdNewCat, 15)), Stretch(Cell(cmdEditCat, 15)),
            Stretch(Cell(cmdDelCat, 16))}),
       Row({Stretch(Cell(chkGarland, 20)), Cell(cmdChooseGL, kButton)})}));
}

void frmTabs::Form_Load() {
  try {
    StartUp();
  } catch (const RunTimeError&) {
    MsgBoxEx(program,
             "Corvel has trapped a memory error.  This error is probably not in your computer.",
             style::kOk + style::kStop);
    StopProgram(program);
  }
}

void frmTabs::StartUp() {
  SetFormColor(program, *this);
  ArrangeControls();
  RestorePlace(program, *this, program.settings.WavList.Place);
  chkGarland.SetValue(program.settings.WavList.Garland.Read() ? 1 : 0);
  chkGarland.onClick = [this] { chkGarland_Click(); };
  for (const std::string& name : CategoryNames(program)) cboList.AddItem(name);
  cboList.AddItem(kFavWavs);
  SelectDefaultCategory();
  WriteCount();
  SetOwner(program.g.hAOL);
  randomGarland_ = program.settings.Garland.Random.Read();
  if (randomGarland_) LoadGarlands();
  if (lstWav.ListIndex() < 0) SelectRow(0);
}

void frmTabs::SelectDefaultCategory() {
  SelectCategoryQuietly(cboList.FindString(-1, program.settings.WavList.DefaultCategory.Read()));
  cboList_Click();
}

void frmTabs::LoadGarlands() {
  const std::string path = program.InFolder("styles\\garland.dat");
  std::vector<std::string> styles;
  Reported(program, {"frmTabs", "LoadGarlands"}, [&] {
    if (FileExists(program, path)) styles = ParseStyleFile(ReadWholeFile(program, path));
  });
  styles.insert(styles.end(), kBuiltInGarlands.begin(), kBuiltInGarlands.end());
  lstGarlandRnd.SetItems(std::move(styles));
}

void frmTabs::Form_Move() { SavePlace(*this, program.settings.WavList.Place); }

void frmTabs::Form_Unload() {
  if (frmDescrip* window = program.forms.Loaded<frmDescrip>()) window->Unload();
}

void frmTabs::cmdMin_Click() {
  const bool fold = !Folded();
  for (forms::Control* control : Controls())
    if (control != &cboList && control != &cmdMin && control != &cmdClose && control != &lblpath &&
        control != &lblCount && control != &List3 && control != &lstGarlandRnd)
      control->SetVisible(!fold);
  cmdMin.SetCaption(fold ? "Max" : "Min");
  cmdMin.SetToolTip(fold ? "Maximize" : "Minimize");
  ArrangeControls();
  if (fold) return;
  RePosForm(program, *this, 0);
  RePosForm(program, *this, 1);
}

void frmTabs::cboList_Click() {
  const std::string name = cboList.Text();
  // Before anything waits: a later choice, made in that wait, is the one that is to be kept then.
  program.settings.WavList.DefaultCategory.Set(name);
  if (name == kFavWavs)
    ShowFavWavs();
  else
    ShowCategory(name);
  WriteCount();
}

void frmTabs::ShowCategory(const std::string& name) {
  InFavWavs = favWavsRead_ = false;
  cmdNewCat.SetEnabled(true);
  cmdEditCat.SetEnabled(name != kAolDirectory);
  cmdDelCat.SetEnabled(name != kAolDirectory);
  cmdFav.SetCaption("Refresh");
  lblpath.SetCaption(CategoryFolder(program, name));
  LoadWavList();
}

void frmTabs::ShowFavWavs() {
  InFavWavs = true;
  favWavsRead_ = false;
  for (forms::Button* button : {&cmdNewCat, &cmdEditCat, &cmdDelCat}) button->SetEnabled(false);
  cmdFav.SetCaption("Fav Opt");
  lblpath.SetCaption("");
  lstWav.Clear();
  List3.Clear();
  std::vector<FavWav> wavs;
  const bool read =
      Reported(program, {"frmTabs", "cboList_Click"}, [&] { wavs = favWavs_.Load(); });
  if (!read || !IsLoaded() || !InFavWavs) return;
  favWavsRead_ = true;
  std::vector<std::string> names, paths;
  for (FavWav& wav : wavs) names.push_back(std::move(wav.name));
  for (const std::size_t i : lstWav.SetItems(std::move(names)))
    paths.push_back(std::move(wavs[i].path));
  List3.SetItems(std::move(paths));
}

bool frmTabs::LoadWavList() {
  lstWav.Clear();
  const std::string folder = lblpath.Caption();
  const bool hideClientSounds =
      program.settings.WavList.NoAOLWavs && Lower(cboList.Text()) == "aol directory";
  std::vector<std::string> names;
  const bool read = Reported(
      program, {"frmTabs", "LoadWavList"},
      [&] { names = WavsIn(program, folder, hideClientSounds); },
      [&](const RunTimeError& error) {
        if (error.Number() != err::kPathNotFound) return false;
        MsgBoxEx(program,
                 "~B~CRDirectory not found!~B~CN~N ~NThe Directory you chose does not exist or you "
                 "have typed an incorrect path.",
                 style::kOk + style::kExclamation);
        return true;
      });
  if (!Shows(folder)) return false;
  if (read) lstWav.SetItems(std::move(names));
  return true;
}

bool frmTabs::Shows(const std::string& folder) const {
  return IsLoaded() && !InFavWavs && lblpath.Caption() == folder;
}

frmTabs* frmTabs::StandingAt(const std::string& folder) const {
  frmTabs* const list = Standing();
  return list && list->Shows(folder) ? list : nullptr;
}

void frmTabs::WriteCount() {
  lblCount.SetCaption(" Wavs - Count: " + std::to_string(lstWav.ListCount()));
}

void frmTabs::Refresh() {
  const int row = lstWav.ListIndex();
  if (!LoadWavList()) return;
  WriteCount();
  SelectRow(row);
}

// The row goes to the nearest that is left if the list has become shorter.
void frmTabs::SelectRow(int row) {
  row = std::min(row, lstWav.ListCount() - 1);
  lstWav.SetListIndex(row);
  if (row >= 0) lstWav.SetSelected(row, true);
}

// Without cboList_Click, where the list stays as it is.
void frmTabs::SelectCategoryQuietly(int row) {
  const auto onClick = std::exchange(cboList.onClick, nullptr);
  cboList.SetListIndex(row);
  cboList.onClick = onClick;
}

ListedWav frmTabs::Current() const {
  const std::string folder = lblpath.Caption(), name = lstWav.Text();
  if (InFavWavs) return {"", name, List3.List(lstWav.ListIndex())};
  return {folder, name, folder + "\\" + name + ".wav"};
}

}  // namespace corvel
