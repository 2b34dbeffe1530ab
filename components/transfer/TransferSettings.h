#pragma once

#include <optional>

#include "components/transfer/SettingsStore.h"
#include "design/transfer/BusinessTables.h"
#include "design/transfer/Finding.h"
#include "design/transfer/Suggestions.h"

namespace folvane::transfer {

/// The settings while they are edited. What is asked for and cannot be is refused by a DataError Usage that says why,
/// and changes nothing.
class TransferSettings {
 public:
  /// Reads everything. @throws DataError
  explicit TransferSettings(std::shared_ptr<Connection> connection);

  /// Reads again and forgets what was changed. @throws DataError, with everything as it was
  void Read();
  /// @throws DataError as SettingsStore::Save, with everything as it was
  void Save();
  bool IsChanged() const { return settings_ != saved_; }
  /// What has an error, in lines for the user; empty when nothing has.
  QStringList Errors();

  const Settings& Now() const { return settings_; }
  BusinessTables& Tables() { return *tables_; }
  Connection& Database() { return *connection_; }

  /// @return the place of the new set
  std::size_t AddSet(const QString& source, const QString& destination);
  void ChangeSet(std::size_t set, const QString& source, const QString& destination);
  void RemoveSet(std::size_t set);

  /// Lets a field of the destination take a field of the source; in the place of the one that it took so far.
  /// @return the place of the link
  std::size_t Link(std::size_t set, const QString& source, const QString& destination);
  /// Lets the source of a link go to another field of the destination; where that is refused, the link stays.
  /// @return the place of the link
  std::size_t MoveLink(std::size_t set, std::size_t link, const QString& destination);
  void RemoveLink(std::size_t set, std::size_t link);
  std::vector<Suggestion> Suggested(std::size_t set);
  /// What would be wrong with a suggestion once it is taken. @throws DataError
  Findings CheckSuggestion(const Suggestion& suggestion, std::size_t set);
  /// Takes all suggestions. @return how many
  int TakeSuggestions(std::size_t set);

  /// The format of a table. Where it has none, one without parts, whose number goes into the field called 档号.
  NumberFormat FormatOf(const QString& table) const;
  /// Takes the place of the table's format; one without parts is removed. Its parts get the captions of their fields,
  /// and all its rows the same fields of the number.
  void SetFormat(NumberFormat format);

 private:
  void RequireNewPair(const QString& source, const QString& destination, std::optional<std::size_t> except) const;

  std::shared_ptr<Connection> connection_;
  SettingsStore store_;
  std::unique_ptr<BusinessTables> tables_;
  Settings settings_, saved_;
};

}  // namespace folvane::transfer
