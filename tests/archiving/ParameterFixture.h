#pragma once

#include <QStringList>

#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

namespace folvane::test {

/// The archive table Wsda, whose number and entry form a case designs.
class ParameterTest : public DesignTest {
 protected:
  struct FieldDesign {
    QString fieldType = QStringLiteral("文本型");
    QString length = QStringLiteral("10");
    QString dictionary = {};
  };

  void SetUp() override {
    DesignTest::SetUp();
    design_->Run(QStringLiteral("delete from ArchiveNo_Format"));
    log_->Take();
  }

  /// Adds a part to the number of a table, behind those added before.
  void Part(const QString& field, const QString& separator = QStringLiteral("-"), int length = 4,
            const QString& showMode = QStringLiteral("显示代号"), const QString& table = QStringLiteral("Wsda")) {
    design_->Insert(
        QStringLiteral("ArchiveNo_Format"),
        QStringLiteral("TableName,FieldName,FieldChn,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField"),
        {table, field, field, separator, showMode, QString::number(length), QStringLiteral("ArchiveNo"),
         QStringLiteral("FolderNo")});
  }
  /// Adds a field to the entry form of a table.
  void Field(const QString& field, const QString& caption, int controlType = 1,
             const QString& table = QStringLiteral("Wsda")) {
    Field(field, caption, controlType, FieldDesign(), table);
  }
  void Field(const QString& field, const QString& caption, int controlType, const FieldDesign& design,
             const QString& table = QStringLiteral("Wsda")) {
    design_->Insert(QStringLiteral("DynamicWindows"),
                    QStringLiteral("TableName,FieldName,ChnFieldName,FieldType,FieldLong,AuxiDictDetails"),
                    {table, field, caption, design.fieldType, design.length, design.dictionary});
    design_->Insert(QStringLiteral("SaveControls"),
                    QStringLiteral("DataSource,DataField,ControlType,ControlIndex,KeyOrder"),
                    {table, field, QString::number(controlType), QStringLiteral("1"), QStringLiteral("1")});
  }
  /// A part and its field.
  void AskFor(const QString& field, const QString& caption, int controlType = 1) {
    Part(field);
    Field(field, caption, controlType);
  }

  QByteArray Kept() const { return program_.Read(QStringLiteral("DoArchiveLog.INI")); }
  void Keep(const QByteArray& lines) const { program_.Write(QStringLiteral("DoArchiveLog.INI"), lines); }
};

}  // namespace folvane::test
