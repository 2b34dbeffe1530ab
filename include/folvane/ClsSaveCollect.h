#pragma once

#include <QString>

#include <folvane/Export.h>

class QObject;

namespace folvane {

/// Applies the proofing rules of a table to what the open entry form shows. Made anew for each save: the rules are read
/// each time.
class FOLVANE_EXPORT ClsSaveCollect {
 public:
  /// Tests the rules one after the other and tells the user of the first that is broken. A rule that cannot be tested,
  /// whatever the reason, is passed over.
  /// @param fondsNo the fonds number of the record: a value may then stand once in each fonds; "" where it may stand
  ///                only once in the table
  /// @param failed  true when a rule is broken, otherwise false
  void SaveCollect(const QString& tableName, const QString& fondsNo, bool& failed) const;

  /// The entry form's control of a number in the array of a kind, null when there is none: 1 Txt, 2 Cmb, 4 DTP,
  /// 6 F_FondsNo, 7 F_Aec, 8 F_Organ, 9 DTP_Arch, 10 Txt_MLine. Its text is the property "text".
  QObject* FindControl(qint16 controlIndex, qint16 controlType) const;
};

}  // namespace folvane
