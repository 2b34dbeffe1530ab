#pragma once

#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

class QComboBox;
class QLabel;

namespace folvane::designer {

class DesignGrid;

/// How the archive numbers of a table are made up, with an example that follows every change.
class NumberPage : public DesignPage {
 public:
  explicit NumberPage(DesignSession& session);

 protected:
  void Refresh() override;

 private:
  GridModel* NewParts();
  ThingColumn<Design::NumberPart> FieldColumn();
  ThingColumn<Design::NumberPart> ComplaintColumn();
  QComboBox* NewChoice(const QString& name, const QString& tip, QString Design::Table::*field);
  QWidget* NewExample();
  void ShowChoices();
  void ShowExample();
  /// What is wrong with the format as a whole, in sentences. There is a table.
  QString Complaints() const;

  DesignGrid* parts_;
  QComboBox *number_, *folder_;
  QLabel *example_, *folderExample_, *complaints_;
};

}  // namespace folvane::designer
