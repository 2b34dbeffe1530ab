// The main of every test program: the same screen, font, locale and clock zone on every machine, and nothing of the
// user's own settings.
#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <gmock/gmock.h>

#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void PinSurroundings(const QString& home) {
  const QByteArray surroundings = TEST_SURROUNDINGS;
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + surroundings + "/screen.json");
  qputenv("FONTCONFIG_FILE", surroundings + "/fonts.conf");
  qputenv("QT_STYLE_OVERRIDE", "Fusion");
  qputenv("LC_ALL", "C.UTF-8");
  qputenv("TZ", "UTC");
  for (const char* unwanted : {"QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_QPA_PLATFORMTHEME", "QT_PLUGIN_PATH"})
    qunsetenv(unwanted);
  for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
    qputenv(folder, home.toUtf8());
}

/// Passes on what Qt has to say, less what the offscreen platform says of itself at every window.
void TellMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.startsWith("This plugin does not support"_L1)) return;
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir home;
  PinSurroundings(home.path());
  qInstallMessageHandler(TellMessage);
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  // The defaults of Qt's own platform differ from machine to machine; the pinned font has this size everywhere.
  QApplication::setFont(QFont(u"WenQuanYi Micro Hei"_s, 9));
  QApplication::setQuitOnLastWindowClosed(false);
  auto& listeners = testing::UnitTest::GetInstance()->listeners();
  listeners.Append(new folvane::test::HostDoublesListener);
  listeners.Append(new folvane::test::WindowDriverListener);
  return RUN_ALL_TESTS();
}
