#include "designer/GridDelegate.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>

#include "designer/GridModel.h"

namespace folvane::designer {
namespace {

using Kind = GridColumn::Kind;

const GridColumn& ColumnAt(const QModelIndex& index) {
  return static_cast<const GridModel*>(index.model())->Column(index.column());
}

QComboBox* NewChoice(QWidget* parent, const GridColumn& column, int row) {
  auto* choice = new QComboBox(parent);
  choice->setEditable(column.kind == Kind::FreeChoice);
  choice->setInsertPolicy(QComboBox::NoInsert);
  choice->addItems(column.choices(row));
  return choice;
}

}  // namespace

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const GridColumn& column = ColumnAt(index);
  if (column.choices) {
    QComboBox* choice = NewChoice(parent, column, index.row());
    auto* delegate = const_cast<GridDelegate*>(this);  // its signals are no part of what it is
    connect(choice, &QComboBox::activated, delegate, [delegate, choice] {
      Q_EMIT delegate->commitData(choice);
      Q_EMIT delegate->closeEditor(choice);
    });
    return choice;
  }
  if (column.kind == Kind::Number) {
    auto* box = new QSpinBox(parent);
    box->setRange(-100'000, 1'000'000);
    box->setFrame(false);
    box->setButtonSymbols(QSpinBox::NoButtons);
    return box;
  }
  auto* box = new QLineEdit(parent);
  box->setFrame(false);
  return box;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QVariant value = index.data(Qt::EditRole);
  if (auto* choice = qobject_cast<QComboBox*>(editor)) {
    choice->setCurrentIndex(choice->findText(value.toString()));
    if (choice->isEditable()) choice->setEditText(value.toString());
  } else if (auto* number = qobject_cast<QSpinBox*>(editor)) {
    number->setValue(value.toInt());
    number->selectAll();
  } else if (auto* text = qobject_cast<QLineEdit*>(editor)) {
    text->setText(value.toString());
    text->selectAll();
  }
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
  if (auto* choice = qobject_cast<QComboBox*>(editor)) {
    if (choice->isEditable() || choice->currentIndex() >= 0) model->setData(index, choice->currentText());
  } else if (auto* number = qobject_cast<QSpinBox*>(editor)) {
    number->interpretText();
    model->setData(index, number->value());
  } else if (auto* text = qobject_cast<QLineEdit*>(editor)) {
    model->setData(index, text->text());
  }
}

}  // namespace folvane::designer
