#include "entry/RecordSave.h"

#include "base/IgnoreErrors.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

void TellBrokenRule(FormToSave& form, const BrokenRule& broken) {
  form.Say({broken.breach.text, MessageFlag::Information, broken.breach.title});
  if (!broken.breach.clears) return;
  // The control is set by program, so that the record has to be told.
  form.ClearText(broken.control);
  IgnoreErrors([&] { Shared().CurrentRecords[broken.field].SetValue(QString()); });
}

bool RecordSave::Run() {
  try {
    return SaveTyped();
  } catch (const DataError& error) {
    if (error.Column().isEmpty()) throw;
    form_.Say(RefusalMessage(terms_.rights.table, error, terms_.title));
    FocusOnColumn(error.Column());
    return false;
  }
}

bool RecordSave::SaveTyped() {
  form_.StoreTyped();
  if (lifecycle_.IsEmpty()) {
    form_.Say({u"请先按添加按钮！"_s, 0, u"提示"_s});
    lifecycle_.Records().UpdateBatch(AffectKind::AllChapters);
    return true;
  }
  if (lifecycle_.State() == RecordState::Browse) return true;
  form_.StoreShown();
  if (!PassesChecks()) return false;
  form_.KeepComboTexts();
  return PassesRules() && Write();
}

bool RecordSave::PassesChecks() {
  std::optional<CheckFailure> failure;
  form_.WhileBusy([&] {
    if (terms_.mayEdit) failure = CheckPopedom(terms_.rights, form_.Shown());
  });
  if (failure) return Refuse(*failure);
  form_.ShowWork(u"正在检查数据是否合法，请稍等..."_s);
  TrimMultiLines();
  const ShownFields fields = form_.Shown();
  failure = CheckData(fields, lifecycle_.Layout());
  if (failure) return Refuse(*failure);
  failure = CheckArchiveDates(fields);
  if (failure) return Refuse(*failure, true);
  return true;
}

bool RecordSave::Refuse(const CheckFailure& failure, bool marked) {
  form_.ShowWork(kReady);
  form_.Say({failure.text, failure.flags, terms_.title});
  if (failure.control) form_.FocusOn(*failure.control, marked);
  return false;
}

void RecordSave::FocusOnColumn(const QString& column) {
  for (const ShownField& field : form_.Shown()) {
    if (field.dataField.compare(column, Qt::CaseInsensitive) == 0) return form_.FocusOn(field.control, false);
  }
}

void RecordSave::TrimMultiLines() {
  QStringList trimmed;
  for (const ShownField& field : form_.Shown()) {
    if (field.control.type != ControlKind::Txt_MLine || field.dataField.isEmpty()) continue;
    const QString line = OneLine(field.text);
    Field stored = lifecycle_.Records()[field.dataField];
    if (line == stored.Text()) continue;
    stored.SetValue(line);
    trimmed << u"“"_s + field.caption + u"”"_s;
  }
  form_.Refresh();
  form_.ShowNote(trimmed.isEmpty() ? QString() : u"已去掉"_s + trimmed.join(u'、') + u"中的换行和首尾空格"_s);
}

bool RecordSave::PassesRules() {
  const ShownFields fields = form_.Shown();
  const auto broken = FirstBrokenRule(terms_.rights.table, FondsNoIn(fields), fields);
  if (broken) TellBrokenRule(form_, *broken);
  return !broken;
}

bool RecordSave::Write() {
  if (!MayOverwrite()) return false;
  form_.ShowWork(u"正在保存数据，请稍等..."_s);
  const bool isNew = lifecycle_.State() == RecordState::Add;
  try {
    form_.WhileBusy([this] { lifecycle_.Write(); });
  } catch (const DataError& error) {
    return MayWriteAgain(error) && Write();
  }
  form_.ShowSaved();
  if (isNew) NoteSharedNumber();
  return true;
}

// The record is saved, whatever becomes of this.
void RecordSave::NoteSharedNumber() {
  IgnoreErrors([this] {
    if (!lifecycle_.SharesRegId()) return;
    form_.ShowNote(u"登记号 %1 已有另一条记录使用，请核对"_s.arg(lifecycle_.Records()[u"RegID"_s].Text()));
  });
}

bool RecordSave::MayOverwrite() {
  if (lifecycle_.Contested().isEmpty()) return true;
  const auto conflicts = ConflictsIn(lifecycle_.Records(), lifecycle_.Contested(), lifecycle_.Layout());
  return form_.Say(ConflictQuestion(terms_.title)) == Answer::Yes &&
         form_.Say(OverwriteQuestion(conflicts, terms_.title)) == Answer::Yes;
}

// Called while the error is handled: one that nothing can be done about goes on.
bool RecordSave::MayWriteAgain(const DataError& error) {
  if (error.Kind() == DataErrorKind::Conflict) return TakeTheirs();
  const bool isNewKey = lifecycle_.State() == RecordState::Add && error.Column().toUpper() == u"ARCHIVEID";
  if (!error.IsDuplicate() || !isNewKey) throw;
  if (form_.Say(NewKeyQuestion(terms_.rights.table, error, terms_.title)) != Answer::Yes) return false;
  lifecycle_.TakeNewKey();
  return true;
}

bool RecordSave::TakeTheirs() {
  const RecordLifecycle::Theirs theirs = lifecycle_.TakeTheirs();
  if (theirs == RecordLifecycle::Theirs::Same) throw;
  if (theirs == RecordLifecycle::Theirs::Deleted) form_.Say(DeletionMessage(terms_.title));
  form_.Refresh();
  return theirs == RecordLifecycle::Theirs::Changed;
}

}  // namespace folvane
