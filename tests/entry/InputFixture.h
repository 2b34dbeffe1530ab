#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <functional>
#include <map>
#include <vector>

#include "EntryFixture.h"
#include "entry/FrmInput.h"
#include "records/TableParameters.h"
#include "shell/DefaultInstance.h"
#include "shell/RegistryValues.h"
#include "support/WindowDriver.h"

namespace folvane::test {

/// The open entry window, read and driven by the names of its controls.
class Input {
 public:
  explicit Input(QWidget& window) : window_(window) {}

  QWidget& Window() const { return window_; }
  FrmInput& Form() const { return static_cast<FrmInput&>(window_); }
  QWidget& Control(const QString& name) const { return Find<QWidget>(window_, name); }
  bool Has(const QString& name) const { return window_.findChild<QWidget*>(name) != nullptr; }
  QString Text(const QString& control) const { return TextIn(window_, control); }
  void Retype(const QString& control, const QString& text) const { test::Retype(Control(control), text); }
  void PressIn(const QString& control, Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) const {
    Press(Control(control), key, keys);
  }

  QAction& Entry(const QString& name) const;
  QAction& Key(const QString& name) const { return FindAction(window_, u"TlbCool"_s, name); }
  bool On(const QString& entry) const { return Entry(entry).isEnabled(); }
  bool KeyOn(const QString& key) const { return Key(key).isEnabled(); }
  void Do(const QString& entry) const { Entry(entry).trigger(); }

  QString Work() const { return TextIn(window_, u"Panel(1)"_s); }
  QString Position() const { return TextIn(window_, u"RecordView"_s); }
  /// Waits until the toolbar has gone over to editing.
  void AwaitEditing() const {
    ASSERT_TRUE(WaitUntil([this] { return KeyOn(u"SaveRecord"_s); }));
  }
  QString Focused() const;

 private:
  QWidget& window_;
};

/// The entry window over the table Lwdj: what the design, the rights and the station say about it is set by the test.
class InputTest : public EntryTest {
 protected:
  struct FieldDesign {
    QString column = {}, caption = {};
    int type = ControlKind::Txt;
    int index = 0;
    QString fieldType = u"文本型"_s;
    int length = 50;
    bool required = false, fixed = false, carried = false, inherited = false;
    QString dictionary = {};
  };

  void SetUp() override;
  void TearDown() override;

  /// Adds a field to the design, under those added before; its index is the number of its kind where none is given.
  void Design(FieldDesign field, const QString& table = u"Lwdj"_s);
  void AddRecords(int count);
  void Right(Parameter parameter, const QString& text) { parameters_.Set(1, parameter, text); }
  void Formula(int formula) {
    program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=" + QByteArray::number(formula) + "\r\n");
  }
  void Flag(const QString& name, bool on) { SaveValue(kLocalMachine, kMainFlags, name, on ? u"True"_s : u"False"_s); }
  static QString Key(int number) { return QStringLiteral("%1").arg(number, 20, 10, QLatin1Char('0')); }

  /// Opens the window on all records, runs the steps in it and closes it.
  void InWindow(const std::function<void(const Input&)>& steps, bool adding = false, qint64 position = 1);
  /// Opens the window on the record set as it stands.
  void Reopen(const std::function<void(const Input&)>& steps, const QString& table = u"Lwdj"_s);
  /// Has something happen while a message box stands, counted from 1 from now on.
  void WhileBoxStands(int number, const std::function<void()>& happens) {
    Services().messageBox = [show = Services().messageBox, happens, left = number](const MessageRequest& box) mutable {
      if (--left == 0) happens();
      return show(box);
    };
  }
  QString Tag() const { return tags_.isEmpty() ? QString() : tags_.last(); }

  TempProgramDirectory program_;
  TableParameters parameters_;
  MessageBoxes boxes_;
  QStringList tags_;
  int beeps_ = 0;
  std::function<void(FrmInput&)> openReplace_;

 private:
  std::map<QPair<QString, int>, int> counts_;
  int order_ = 0;
};

}  // namespace folvane::test
