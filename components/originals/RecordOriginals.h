#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <folvane/Connection.h>
#include <folvane/OriginalFiles.h>
#include <folvane/OriginalsRequest.h>

namespace folvane::originals {

/// A row of Original_Text.
struct Original {
  QString id, name, type, filePath;
  qint64 size = 0;  ///< in bytes
  int order = 0;

  OriginalPlace Place() const { return {filePath, id, type}; }
};

/// The same originals with those of some rows, in their order, before the one of another row; `before` may be the
/// number of all, for the end.
std::vector<Original> Moved(const std::vector<Original>& originals, const std::vector<int>& rows, int before);

/// A file that shall become an original.
struct FileToAdd {
  QString name, type;  ///< as its row will have them
  QString path;        ///< where it lies now

  /// Named after the file itself.
  static FileToAdd At(const QString& path);
};

/// The originals of one record: rows of Original_Text, each with its file in the store. Members throw DataError.
class RecordOriginals {
 public:
  using OpenStore = std::function<std::unique_ptr<OriginalFiles>()>;

  explicit RecordOriginals(const OriginalsRequest& request);
  /// @param open gives the store, once, when it is first needed
  RecordOriginals(std::shared_ptr<folvane::Connection> connection, const QString& recordId, OpenStore open);

  folvane::Connection& Database() const { return *connection_; }
  /// The store, opened when it is first needed.
  OriginalFiles& Store();

  /// All of them in their order.
  std::vector<Original> Read() const;

  /// Puts a file into the store and adds its row behind the others. After a failure there is neither; only where the
  /// database does not even tell whether it has the row the file stays, since a row must not lose its file.
  Original Add(const FileToAdd& file, const TransferProgress& progress = {});
  void Rename(const Original& original, const QString& name);
  /// Writes the places of all originals of the record, as many rows as have another place now, or none.
  void Reorder(const std::vector<Original>& inOrder);
  /// Removes the row, and the file where no other record holds it.
  /// @return whether the file could not be removed, which leaves it without a row
  bool Delete(const Original& original);

  void Fetch(const Original& original, QIODevice& target, const TransferProgress& progress = {});
  /// Copies the file to a path, where it appears whole or not at all.
  void Export(const Original& original, const QString& path, const TransferProgress& progress = {});

 private:
  QString RowOf(const QString& id) const;
  bool HasRow(const QString& condition) const;
  /// Whether the database has the row; nothing where it cannot be asked.
  std::optional<bool> IsKept(const Original& original) const;
  OriginalPlace FreePlace(const QString& type);
  void Insert(const Original& original);
  void InsertOrTakeBack(const Original& original);

  std::shared_ptr<folvane::Connection> connection_;
  QString recordId_;
  OpenStore open_;
  std::unique_ptr<OriginalFiles> store_;
};

}  // namespace folvane::originals
