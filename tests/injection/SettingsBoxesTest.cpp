// Hostile texts in the settings of transfers: the separator of an archive number's part, and the captions of the tables
// and fields that are offered.
#include <QAbstractItemView>
#include <QTabWidget>

#include <folvane/HostServices.h>

#include "injection/Watched.h"
#include "transfersettings/SettingsFixture.h"

namespace folvane::test {
namespace {

class SettingsBoxesTest : public SettingsTest {
 protected:
  void Open(const WindowSteps& steps) {
    WithWindow(u"FrmTransferSettings"_s, steps);
    Services().editTransferSettings(Connected(), u"TransSet"_s);
  }

  MessageBoxes boxes_;
};
FOLVANE_ON_EACH_DATABASE(SettingsBoxesTest);

}  // namespace

TEST_P(SettingsBoxesTest, ASeparatorIsStoredAsItIsOrIsTold) {
  QString said;
  const Box box{
      "separator",
      [&](const QString& text) {
        QString typed;
        Open([&](QWidget& window) {
          Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
          auto& parts = Find<QAbstractItemView>(window, u"LvParts"_s);
          parts.setFocus();
          parts.setCurrentIndex(parts.model()->index(1, 0));
          Press(parts, Qt::Key_F2);
          typed = PasteInto(window, u"TxtSeparator"_s, text);
          Press(window, Qt::Key_S, Qt::ControlModifier);
          said = TextIn(window, u"LblState"_s) + boxes_.Texts().join(u' ');
          ExpectNoMarkup(window, "settings");
        });
        return typed;
      },
      // Of the second part, whichever that is: the rows have an order of their own.
      [this] { return design_->Value(u"select ListSeparator from ArchiveNo_Format where ListSeparator<>'-'"_s); },
      [this] { Database().Native(u"update ArchiveNo_Format set ListSeparator='-' where ListSeparator<>'-'"_s); }};
  TryBox(Database(), box, SomeHostileLines(), [&] {
    const bool isTold = !said.isEmpty() && !said.startsWith(u"设置已保存。"_s);
    said.clear();
    boxes_.Clear();
    return isTold;
  });
}

TEST_P(SettingsBoxesTest, CaptionsAreShownAndNoMarkup) {
  for (const QString& text : SomeHostileLines(20)) {
    design_->Run(u"update DynamicWindows set ChnFieldName="_s + u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'');
    Open([&](QWidget& window) { ExpectNoMarkup(window, text.toStdString()); });
  }
}

}  // namespace folvane::test
