#pragma once

#include <QGroupBox>
#include <functional>
#include <optional>

namespace folvane {

class TextCombo;

/// The quick search bar: one condition on one of the fields that the design offers for a table, with a memory of the
/// values that were searched for.
class SearchBar : public QGroupBox {
 public:
  explicit SearchBar(QWidget* parent = nullptr);

  /// Reads the fields of a table and chooses the first.
  void Fill(const QString& table);
  /// Empties the value when the condition that was searched by is no longer the list's.
  void FollowFilter(const QString& filter);
  /// The caption of a field on offer, "" for any other.
  QString CaptionOf(const QString& field) const;
  /// What a press of the search key does with the condition as entered; what is missing in it is asked for instead.
  void OnSearch(std::function<void(const QString& condition)> handler);

 private:
  TextCombo* AddHiddenCombo(const QString& name);
  void LayOut();
  void ChooseField(int index);
  void ClearValue();
  std::optional<QString> Condition();
  void RememberValue();
  std::optional<QString> Missing(QWidget* control, const QString& message);
  QString FieldName() const;

  TextCombo *captions_, *relation_, *value_;
  // Hidden and parallel to the captions.
  TextCombo *fields_, *types_, *histories_;
  class QPushButton* search_;
  QString table_;     ///< whose fields are on offer
  QString searched_;  ///< the condition that was given last, "" for none
};

}  // namespace folvane
