#pragma once

#include <QString>
#include <QTextDocument>

namespace folvane::reports {

/// The text of a report. Its pictures come from the folder of the templates and from nowhere else, whatever a template
/// or a record says.
class ReportDocument : public QTextDocument {
 public:
  explicit ReportDocument(const QString& folder);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QString folder_;
};

}  // namespace folvane::reports
