// frmTabs: the wav list. It shows one category at a time, or the hand-picked FavWavs, and is where
// wavs are previewed, sent, described, renamed and thrown away.
//
// The window's own working stands in frmTabs.cpp, the procedures of its buttons and menus in
// frmTabs_events.cpp.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "fader/modFade.h"
#include "forms/menu.h"
#include "wavlib/fav_wavs.h"
#include "wavlib/wav_printing.h"
#include "wavlib/wav_sending.h"

#include <string>
#include <vector>

namespace corvel {

// Rows of mnuWav whose look depends on what the list shows.
enum class WavRow { kDescriptions = 1, kDelete, kRename, kMove, kFavWavSeparator, kAddFavWav };

class frmTabs : public ProgramForm {
 public:
  frmTabs(Program& program, AolClient& client, Fader& fader);

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
  // Reads the folder in lblpath anew.
  void LoadWavList();
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
  std::string CurrentPath() const;  // of the current row's file
  bool Folded() const { return cmdMin.Caption() == "Max"; }
  void cmdMin_Click();

  // --- Categories
  void cmdNewCat_Click();
  void cmdEditCat_Click();
  void cmdDelCat_Click();

  // --- Wavs and FavWavs
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
  void DelFavWav();
  bool EnsureFavWavsRead();
  std::vector<FavWav> FavWavsShown() const;

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
  bool favWavsRead_ = false;  // the rows are the file's: only then may it be written from them
  bool randomGarland_ = false;
};

}  // namespace corvel
