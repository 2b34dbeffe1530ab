#pragma once

#include <QObject>

#include "forms/EntryField.h"

namespace folvane {

/// Cuts a field's text to the length of its hint if it is too long, with a beep; not while an input method composes,
/// and never what a record holds and the field only shows. No signal: the change was told when it was typed.
void CutToLimit(EntryField& field);

/// Keeps what is typed into a field within the length of its hint, in bytes of the national code page: a text that is
/// too long is cut as a key is released and as an input method commits. Keys that only move or switch do not count, nor
/// does a composition in progress; a pasted text is cut at the next key, at the latest as it is stored. A choice from a
/// list that is too long is refused whole.
class LengthGuard : public QObject {
 public:
  /// Lives as long as the field.
  explicit LengthGuard(EntryField& field);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;

  EntryField& field_;
};

}  // namespace folvane
