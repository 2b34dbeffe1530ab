#pragma once

#include <QScrollArea>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "forms/EntryField.h"
#include "forms/EntryLayout.h"

class QGridLayout;
class QLabel;

namespace folvane {

/// The fields of a table's archive number that the user gives before a transfer, one under the other, as they were last
/// given.
class ArchiveFields : public QScrollArea {
 public:
  explicit ArchiveFields(QWidget* parent = nullptr);
  ~ArchiveFields() override;

  /// Makes the format of a table's archive number the shared one and shows its fields.
  /// @return the parts of the number, 0 where the table has no format @throws DataError
  int Load(const QString& table);
  /// Takes what was entered into the shared archive number and keeps it for the next time. A blank field is told and
  /// gets the focus.
  /// @return whether all fields have a value
  bool Read();
  /// Takes the fields away.
  void Clear();

  /// What is entered at the moment.
  ShownFields Shown() const;
  /// Is called as the user changes a field.
  void OnChange(std::function<void()> handler) { changed_ = std::move(handler); }
  /// Why the values last given could not be read or kept, in words; "" while they could.
  const QString& Note() const { return note_; }

  /// The room in which all fields can be seen.
  QSize sizeHint() const override;

 private:
  void AddField(const LayoutRow& row, const QString& last);
  void Tell(const QString& what, const QString& failure);

  QGridLayout* grid_;
  QString table_, note_;
  std::vector<std::unique_ptr<EntryField>> fields_;
  std::vector<std::unique_ptr<QLabel>> labels_;
  std::function<void()> changed_;
};

}  // namespace folvane
