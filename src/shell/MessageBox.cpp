#include "shell/MessageBox.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <vector>

#include "shell/Messages.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr char kAnswer[] = "Answer";
constexpr int kDetailsWidth = 480;
constexpr int kDetailsLines = 6;

std::vector<int> AnswersOf(int flags) {
  switch (flags & 15) {
    case MessageFlag::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case MessageFlag::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    case MessageFlag::YesNo:
      return {Answer::Yes, Answer::No};
    default:
      return {Answer::Ok};
  }
}

QMessageBox::Icon IconOf(int flags) {
  switch (flags & 0x70) {
    case MessageFlag::Critical:
      return QMessageBox::Critical;
    case MessageFlag::Question:
      return QMessageBox::Question;
    case MessageFlag::Warning:
      return QMessageBox::Warning;
    case MessageFlag::Information:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

std::size_t DefaultKeyOf(int flags, std::size_t count) {
  const std::size_t index = flags & MessageFlag::ThirdIsDefault ? 2 : flags & MessageFlag::SecondIsDefault ? 1 : 0;
  return index < count ? index : 0;
}

int EscapeAnswerOf(const std::vector<int>& answers) {
  if (answers.back() == Answer::Cancel) return Answer::Cancel;
  return answers.size() == 1 ? answers.front() : 0;
}

// Line breaks come in every spelling: CR LF, LF CR and either alone.
QString WithPlainLineBreaks(QString text) {
  return text.replace(u"\r\n"_s, u"\n"_s).replace(u"\n\r"_s, u"\n"_s).replace(u'\r', u'\n');
}

}  // namespace

MessageBox::MessageBox(const MessageRequest& request, QWidget* parent) : QMessageBox(parent) {
  setWindowTitle(request.title);
  setTextFormat(Qt::PlainText);  // what stands in a record is never markup
  setText(WithPlainLineBreaks(request.text));
  setInformativeText(WithPlainLineBreaks(request.note));
  for (QLabel* label : findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);  // that of the note, too
  setIcon(IconOf(request.flags));
  const std::vector<int> answers = AnswersOf(request.flags);
  escapeAnswer_ = EscapeAnswerOf(answers);
  const std::size_t defaultKey = DefaultKeyOf(request.flags, answers.size());
  for (std::size_t index = 0; index < answers.size(); ++index) {
    QPushButton* key = AddKey(answers[index]);
    if (index == defaultKey) setDefaultButton(key);
  }
  if (!request.details.isEmpty()) AddDetails(request.details);
}

// Not the box's own detailed text: its key bears the toolkit's words and counts among the answers.
void MessageBox::AddDetails(const QString& details) {
  auto* text = new QPlainTextEdit(WithPlainLineBreaks(details), this);
  text->setObjectName(u"DetailsText"_s);
  text->setAccessibleName(u"错误的详细信息"_s);
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setMinimumWidth(kDetailsWidth);
  text->setFixedHeight(text->fontMetrics().lineSpacing() * kDetailsLines);
  text->hide();
  auto* key = new QPushButton(u"详细信息(&D)"_s, this);
  key->setObjectName(u"Details"_s);
  key->setCheckable(true);
  key->setAutoDefault(false);
  connect(key, &QPushButton::toggled, text, &QWidget::setVisible);
  auto* grid = static_cast<QGridLayout*>(layout());
  grid->addWidget(key, grid->rowCount(), 0, 1, -1, Qt::AlignLeft);
  grid->addWidget(text, grid->rowCount(), 0, 1, -1);
}

QPushButton* MessageBox::AddKey(int answer) {
  struct Look {
    QString text;
    ButtonRole role;
    QKeySequence shortcut;
  };
  static const QHash<int, Look> looks = {
      {Answer::Ok, {u"确定"_s, AcceptRole, {}}},
      {Answer::Cancel, {u"取消"_s, RejectRole, {}}},
      {Answer::Yes, {u"是"_s, YesRole, Qt::Key_Y}},
      {Answer::No, {u"否"_s, NoRole, Qt::Key_N}},
  };
  const Look look = looks[answer];
  QPushButton* key = addButton(look.text, look.role);
  key->setShortcut(look.shortcut);
  key->setProperty(kAnswer, answer);
  return key;
}

int MessageBox::GivenAnswer() const {
  if (const QAbstractButton* key = clickedButton()) return key->property(kAnswer).toInt();
  return escapeAnswer_ != 0 ? escapeAnswer_ : int(Answer::No);  // the application ended the box
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && escapeAnswer_ == 0) return;
  QMessageBox::keyPressEvent(event);
}

void MessageBox::closeEvent(QCloseEvent* event) {
  if (escapeAnswer_ == 0) {
    event->ignore();
  } else {
    QMessageBox::closeEvent(event);
  }
}

}  // namespace folvane
