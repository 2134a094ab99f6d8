#include "wavlib/list_output.h"

#include "base/file_name.h"
#include "core/dialogs.h"
#include "core/helpers.h"

namespace corvel {

std::optional<PrintFont> AskRowFont(Program& program) {
  PrintFont font{"Courier New", 12};
  if (program.platform.printer.HasFont(font.name)) return font;
  const int chosen = MsgBoxEx(
      program,
      "Your system does not appear to have the ~BCourier New font~B installed.  On most systems, "
      "the wav list prints best with this font.  Click ~BOk~B to print the order form using "
      "Windows' default font or click ~BCancel~B to abort.",
      style::kOkCancel + style::kExclamation);
  if (chosen != answer::kOk) return std::nullopt;
  font.name.clear();
  return font;
}

void Print(Program& program, const std::string& title, const std::function<void(PrintJob&)>& rows) {
  const auto job = program.platform.printer.Start(title);
  if (!job) {
    MsgBoxEx(program,
             "~B~CRNo printer found!~B~CN~N ~NPlease install or switch on a printer and try this "
             "operation again.",
             style::kOk + style::kExclamation);
    return;
  }
  job->Line(title, {"Times New Roman", 16, true, true});
  rows(*job);
}

void ComposeMail(Program& program, AolClient& client, const std::string& subject,
                 const std::string& body) {
  WindowSystem& windows = program.platform.windows;
  const Window mail = client.AOLOpenEMail("", false);
  const Window text = mail ? client.WaitForBody(mail) : Window{};
  if (!text) {
    MsgBoxEx(program,
             "~B~CRCorvel was unable to open an E-Mail window.~B~CN~N ~NPlease open an E-Mail by "
             "pressing ~B~CBCTRL+M~B~CN and try this operation again.",
             style::kOk + style::kExclamation);
    return;
  }
  windows.SendText(client.PartsOfMail(mail).subject, wm::kSetText, 0, subject);
  windows.SendText(text, wm::kSetText, 0, body);
}

std::string MailHead(const std::string& screenName, const std::string& contents) {
  return "<HTML><PRE><B>" + std::string(kTitle) + "</B> for <I>" + screenName + "</I>\r\n" +
         contents + "\r\n" + std::string(62, '_') + "\r\n\r\n";
}

bool CanBeFileName(Program& program, const std::string& name) {
  if (IsFileName(name)) return true;
  MsgBoxEx(program,
           "~B~CRA file cannot have the name ~B~CB" + name +
               "~B~CN.~N ~NPlease enter a name without a path, and without any of these "
               "characters: ~B\\ / : * ? \" < > |~B",
           style::kOk + style::kExclamation);
  return false;
}

std::string AskTextFile(Program& program, std::string_view what, std::string_view preset) {
  const std::string folder = program.g.AOLPath;
  const std::string question =
      "Please enter a filename you want to name your " + std::string(what) +
      " file as.~N ~NYour file will be saved in Text (.txt) format in your current AOL folder: "
      "~B~CB" +
      folder + "~B~CN~N ~NPlease do ~B~CRnot~B~CN include the ~B.txt~B extention.";
  for (;;) {
    const std::string name = InputBoxEx(program, question, preset);
    if (name.empty()) return {};
    if (!CanBeFileName(program, name)) continue;
    const std::string path = folder + "\\" + name + ".txt";
    if (!FileExists(program, path) ||
        AskYesNo(program, "~B~CRFile already exists!~B~CN~N ~NThe filename ~B~CB" + name +
                              ".txt ~B~CNalready exists.~N ~NOverwrite this file?"))
      return path;
  }
}

}  // namespace corvel
