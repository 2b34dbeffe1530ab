#include "forms/LineGuard.h"

#include <QLineEdit>
#include <algorithm>

#include "forms/EntryLayout.h"
#include "widgets/EditCombo.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

bool EndsLine(QChar sign) { return sign == u'\n' || sign == u'\r'; }

QString OnOneLine(QString text) {
  while (!text.isEmpty() && EndsLine(text.back())) text.chop(1);
  return text.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
}

}  // namespace

QLineEdit* LineOf(const EntryField& field) {
  if (field.ControlType() == ControlKind::Txt) return qobject_cast<QLineEdit*>(&field.Widget());
  const auto* combo = field.ControlType() == ControlKind::Cmb ? qobject_cast<EditCombo*>(&field.Widget()) : nullptr;
  return combo ? &combo->Box() : nullptr;
}

LineGuard::LineGuard(EntryField& field, QLineEdit& line) : QObject(&field), line_(line), before_(line.text()) {
  connect(&line, &QLineEdit::textEdited, this, &LineGuard::Check);
  connect(&line, &QLineEdit::textChanged, this, [this] { before_ = line_.text(); });
}

// What came with this edit lies between what the text has in common with the one before.
void LineGuard::Check(const QString& text) {
  const auto [given, old] = std::mismatch(text.begin(), text.end(), before_.begin(), before_.end());
  const auto same = std::mismatch(text.rbegin(), std::make_reverse_iterator(given), before_.rbegin(),
                                  std::make_reverse_iterator(old));
  const QString pasted(given, same.first.base() - given);
  if (std::none_of(pasted.begin(), pasted.end(), EndsLine)) return;
  line_.setSelection(int(given - text.begin()), int(pasted.size()));
  line_.insert(OnOneLine(pasted));
}

}  // namespace folvane
