#include "browser/SearchBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <folvane/Icons.h>

#include "base/CodePage.h"
#include "browser/QuickSearch.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"
#include "shell/TableFields.h"
#include "widgets/TextCombo.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kHistoryBytes = 500;

TextCombo* NewCombo(QWidget* parent, const QString& name, const QString& tip) {
  auto* combo = new TextCombo(parent);
  combo->setObjectName(name);
  combo->setToolTip(tip);
  combo->setAccessibleName(tip);
  return combo;
}

// A cut between the two quotes of a pair would leave the literal open, and so would a null character for a server.
QString StoredHistory(QString history) {
  QString stored = LimitByteLength(EscapeSql(history.remove(QChar(0)), false), kHistoryBytes);
  if (stored.count(u'\'') % 2 != 0) stored.chop(1);
  return stored;
}

}  // namespace

SearchBar::SearchBar(QWidget* parent) : QGroupBox(u"简易检索栏"_s, parent) {
  setObjectName(u"FraSearch"_s);
  captions_ = NewCombo(this, u"CboChnFields"_s, u"要查询的字段"_s);
  relation_ = NewCombo(this, u"CboRelation"_s, u"比较方式"_s);
  value_ = NewCombo(this, u"CboValue"_s, u"要查询的内容，可选用以前查过的"_s);
  value_->setEditable(true);
  value_->setInsertPolicy(QComboBox::NoInsert);
  value_->setCompleter(nullptr);
  fields_ = AddHiddenCombo(u"CboFields"_s);
  types_ = AddHiddenCombo(u"CboFieldType"_s);
  histories_ = AddHiddenCombo(u"CboFieldValues"_s);
  search_ = new QPushButton(Icon(u"search"_s), u"开始检索"_s, this);
  search_->setObjectName(u"CmdSearch"_s);
  search_->setToolTip(u"按此条件查找当前表中的记录"_s);
  LayOut();
  ConnectGuarded(captions_, &QComboBox::currentIndexChanged, this, &SearchBar::ChooseField);
  connect(value_->lineEdit(), &QLineEdit::returnPressed, search_, &QPushButton::click);
}

TextCombo* SearchBar::AddHiddenCombo(const QString& name) {
  TextCombo* combo = NewCombo(this, name, {});
  combo->hide();
  return combo;
}

void SearchBar::LayOut() {
  auto* row = new QHBoxLayout(this);
  auto* label = new QLabel(u"检索信息："_s, this);
  label->setBuddy(captions_);
  auto* length = new QLabel(u"个字"_s, this);
  length->setObjectName(u"TxtLen"_s);
  captions_->setMinimumContentsLength(8);
  captions_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  relation_->setMinimumContentsLength(5);
  value_->setMinimumContentsLength(8);
  value_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  value_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  row->addWidget(label);
  row->addWidget(captions_);
  row->addWidget(relation_);
  row->addWidget(value_, 1);
  row->addWidget(length);
  row->addWidget(search_);
}

void SearchBar::Fill(const QString& table) {
  const QSignalBlocker silence(captions_);
  for (TextCombo* list : {captions_, relation_, value_, fields_, types_, histories_}) list->clear();
  table_ = table;
  searched_.clear();
  FillSearchFields(table, *fields_, *captions_, *types_, *histories_);
  if (captions_->count() == 0) return;
  captions_->setCurrentIndex(0);
  ChooseField(0);
}

void SearchBar::ChooseField(int index) {
  types_->setCurrentIndex(index);
  histories_->setCurrentIndex(index);
  relation_->clear();
  value_->clear();
  if (index < 0) return;
  relation_->addItems(RelationWords(types_->itemText(index)));
  relation_->setCurrentIndex(0);
  value_->addItems(HistoryValues(histories_->itemText(index)));
  ClearValue();
}

void SearchBar::ClearValue() {
  value_->setCurrentIndex(-1);
  value_->clearEditText();
}

std::optional<QString> SearchBar::Missing(QWidget* control, const QString& message) {
  ShowMessage(message);
  control->setFocus();
  return std::nullopt;
}

std::optional<QString> SearchBar::Condition() {
  if (captions_->currentText().trimmed().isEmpty()) return Missing(captions_, u"请选择需要查询的字段"_s);
  const QString word = relation_->currentText().trimmed();
  if (word.isEmpty()) return Missing(relation_, u"请选择正确的连接关系"_s);
  const QString value = value_->currentText();
  if (value.isEmpty() && !AcceptsEmptyValue(word)) return Missing(value_, u"请填入正确的查询条件"_s);
  searched_ = SearchCondition(FieldName(), word, value);
  return searched_;
}

void SearchBar::FollowFilter(const QString& filter) {
  if (searched_.isEmpty() || filter == searched_) return;
  searched_.clear();
  ClearValue();
}

QString SearchBar::CaptionOf(const QString& field) const {
  const int at = fields_->findText(field, Qt::MatchFixedString);
  return at < 0 ? QString() : captions_->itemText(at);
}

QString SearchBar::FieldName() const { return fields_->itemText(captions_->currentIndex()); }

// Puts the value at the top of the field's history and stores that.
void SearchBar::RememberValue() {
  const QString value = value_->currentText();
  if (value.isEmpty()) return;
  QStringList values{value};
  for (int at = 0; at < value_->count(); ++at) values.append(value_->itemText(at));
  values.removeDuplicates();
  value_->clear();
  value_->addItems(values);
  value_->setCurrentIndex(0);
  const QString history = HistoryText(values);
  histories_->setItemText(captions_->currentIndex(), history);
  SharedConnection()->Execute(u"Update SimSearch Set FieldValue = '"_s + StoredHistory(history) +
                              u"' Where TableName = '"_s + table_ + u"' And DataField = '"_s + FieldName() + u"'"_s);
}

void SearchBar::OnSearch(std::function<void(const QString&)> handler) {
  ConnectGuarded(search_, &QPushButton::clicked, this, [this, handler] {
    const std::optional<QString> condition = Condition();
    if (!condition) return;
    RememberValue();
    handler(*condition);
  });
}

}  // namespace folvane
