#include "components/reports/TemplateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStringDecoder>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "components/common/WholeFile.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void ThrowFile(const QString& text, const QString& path, const QString& reason) {
  throw DataError(DataErrorKind::File, text.arg(QDir::toNativeSeparators(path), reason));
}

}  // namespace

QString TemplatePath(const QString& reportId) {
  static const QRegularExpression outside(u"[/\\\\:*?\"<>|\\x00-\\x1f]|\\.\\."_s);
  if (reportId.trimmed().isEmpty()) throw DataError(DataErrorKind::Usage, u"没有指定报表的编号。"_s);
  if (reportId.contains(outside))
    throw DataError(DataErrorKind::Usage, u"报表编号“%1”不能作为模板的文件名。"_s.arg(reportId));
  return QDir(Services().programDirectory).filePath(u"Reports/"_s + reportId.trimmed() + u".html"_s);
}

std::optional<QString> ReadTemplate(const QString& reportId) {
  const QString path = TemplatePath(reportId);
  QFile file(path);
  if (!file.exists()) return std::nullopt;
  if (!file.open(QFile::ReadOnly)) ThrowFile(u"报表模板 %1 无法读取：%2"_s, path, file.errorString());
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(file.readAll());
  if (decoder.hasError()) ThrowFile(u"报表模板 %1 无法读取：%2"_s, path, u"文件不是 UTF-8 编码。"_s);
  return text;
}

void WriteTemplate(const QString& reportId, const QString& text) {
  const QString path = TemplatePath(reportId);
  QDir().mkpath(QFileInfo(path).path());
  QSaveFile file(path);
  const QByteArray bytes = text.toUtf8();
  const bool saved = file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size() && components::CommitWhole(file);
  if (!saved) ThrowFile(u"报表模板 %1 无法保存：%2"_s, path, file.errorString());
}

QString MetaOf(const QString& text, const QString& name) {
  const QRegularExpression line(u"<meta\\s+name=\"%1\"\\s+content=\"([^\"]*)\"\\s*/?>"_s.arg(name),
                                QRegularExpression::CaseInsensitiveOption);
  return line.match(text).captured(1).trimmed();
}

}  // namespace folvane::reports
