#include <QLabel>

#include <folvane/Version.h>

#include "support/Accessibility.h"
#include "support/WindowDriver.h"
#include "widgets/FrmAbout.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(FrmAbout, SaysTheVersionOfTheLibrary) {
  const FrmAbout about;
  EXPECT_EQ(test::Find<QLabel>(about, u"LblVersion"_s).text(),
            u"Folvane 版本 "_s + QLatin1String(FOLVANE_VERSION_STRING));
  EXPECT_EQ(Version(), QLatin1String(FOLVANE_VERSION_STRING));
}

TEST(FrmAbout, NamesPictureAndLinkForScreenReaders) {
  FrmAbout about;
  about.show();
  EXPECT_EQ(test::UnnamedControls(about), QStringList());
  for (const QString& name : {u"Picture1"_s, u"LblLink"_s})
    EXPECT_FALSE(test::Find<QLabel>(about, name).accessibleName().isEmpty()) << name.toStdString();
}

}  // namespace
}  // namespace folvane
