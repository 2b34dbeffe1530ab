// Hostile texts in the boxes of what changes many values, and of the rules.
#include <optional>

#include "bulk/FrmBactchUpdate.h"
#include "bulk/ReplaceWindowFixture.h"
#include "entry/RuleWindowFixture.h"
#include "injection/Watched.h"
#include "records/DesignedDatabase.h"
#include "records/TableParameters.h"
#include "shell/LoadedWindow.h"

namespace folvane::test {
namespace {

/// Four records, of which a user may see all but the first; the others have no title but "甲".
class BatchBoxesTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    for (const auto& [number, title] : {std::pair(1, QString()), {2, QString()}, {3, u"甲"_s}, {4, u"乙"_s}})
      design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle"_s,
                      {DesignedDatabase::Key(number), QString::number(number), title});
    parameters_.Add(u"Lwdj"_s);
    parameters_.Select(1);
    parameters_.Set(1, Parameter::RowLimit, u"(RegID > 1)"_s);
    canaries_.emplace(Database(), program_);
  }
  void TearDown() override {
    canaries_.reset();
    DesignTest::TearDown();
  }
  /// Puts a text in the place of what is found, nothing for the empty titles. Answers the text.
  QString Replace(const QString& found, const QString& text) {
    QString typed;
    if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
    Shared().CurrentRecords.Open(u"Select * From Lwdj Where RegID > 1 Order By ArchiveID"_s, Connected());
    const LoadedWindow<FrmBactchUpdate> window;
    window->TableName = u"Lwdj"_s;
    window->vsPos = 1;
    window->Parameters = &parameters_;
    WithWindow(u"FrmBactchUpdate"_s, [&](QWidget& shown) {
      auto& field = Find<QComboBox>(shown, u"Cbo_Field"_s);
      field.setFocus();
      while (field.currentText() != u"题名"_s) Press(field, Qt::Key_Down);
      if (!found.isEmpty()) Type(Find<QWidget>(shown, u"Cbo_Find"_s), found);
      typed = PasteInto(shown, u"TxtValue"_s, text);
      Click(Find<QWidget>(shown, u"CmdOK"_s));
      ExpectNoMarkup(shown, "batch update");
      shown.close();
    });
    window->Open();
    return typed;
  }
  QString TitleOf(int number) { return design_->Value(u"select Amaintitle from Lwdj where RegID=%1"_s.arg(number)); }
  bool WasTold() {
    const bool told = !boxes_.Texts().filter(u"单引号"_s).isEmpty();
    boxes_.Clear();
    return told;
  }

  MessageBoxes boxes_;
  TableParameters parameters_;
  std::optional<Canaries> canaries_;
};
FOLVANE_ON_EACH_DATABASE(BatchBoxesTest);

class ReplaceBoxesTest : public ReplaceWindowTest {};
FOLVANE_ON_EACH_DATABASE(ReplaceBoxesTest);

class RuleBoxesTest : public RuleWindowTest {};
FOLVANE_ON_EACH_DATABASE(RuleBoxesTest);

}  // namespace

TEST_P(BatchBoxesTest, EmptyTitlesAreFilledAsTypedOrItIsToldAndNoOtherIsReached) {
  const Box box{"empty",
                [this](const QString& text) {
                  boxes_.Answer(6).Answer(6);
                  return TakenUnescaped(Replace({}, text));
                },
                [this] { return TitleOf(2); },
                [this] { Database().Native(u"update Lwdj set Amaintitle='' where RegID=2"_s); }};
  TryBox(Database(), box, HostileLines(), [this] { return WasTold(); });
}

TEST_P(BatchBoxesTest, WhatIsFoundIsReplacedAsTyped) {
  const Box box{"found",
                [this](const QString& text) {
                  boxes_.Answer(6).Answer(6);
                  return Replace(u"甲"_s, text);
                },
                [this] { return TitleOf(3); },
                [this] { Database().Native(u"update Lwdj set Amaintitle='甲' where RegID=3"_s); }};
  TryBox(Database(), box, HostileLines(), [this] { return WasTold(); });
}

TEST_P(ReplaceBoxesTest, TheReplacementIsWrittenAsTypedOrItIsTold) {
  AddRecords(2);
  Title(1, u"甲"_s);
  WithReplace([](const Input&, const Replacing&) {});  // keeps the dictionary of the form
  QString said;
  const Box box{"replacement",
                [&](const QString& text) {
                  QString typed;
                  WithReplace([&](const Input& input, const Replacing& replacing) {
                    replacing.Enter(u"CboFindTxt"_s, u"甲"_s);
                    typed = PasteInto(replacing.Window(), u"CboRelaceTxt"_s, text);
                    replacing.Do(u"CmdReplaceAll"_s);
                    said = replacing.Status() + boxes_.Texts().join(u' ');
                    ExpectNoMarkup(replacing.Window(), "replace");
                    ExpectNoMarkup(input.Window(), "entry");
                  });
                  return TakenUnescaped(typed);
                },
                [this] { return TitleOf(1); }, [this] { Title(1, u"甲"_s); }};
  TryBox(Database(), box, HostileLines(), [&] { return std::exchange(said, QString()).contains(u"单引号"_s); });
}

TEST_P(RuleBoxesTest, APatternIsKeptAsTyped) {
  AddRule();
  const test::Box box{"pattern",
                      [this](const QString& text) {
                        QString typed;
                        InWindow([&] {
                          ChooseCustomFormat(0, [&](QWidget& window) {
                            typed = PasteInto(window, u"TxtFormat"_s, text);
                            ExpectNoMarkup(window, "pattern");
                            typed = typed.trimmed();  // as patterns are kept
                            Click(Find(window, u"CmdOK"_s));
                          });
                        });
                        return typed;
                      },
                      [this] { return Value(u"select CustomFormat from SaveCollect"_s); },
                      [this] { Run(u"update SaveCollect set CustomFormat='A#', CollectValue='自定义格式'"_s); }};
  TryBox(Database(), box, SomeHostileLines(), [this] {
    const bool told = !boxes_.Texts().isEmpty();
    boxes_.Clear();
    return told;
  });
}

TEST_P(RuleBoxesTest, AValueIsKeptAsTyped) {
  AddRule(u"Lwdj"_s, u"1"_s);
  const test::Box box{"value",
                      [this](const QString& text) {
                        QString typed;
                        InWindow([&] {
                          Retype(Box(u"CmbCondition"_s, 0), u"等于"_s);
                          typed = PasteInto(Window(), u"CmbValue(0)"_s, text);
                          Leave(0);
                          ExpectNoMarkup(Window(), "rules");
                          Click(Control(u"CmdOK"_s));
                        });
                        return typed;
                      },
                      [this] { return Value(u"select CollectValue from SaveCollect"_s); },
                      [this] { Run(u"update SaveCollect set CollectValue='1', Relation='只能是'"_s); }};
  TryBox(Database(), box, SomeHostileLines(), [this] {
    const bool told = !boxes_.Texts().isEmpty();
    boxes_.Clear();
    return told;
  });
}

}  // namespace folvane::test
