#include "originals/FtpOriginals.h"

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "base/Surroundings.h"
#include "originals/OriginalPlaces.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

class FtpStore final : public OriginalFiles {
 public:
  FtpStore(std::shared_ptr<FtpConnection> connection, const QString& root)
      : connection_(std::move(connection)), root_(PathParts(root)) {}

  QString PathOfToday() const override { return (root_ + QStringList{QString::number(Today().year())}).join(u'/'); }

  void Put(const OriginalPlace& place, QIODevice& content, const TransferProgress& progress) override {
    const CheckedPlace checked = Checked(place);
    const QString directory = PathOf(checked.directories);
    if (!Enters(directory)) {
      connection_->MakeDirectory(directory);
      connection_->ChangeDirectory(directory);
    }
    if (connection_->Size(checked.name)) FailOn(directory + u'/' + checked.name, u"服务器上已存在同名文件。"_s);
    const QString temporary = TemporaryName(checked.name);
    connection_->Put(content, temporary, progress);
    try {
      connection_->Rename(temporary, checked.name);
    } catch (const std::exception&) {
      IgnoreErrors([&] { connection_->Delete(temporary); });
      throw;
    }
  }

  void Get(const OriginalPlace& place, QIODevice& target, const TransferProgress& progress) override {
    const CheckedPlace checked = Checked(place);
    connection_->ChangeDirectory(PathOf(checked.directories));
    connection_->Get(checked.name, target, progress);
  }

  void Remove(const OriginalPlace& place) override {
    const CheckedPlace checked = Checked(place);
    connection_->ChangeDirectory(PathOf(checked.directories));
    connection_->Delete(checked.name);
  }

  bool Has(const OriginalPlace& place) override {
    const CheckedPlace checked = Checked(place);
    return Enters(PathOf(checked.directories)) && connection_->Size(checked.name).has_value();
  }

  std::vector<StoredFile> List(const TransferProgress& progress) override {
    std::vector<StoredFile> files;
    std::vector<QStringList> directories{root_};
    while (!directories.empty()) {
      const QStringList directory = std::move(directories.back());
      directories.pop_back();
      connection_->ChangeDirectory(PathOf(directory));
      for (const FtpEntry& entry : connection_->List()) {
        if (entry.isDirectory) {
          directories.push_back(directory + QStringList{entry.name});
        } else {
          files.push_back({directory.join(u'/'), entry.name, entry.size});
        }
      }
      if (progress && !progress(qint64(files.size()), -1)) FailCancelled();
    }
    return files;
  }

 private:
  static QString PathOf(const QStringList& directories) { return u'/' + directories.join(u'/'); }

  bool Enters(const QString& directory) {
    try {
      connection_->ChangeDirectory(directory);
      return true;
    } catch (const DataError& error) {
      if (error.Kind() == DataErrorKind::Lost) throw;
      return false;
    }
  }

  std::shared_ptr<FtpConnection> connection_;
  QStringList root_;
};

}  // namespace

std::unique_ptr<OriginalFiles> FtpOriginals(std::shared_ptr<FtpConnection> connection, const QString& root) {
  return std::make_unique<FtpStore>(std::move(connection), root);
}

}  // namespace folvane
