#pragma once

#include "InputFixture.h"

namespace folvane::test {

/// Records through the entry window, from the button to the database.
class RecordRoad : public InputTest {
 protected:
  void DesignTitle(bool required = false) {
    Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt, 0, u"文本型"_s, 50, required});
  }
  QString Stored(const QString& column, int number = 1) {
    return Value(u"select "_s + column + u" from Lwdj where ArchiveID = '"_s + Key(number) + u"'"_s);
  }
  QString Count() { return Value(u"select count(*) from Lwdj"_s); }
};

}  // namespace folvane::test
