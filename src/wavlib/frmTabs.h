// frmTabs: the wav list. It shows one category at a time, or the hand-picked FavWavs, and is where
// wavs are previewed, sent, described, renamed and thrown away.
//
// The window's own working stands in frmTabs.cpp, the procedures of its buttons and menus in
// frmTabs_categories.cpp and frmTabs_events.cpp.
//
// Whatever asks the user waits, and meanwhile he can go to another category, or close this window
// and open a new one. So a procedure takes by value what it works on before it asks (ListedWav),
// and afterwards changes only a list that still shows that, which may be another object than this.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "forms/menu.h"
#include "wavlib/fav_wavs.h"
#include "wavlib/wav_files.h"
#include "wavlib/wav_printing.h"
#include "wavlib/wav_sending.h"

#include <string>
#include <vector>

namespace corvel {

// Rows of mnuWav whose look depends on what the list shows.
enum class WavRow { kDescriptions = 1, kDelete, kRename, kMove, kFavWavSeparator, kAddFavWav };

class frmTabs : public ProgramForm {
 public:
  frmTabs(Program& program, AolClient& client, RoomVoice& voice);

  bool InFavWavs = false;

  forms::ComboBox cboList;
  forms::Button cmdMin, cmdClose;
  forms::Label lblpath;
  forms::ListBox lstWav;  // sorted, in lower case
  forms::ListBox List3;   // hidden: in FavWavs mode row i is the path of lstWav's row i
  forms::Label lblCount;
  forms::Button cmdSend, cmdHushlet, cmdFadeWav, cmdEMail, cmdFav, cmdDel, cmdPrint, cmdHelp;
  forms::Button cmdNewCat, cmdEditCat, cmdDelCat;
  forms::CheckBox chkGarland;
  forms::Button cmdChooseGL;
  forms::ListBox lstGarlandRnd;  // hidden: all styles to draw from
  forms::Menu mnuWav, mnuFavWav, mnuPrLst;

  // Shows the selected entry of cboList.
  void cboList_Click();
  // Reads the folder in lblpath anew. False if the list shows something else by now: an error
  // waits.
  bool LoadWavList();
  // The whole send of the current row, as the button does it.
  void cmdSend_Click();

 protected:
  void Form_Load() override;
  void Form_Move() override;
  void Form_Unload() override;

 private:
  // --- The window (frmTabs.cpp)
  void ConnectButtons();
  void ArrangeControls();
  void StartUp();
  void SelectDefaultCategory();
  void LoadGarlands();
  void ShowCategory(const std::string& name);
  void ShowFavWavs();
  void WriteCount();
  void Refresh();
  void SelectRow(int row);
  void SelectCategoryQuietly(int row);
  ListedWav Current() const;  // the wav of the current row
  // The list that stands now, this or a later one; null if none does.
  frmTabs* Standing() const { return program.forms.Loaded<frmTabs>(); }
  // The same, if it shows this folder.
  frmTabs* StandingAt(const std::string& folder) const;
  bool Shows(const std::string& folder) const;
  bool Folded() const { return cmdMin.Caption() == "Max"; }
  void cmdMin_Click();

  // --- Categories (frmTabs_categories.cpp)
  void cmdNewCat_Click();
  void cmdEditCat_Click();
  void cmdDelCat_Click();
  bool HasCategory(const std::string& name) const;
  void ShowNewEntry(const std::string& name);
  void RenameEntry(const std::string& oldName, const std::string& name);
  void RemoveEntry(const std::string& name);

  // --- Wavs and FavWavs (frmTabs_events.cpp)
  void lstWav_Click();
  void lstWav_DblClick();
  void lstWav_RightClick();
  void PreviewWav();
  void cmdDel_Click();
  void RenameCurrent();
  void SendCurrentTo();
  void cmdFav_Click();
  void AddFavWav();
  void AddFavWavPath(const std::string& path);
  bool DelFavWav();  // the marked rows; true if this list shows that
  void AppendFavWav(const FavWav& wav);
  bool RemoveFavWavs(const std::vector<FavWav>& gone);
  void DropRows(const std::vector<FavWav>& gone);
  void RefreshFavWavs();

  // --- Sending and descriptions
  void SendCurrentToText();
  void chkGarland_Click();
  void cmdFadeWav_Click();
  void EditWavDescrip();
  void ToggleDescrip();
  WavListing Listing() const { return {cboList.Text(), lstWav.Items()}; }

  AolClient& client_;
  WavSender sender_;
  FavWavFile favWavs_;
  bool favWavsRead_ = false;  // the rows are those of favwavs.dat
  bool randomGarland_ = false;
};

}  // namespace corvel
