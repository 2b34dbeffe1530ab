#pragma once

#include <QWidget>
#include <functional>

#include "components/transfer/TransferSettings.h"

class QAction;
class QLabel;
class QToolBar;

namespace folvane {
struct ToolKey;
}

namespace folvane::transfer {

class SettingsList;

/// Which tables go into which, and field by field what becomes what: the fields of the source on the left, those of the
/// destination on the right, and between them what is linked and what could be.
class SetsPage : public QWidget {
 public:
  SetsPage(QWidget* parent, TransferSettings& settings);

  /// The settings were changed here.
  std::function<void()> onChange;
  /// Something to be said in the status line.
  std::function<void(const QString& text)> onWord;

  /// Shows the settings anew.
  void Refresh();
  /// The destination of the current set; "" for none.
  QString Destination() const;

 private:
  using Handler = void (SetsPage::*)();

  void LayOut();
  QWidget* NewSetsPart();
  QWidget* NewFieldsPart();
  QWidget* NewFieldList(SettingsList*& list, const QString& name, const QString& caption);
  QToolBar* NewSetKeys();
  QToolBar* NewLinkKeys();
  QAction* NewKey(QToolBar& bar, SettingsList* list, const ToolKey& key, Handler handler);
  void ConnectLists();

  void FillSets();
  void FillFields();
  void FillSide(SettingsList& list, const QString& table, bool isSource);
  void Enable();
  void Changed(const QString& word);

  bool HasSet() const;
  std::size_t Set() const;
  const TransferSet& Now() const;
  /// The place of the current link or suggestion; none where the current row is the other one.
  std::optional<std::size_t> CurrentLink() const;
  std::optional<std::size_t> CurrentSuggestion() const;

  void AddSet();
  void EditSet();
  void DeleteSet();
  void LinkFields();
  void LinkNext();
  void Link(const QString& source, const QString& destination);
  /// Tells of a link that was made, and goes to it. A link that is not new has taken the place of another.
  void ShowLinked(std::size_t link, bool isNew);
  void DropOnLink(bool isSource, const QString& field, int row);
  void EditLink();
  void ActivateLink();
  void DeleteLink();
  void TakeSuggestion();
  void TakeSuggestions();

  TransferSettings& settings_;
  std::vector<Suggestion> suggestions_;
  SettingsList *sets_ = nullptr, *source_ = nullptr, *links_ = nullptr, *destination_ = nullptr;
  QLabel* detail_ = nullptr;  ///< what is wrong with the current link, in full
  QAction *edit_ = nullptr, *delete_ = nullptr, *link_ = nullptr, *editLink_ = nullptr, *unlink_ = nullptr,
          *take_ = nullptr, *takeAll_ = nullptr;
};

}  // namespace folvane::transfer
