// The short form of scripts/fuzz: what its targets begin with, whole, cut and changed at random.
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include "support/Dice.h"

extern "C" {
using Reader = int(const std::uint8_t* data, std::size_t size);
Reader ReadCriteria, ReadDialect, ReadDocument, ReadFtpAnswer, ReadLikePattern, ReadNumber, ReadProfile,
    ReadRecordSetFile, ReadReportTemplate, ReadWildcardPattern;
}

namespace folvane::test {
namespace {

struct Target {
  const char* name;  ///< of its folder in the corpus
  Reader* read;
  int changes;  ///< of each text
};

class Readers : public testing::TestWithParam<Target> {
 protected:
  static void Read(const QByteArray& text) {
    GetParam().read(reinterpret_cast<const std::uint8_t*>(text.constData()), std::size_t(text.size()));
  }
};

QByteArray Changed(QByteArray text, Dice& dice) {
  for (int change = dice.Between(1, 4); change > 0 && !text.isEmpty(); --change) {
    const int at = dice.Between(0, int(text.size()) - 1), length = dice.Between(1, 8);
    switch (dice.Between(0, 3)) {
      case 0:
        text[at] = char(dice.Between(0, 255));
        break;
      case 1:
        text[at] = char(text[at] ^ (1 << dice.Between(0, 7)));
        break;
      case 2:
        text.remove(at, length);
        break;
      default:
        text.insert(at, text.mid(dice.Between(0, int(text.size()) - 1), length));
        break;
    }
  }
  return text;
}

// A target ends the program when a text is not read as it should be; what it asserts is said there.
TEST_P(Readers, ReadWhatTheyBeginWithWholeCutAndChanged) {
  const QDir folder(QString::fromUtf8(FUZZ_CORPUS) + u'/' + QString::fromUtf8(GetParam().name));
  const QStringList names = folder.entryList(QDir::Files, QDir::Name);
  ASSERT_FALSE(names.isEmpty());
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray text = file.readAll();
    Read(text);
    for (int step = 0; step < GetParam().changes; ++step) {
      Dice dice(20261123, quint64(step));
      Read(text.left(dice.Between(0, int(text.size()))));
      Read(Changed(text, dice));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, Readers,
                         testing::Values(Target{"Criteria", ReadCriteria, 500}, Target{"Dialect", ReadDialect, 200},
                                         Target{"Document", ReadDocument, 50}, Target{"FtpAnswer", ReadFtpAnswer, 500},
                                         Target{"LikePattern", ReadLikePattern, 500}, Target{"Number", ReadNumber, 500},
                                         Target{"Profile", ReadProfile, 200},
                                         Target{"RecordSetFile", ReadRecordSetFile, 500},
                                         Target{"ReportTemplate", ReadReportTemplate, 200},
                                         Target{"WildcardPattern", ReadWildcardPattern, 500}),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
}  // namespace folvane::test
