#pragma once

#include <QObject>

#include "forms/EntryField.h"

namespace folvane {

/// Cuts a field's text to the length of its hint if it is too long, not while an input method composes. Silent: the
/// change was told when it was typed.
void CutToLimit(EntryField& field);

/// Keeps what is typed into a field within the length of its hint, in bytes of the national code page: a text that is
/// too long is cut as a key is released and as an input method commits. Keys that only move or switch do not count, nor
/// does a composition in progress; a pasted text is cut at the next key,
/// at the latest as it is stored.
class LengthGuard : public QObject {
 public:
  /// Lives as long as the field.
  explicit LengthGuard(EntryField& field);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;

  EntryField& field_;
};

}  // namespace folvane
