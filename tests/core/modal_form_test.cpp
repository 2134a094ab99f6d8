// The one way to ask: over its owner or alone, one inside another, and what becomes of the answer
// when windows go.
#include "core/modal_form.h"

#include "core/main.h"
#include "tests/core/core_fixture.h"

namespace corvel {
namespace {

struct OwnerForm : ProgramForm {
  explicit OwnerForm(Program& p) : ProgramForm(p, "frmOwner") {}
};

struct QuestionForm : ModalForm<std::string> {
  QuestionForm(Program& p, std::string name)
      : ModalForm(p, std::move(name), "", "harmless"), cmdOK(*this, "cmdOK") {
    cmdOK.onClick = [this] { Answer("given"); };
  }
  forms::Button cmdOK;
};

class ModalFormTest : public CoreTest {
 protected:
  void SetUp() override {
    As([this] {
      owner_ = program_->forms.LoadNew<OwnerForm>(*program_);
      owner_->Show();
    });
  }
  void TearDown() override {
    As([this] {
      owner_->Unload();
      owner_.reset();
    });
    CoreTest::TearDown();
  }
  std::string AskNow(const std::string& name) {
    return Ask<QuestionForm>(*program_, owner_.get(), name);
  }
  // What happens while the questions before it wait.
  void ThenInProgram(std::function<void()> code) {
    Then([this, code = std::move(code)] { desk_.PostTask(process_, code); });
  }
  void ThenExpectOwner(bool enabled) {
    Then([=, this] { EXPECT_EQ(owner_->State().enabled, enabled); });
  }
  bool Stands(const std::string& form) {
    const auto found = desk_.peers().FindForm(form);
    return found && found->state->visible;
  }

  std::shared_ptr<OwnerForm> owner_;
};

TEST_F(ModalFormTest, TheOwnerTakesNoInputUntilTheAnswer) {
  std::string answer;
  ThenExpectOwner(false);
  Then([this] { EXPECT_FALSE(desk_.peers().FindForm("frmAsk")->state->topMost); });
  ThenClick("frmAsk", "cmdOK");
  As([&] { answer = AskNow("frmAsk"); });
  EXPECT_EQ(answer, "given");
  EXPECT_TRUE(owner_->State().enabled);
  EXPECT_FALSE(desk_.peers().FindForm("frmAsk"));
}

TEST_F(ModalFormTest, WithoutAnOwnerItStandsAboveAll) {
  Then([this] { EXPECT_TRUE(desk_.peers().FindForm("frmAsk")->state->topMost); });
  ThenExpectOwner(true);
  ThenClose("frmAsk");
  As([&] { EXPECT_EQ(Ask<QuestionForm>(*program_, nullptr, "frmAsk"), "harmless"); });
}

// The outer question is answered while the inner one, over the same owner, still stands.
TEST_F(ModalFormTest, TheOwnerIsHeldByWhatEverStillStandsOverIt) {
  std::string outer, inner;
  ThenInProgram([&] { inner = AskNow("frmInner"); });
  ThenClick("frmOuter", "cmdOK");
  Then([this] {
    EXPECT_FALSE(Stands("frmOuter")) << "answered, it goes though its wait can't end yet";
    EXPECT_TRUE(Stands("frmInner"));
  });
  ThenExpectOwner(false);
  ThenClose("frmInner");
  As([&] { outer = AskNow("frmOuter"); });
  EXPECT_EQ(outer, "given");
  EXPECT_EQ(inner, "harmless");
  EXPECT_TRUE(owner_->State().enabled);
}

TEST_F(ModalFormTest, TheOwnerIsFreeAtTheAnswerAlsoIfTheWaitCanNotEndYet) {
  ThenInProgram([this] { Ask<QuestionForm>(*program_, nullptr, "frmInner"); });
  ThenClick("frmOuter", "cmdOK");
  ThenExpectOwner(true);
  ThenClose("frmInner");
  As([&] { EXPECT_EQ(AskNow("frmOuter"), "given"); });
}

TEST_F(ModalFormTest, NothingComesUpBetweenTheWayDownAndTheEnd) {
  program_->g.Unloading = true;
  As([&] { EXPECT_EQ(AskNow("frmAsk"), "harmless"); });
  for (const auto& entry : desk_.journal().Entries())
    EXPECT_NE(entry.words, std::vector<std::string>{"frmAsk"}) << entry.kind;
}

TEST_F(ModalFormTest, AnOwnerThatGoesTakesTheQuestionAlong) {
  std::string answer;
  ThenInProgram([this] { owner_->Unload(); });
  As([&] { answer = AskNow("frmAsk"); });
  EXPECT_EQ(answer, "harmless");
  EXPECT_TRUE(program_->forms.All().empty());
}

TEST_F(ModalFormTest, TheWayDownKeepsWhatWasAnsweredAndAsksNothingMore) {
  std::string outer, inner, behind;
  ThenInProgram([&] {
    inner = AskNow("frmInner");
    behind = AskNow("frmBehind");
  });
  ThenClick("frmOuter", "cmdOK");
  ThenInProgram([this] { UnloadAllForms(*program_, false); });
  As([&] { outer = AskNow("frmOuter"); });
  EXPECT_EQ(outer, "given");
  EXPECT_EQ(inner, "harmless");
  EXPECT_EQ(behind, "harmless");
}

}  // namespace
}  // namespace corvel
