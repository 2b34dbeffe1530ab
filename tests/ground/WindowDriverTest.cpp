#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <gtest/gtest-spi.h>
#include <memory>

#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A dialog with a line edit `Txt` and a button `Cmd`.
std::unique_ptr<QDialog> SomeDialog(const QString& name, QWidget* parent = nullptr) {
  auto dialog = std::make_unique<QDialog>(parent);
  dialog->setObjectName(name);
  auto* layout = new QVBoxLayout(dialog.get());
  auto* text = new QLineEdit;
  auto* button = new QPushButton;
  text->setObjectName(u"Txt"_s);
  button->setObjectName(u"Cmd"_s);
  layout->addWidget(text);
  layout->addWidget(button);
  return dialog;
}

}  // namespace

TEST(WindowDriverTest, TheScreenIsTheSameEverywhere) {
  EXPECT_EQ(QApplication::primaryScreen()->size(), QSize(1600, 1200));
  EXPECT_EQ(QFontInfo(QApplication::font()).family(), u"WenQuanYi Micro Hei"_s);
  EXPECT_TRUE(QFontMetrics(QApplication::font()).inFont(QChar(u'档')));
}

TEST(WindowDriverTest, StepsRunInsideTheLoopOfTheWindow) {
  const auto dialog = SomeDialog(u"Frm"_s);
  QString typed;
  WithWindow(u"Frm"_s, [&](QWidget& window) {
    Type(Find(window, u"Txt"_s), u"Abc 档案"_s);
    typed = TextIn(window, u"Txt"_s);
  });
  dialog->exec();
  EXPECT_EQ(typed, u"Abc 档案"_s);
  EXPECT_FALSE(dialog->isVisible());
}

TEST(WindowDriverTest, StepsOpenAndDriveAWindowInsideTheWindow) {
  const auto outer = SomeDialog(u"Outer"_s);
  QStringList order;
  QObject::connect(&Find<QPushButton>(*outer, u"Cmd"_s), &QPushButton::clicked, outer.get(), [&] {
    const auto inner = SomeDialog(u"Inner"_s, outer.get());
    inner->exec();
    order << u"inner closed"_s;
  });
  WithWindow(u"Outer"_s, [&](QWidget& window) {
    WithWindow(u"Inner"_s, [&](QWidget&) { order << u"inner driven"_s; });
    Click(Find(window, u"Cmd"_s));
    order << u"outer goes on"_s;
    EXPECT_TRUE(WaitUntil([&] { return window.isActiveWindow(); })) << "the parent wakes when the window over it goes";
  });
  outer->exec();
  EXPECT_EQ(order, (QStringList{u"inner driven"_s, u"inner closed"_s, u"outer goes on"_s}));
}

TEST(WindowDriverTest, AModalWindowKeepsClicksFromTheOneBelow) {
  const auto outer = SomeDialog(u"Outer"_s);
  const auto inner = SomeDialog(u"Inner"_s, outer.get());
  int clicks = 0;
  QObject::connect(&Find<QPushButton>(*outer, u"Cmd"_s), &QPushButton::clicked, [&] { ++clicks; });
  WithWindow(u"Inner"_s, [&](QWidget&) { Click(Find(*outer, u"Cmd"_s)); });
  outer->show();
  inner->exec();
  EXPECT_EQ(clicks, 0);
  Click(Find(*outer, u"Cmd"_s));
  EXPECT_EQ(clicks, 1);
}

TEST(WindowDriverTest, ItemsAreClickedAndDoubleClickedWhereTheyStand) {
  QListWidget list;
  list.addItems({u"one"_s, u"two"_s});
  list.show();
  QString activated;
  QObject::connect(&list, &QListWidget::itemDoubleClicked, [&](QListWidgetItem* item) { activated = item->text(); });
  ClickItem(list, list.model()->index(1, 0));
  EXPECT_EQ(list.currentRow(), 1);
  DoubleClickItem(list, list.model()->index(0, 0));
  EXPECT_EQ(activated, u"one"_s);
}

TEST(WindowDriverTest, AMenuIsDrivenAsAWindow) {
  QMenu menu;
  menu.setObjectName(u"mnu"_s);
  QAction* entry = menu.addAction(u"entry"_s);
  QAction* chosen = nullptr;
  WithWindow(u"mnu"_s, [&](QWidget& window) { ClickAt(window, menu.actionGeometry(entry).center()); });
  chosen = menu.exec(QPoint(10, 10));
  EXPECT_EQ(chosen, entry);
}

TEST(WindowDriverTest, AnExceptionInTheStepsFailsAndEndsTheWindow) {
  static std::unique_ptr<QDialog> dialog;
  dialog = SomeDialog(u"Frm"_s);
  EXPECT_NONFATAL_FAILURE(
      {
        WithWindow(u"Frm"_s, [](QWidget& window) { Find(window, u"Missing"_s); });
        dialog->exec();
      },
      "there is no QWidget Missing in Frm");
  EXPECT_FALSE(dialog->isVisible());
  dialog.reset();
}

TEST(WindowDriverTest, RetypingReplacesTheText) {
  const auto dialog = SomeDialog(u"Frm"_s);
  dialog->show();
  auto& text = Find<QLineEdit>(*dialog, u"Txt"_s);
  text.setText(u"old"_s);
  Retype(text, u"新"_s);
  EXPECT_EQ(text.text(), u"新"_s);
  Retype(text, QString());
  EXPECT_EQ(text.text(), QString());
}

}  // namespace folvane::test
