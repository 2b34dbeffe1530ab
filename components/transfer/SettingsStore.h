#pragma once

#include <memory>

#include "components/transfer/DesignRows.h"
#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// Reads and writes the settings.
class SettingsStore {
 public:
  explicit SettingsStore(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

  /// @throws DataError Usage that names the design tables and columns that are missing
  Settings Read();

  /// Writes what differs from what was read last, in one transaction, and reads again. Sets without a number of their
  /// own are given one. @throws DataError Conflict, with nothing written, when somebody else changed the settings since
  /// they were read; otherwise whatever kept them from being written, nothing of it being kept
  Settings Save(Settings settings);

 private:
  struct Rows {
    DesignRows sets, links, parts;
  };

  Rows ReadRows() const;
  Settings Understand() const;
  void ReadLinks(Settings& settings) const;
  void ReadParts(Settings& settings) const;
  Rows RowsOf(const Settings& settings) const;
  void RequireUnchanged() const;
  void GiveNumbers(Settings& settings) const;

  std::shared_ptr<Connection> connection_;
  Rows read_;
};

}  // namespace folvane::transfer
