#include "injection/Watched.h"

#include <QAbstractItemView>
#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QUrl>

#include "support/WindowDriver.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

/// A page that tells what it would read.
class WatchedPage : public QTextDocument {
 public:
  QStringList asked;

 private:
  QVariant loadResource(int, const QUrl& name) override {
    asked << name.toString();
    return QImage(1, 1, QImage::Format_RGB32);
  }
};

// What looks like markup is shown as such: it may read nothing and lead nowhere.
void ExpectPlain(const QString& tip, const std::string& where) {
  if (!Qt::mightBeRichText(tip)) return;
  WatchedPage page;
  page.setHtml(tip);
  page.documentLayout()->documentSize();
  EXPECT_EQ(page.asked, QStringList()) << where << ": " << tip.toStdString();
  for (const QTextFormat& format : page.allFormats())
    EXPECT_FALSE(format.isCharFormat() && format.toCharFormat().isAnchor()) << where << ": " << tip.toStdString();
}

void ExpectPlainItems(const QAbstractItemModel& model, const std::string& where, const QModelIndex& parent = {}) {
  for (int column = 0; column < model.columnCount(parent); ++column) {
    ExpectPlain(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString(), where);
    for (int row = 0; row < model.rowCount(parent); ++row) {
      const QModelIndex item = model.index(row, column, parent);
      ExpectPlain(item.data(Qt::ToolTipRole).toString(), where);
      if (column == 0) ExpectPlainItems(model, where, item);
    }
  }
}

}  // namespace

QString PasteInto(const QWidget& window, const QString& name, const QString& text) {
  auto& control = Find<QWidget>(window, name);
  auto* own = qobject_cast<QLineEdit*>(&control);
  if (auto* line = own ? own : control.findChild<QLineEdit*>()) {  // that of a combo box, or of a box made of several
    line->selectAll();
    line->insert(text);
    return line->text();
  }
  auto& memo = Find<QPlainTextEdit>(window, name);
  memo.selectAll();
  memo.insertPlainText(text);
  return TextIn(window, name);
}

void ExpectNoMarkup(const QWidget& window, const std::string& where) {
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->textFormat() == Qt::AutoText)
      ExpectPlain(label->text(), where + " " + label->objectName().toStdString());
  for (const auto* control : window.findChildren<QWidget*>())
    ExpectPlain(control->toolTip(), where + " " + control->objectName().toStdString());
  for (const auto* action : window.findChildren<QAction*>())
    ExpectPlain(action->toolTip(), where + " " + action->objectName().toStdString());
  for (const auto* view : window.findChildren<QAbstractItemView*>())
    if (view->model()) ExpectPlainItems(*view->model(), where + " " + view->objectName().toStdString());
}

void TryBox(TestDatabase& database, const Box& box, const QStringList& texts, const std::function<bool()>& told) {
  const Contents before = ContentsOf(database);
  for (const QString& text : texts) {
    SCOPED_TRACE(box.name + ": " + text.left(80).toStdString());
    told();
    const QString meant = box.enter(text);
    const bool wasTold = told();
    const QString stored = box.stored();
    EXPECT_TRUE(stored == meant || wasTold) << "meant " << meant.toStdString() << ", found " << stored.toStdString();
    box.restore();
    const Contents after = ContentsOf(database);
    EXPECT_TRUE(after == before) << Difference(before, after).toStdString();
  }
}

Canaries::Canaries(TestDatabase& database, const TempProgramDirectory& program)
    : database_(database), program_(program) {
  database_.Native(u"create table Canary (Name varchar(50) primary key)"_s);
  database_.Native(u"insert into Canary values ('alive')"_s);
  for (const QString& file : {u"canary.txt"_s, u"Data2/canary.txt"_s}) program_.Write(file, "alive");
}

Canaries::~Canaries() {
  EXPECT_EQ(database_.Value(u"select Name from Canary"_s), u"alive"_s);
  EXPECT_EQ(database_.Value(u"select count(*) from Canary"_s), u"1"_s);
  for (const QString& file : {u"canary.txt"_s, u"Data2/canary.txt"_s})
    EXPECT_EQ(program_.Read(file), QByteArray("alive")) << file.toStdString();
}

}  // namespace folvane::test
