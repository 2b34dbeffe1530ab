#pragma once

#include <QObject>
#include <functional>

#include "entry/TypingRules.h"
#include "forms/EntryField.h"

namespace folvane {

/// What the typing aids of a field ask and tell of the window around it.
struct TypingContext {
  std::function<bool()> hasRecord;  ///< without a current record the aids rest
  std::function<bool()> usesSign;   ///< the function keys add brackets
  std::function<void(EntryField& field)> onEnter;
};

/// The keys of one field of an entry form: Enter walks on, the function keys add the brackets of a document number,
/// and what the field cannot hold does not go in. Lives as long as the field.
class TypingAids : public QObject {
 public:
  /// @param wideFields as RegCbcIni gives them
  TypingAids(EntryField& field, bool isNumeric, const QStringList& wideFields, TypingContext context);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool TakeKey(int key, bool withControl);
  bool AddYearSign(int key);

  EntryField& field_;
  bool isNumeric_;
  TypingContext context_;
};

}  // namespace folvane
