#pragma once

#include <QWidget>
#include <functional>

#include "injection/HostileTexts.h"
#include "support/Contents.h"
#include "support/HostDoubles.h"

namespace folvane::test {

/// A box that takes a text, and what becomes of it.
struct Box {
  std::string name;
  /// Types the text into the box and carries out what the box is for. Answers what is to be found then.
  std::function<QString(const QString& text)> enter;
  /// Where the text is found afterwards.
  std::function<QString()> stored;
  /// Puts the place of the text back to what it held.
  std::function<void()> restore;
};

/// Pastes a text in the place of what a control of the window holds. Answers what it holds then.
QString PasteInto(const QWidget& window, const QString& name, const QString& text);

/// What is to be found of a text whose statement escapes nothing: of two quotes in a row, one.
inline QString TakenUnescaped(QString typed) { return typed.replace(QStringLiteral("''"), QStringLiteral("'")); }

/// Nothing in a window reads a text of the database as markup: no label, and no tip of a control, command or item.
void ExpectNoMarkup(const QWidget& window, const std::string& where);

/// Enters each of the texts. Each is then found exactly as it was typed, or the user was told that it is not, and
/// nothing else in the database has changed. @param told whether the user was told something since it was last asked
void TryBox(TestDatabase& database, const Box& box, const QStringList& texts, const std::function<bool()>& told);

/// A table and files beside the store that a hostile text would like to reach; looked at when this object goes.
class Canaries {
 public:
  Canaries(TestDatabase& database, const TempProgramDirectory& program);
  ~Canaries();
  Canaries(const Canaries&) = delete;
  Canaries& operator=(const Canaries&) = delete;

 private:
  TestDatabase& database_;
  const TempProgramDirectory& program_;
};

}  // namespace folvane::test
