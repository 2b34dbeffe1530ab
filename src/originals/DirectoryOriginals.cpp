#include <QFile>

#include "base/Surroundings.h"
#include "data/Recordset.h"
#include "originals/OriginalFiles.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString DefaultRoot() { return ProgramDirectory() + u"\\Data"_s; }

class Directory final : public OriginalFiles {
 public:
  QString Root(const Recordset& setting) const override {
    if (setting.EOF_()) {
      SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Description) Values('"_s + kOriginalSetting +
                                  u"','"_s + DefaultRoot() + u"')"_s);
      return DefaultRoot();
    }
    QString root = setting[u"Info_Description"_s].Text();
    if (root.trimmed().isEmpty()) {
      SharedConnection()->Execute(u"Update Report_Info Set Info_Description='"_s + DefaultRoot() +
                                  u"' Where Report_Id = '"_s + kOriginalSetting + u"'"_s);
      return DefaultRoot();
    }
    if (root.endsWith(u'\\')) root.chop(1);
    return root;
  }

  void Remove(const QString& filePath, const QString& fileId, const QString& type) const override {
    QFile::remove(OriginalPath(filePath, fileId, type));
  }
};

}  // namespace

std::unique_ptr<OriginalFiles> DirectoryOriginals() { return std::make_unique<Directory>(); }

QString OriginalPath(const QString& filePath, const QString& fileId, const QString& type) {
  const QString directory = filePath.isEmpty() ? QString() : filePath + u'\\';
  QString path = Shared().OriginalRoot + u'\\' + directory + fileId + type;
  return ExistingPath(path.replace(u'\\', u'/'));
}

}  // namespace folvane
