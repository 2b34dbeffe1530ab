#pragma once

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include "bulk/FrmReplace.h"
#include "entry/InputFixture.h"

namespace folvane::test {

/// The window that finds and replaces, read and driven by the names of its controls.
class Replacing {
 public:
  explicit Replacing(QWidget& window) : window_(window) {}

  QWidget& Window() const { return window_; }
  QWidget& Control(const QString& name) const { return Find<QWidget>(window_, name); }
  bool On(const QString& name) const { return Control(name).isEnabled(); }
  bool Ticked(const QString& name) const { return Find<QAbstractButton>(window_, name).isChecked(); }
  QString Status() const { return TextIn(window_, u"LblStatus"_s); }
  void Enter(const QString& name, const QString& text) const { Retype(Control(name), text); }
  void Do(const QString& name) const { Click(Control(name)); }
  void Choose(const QString& name, int entry) const {
    auto& combo = Find<QComboBox>(window_, name);
    combo.setFocus();
    Press(combo, Qt::Key_Home);
    for (int step = 0; step < entry; ++step) Press(combo, Qt::Key_Down);
  }

 private:
  QWidget& window_;
};

inline QWidget* OpenReplaceWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == u"FrmReplace"_s && window->isVisible()) return window;
  }
  return nullptr;
}

/// The window beside the entry window, over titles and document numbers.
class ReplaceWindowTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    openReplace_ = &OpenReplace;
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"DocNo"_s, u"文号"_s, ControlKind::Cmb});
    Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  }
  void TearDown() override {
    DefaultInstance<FrmReplace>::Unload();
    InputTest::TearDown();
  }
  void Title(int number, const QString& title) {
    Run(u"update Lwdj set Amaintitle = '%2' where ArchiveID = '%1'"_s.arg(Key(number), title));
  }
  QString TitleOf(int number) {
    return Value(u"select Amaintitle from Lwdj where ArchiveID = '%1'"_s.arg(Key(number)));
  }

  void WithReplace(const std::function<void(const Input&, const Replacing&)>& steps, qint64 position = 1) {
    InWindow(
        [&](const Input& input) {
          input.Do(u"mnuReplace"_s);
          QWidget* window = OpenReplaceWindow();
          ASSERT_TRUE(window);
          ASSERT_TRUE(WaitUntil([&] { return window->isActiveWindow(); }));
          steps(input, Replacing(*window));
        },
        false, position);
  }
  static QString SelectedIn(const Input& input, const QString& control) {
    QWidget& widget = input.Control(control);
    const auto* box = qobject_cast<QLineEdit*>(&widget);
    return (box ? box : widget.findChild<QLineEdit*>())->selectedText();
  }
};

}  // namespace folvane::test
