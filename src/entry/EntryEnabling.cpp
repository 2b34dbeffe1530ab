#include "entry/EntryEnabling.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kFlowKeys{u"Distribute"_s, u"PassRead"_s, u"Transact"_s};
const QStringList kFlowEntries{u"mnuDistibute"_s, u"mnuPassRead"_s, u"mnuTransact"_s};
const QStringList kMoveEntries{u"First_R"_s, u"Next_R"_s, u"Previous_R"_s, u"Last_R"_s};
const QStringList kFileEntries{u"AddFile"_s, u"BorrowFile"_s};
const QStringList kAddKey{u"AddRecord"_s}, kAddEntry{u"AddNewRecord"_s};

}  // namespace

EntryEnabling::EntryEnabling(const TableGrants& grants) : grants_(grants) {
  SetKeys(kAddKey, true);
  SetEntries(kAddEntry, true);
}

void EntryEnabling::SetKeys(const QStringList& keys, bool on) {
  for (const QString& key : keys) keys_.insert(key, on);
}

void EntryEnabling::SetEntries(const QStringList& entries, bool on) {
  for (const QString& entry : entries) entries_.insert(entry, on);
}

void EntryEnabling::ApplyRights() {
  SetEditButtons(grants_.edit);
  SetMoveButtons(true);
  SetFileButtons(grants_.lookFile);
  SetReportButtons(grants_.print);
}

void EntryEnabling::SetEditButtons(bool allowed) {
  if (!allowed) {
    SetKeys(kAddKey + QStringList{u"DelRecord"_s, u"SaveRecord"_s, u"CancelRecord"_s, u"DoArchive"_s} + kFlowKeys,
            false);
    SetEntries(kAddEntry + QStringList{u"DelRecord"_s, u"SaveRecord"_s, u"CancelRecord"_s, u"Tools"_s} + kFlowEntries,
               false);
  }
  WithoutTarget();
}

void EntryEnabling::SetFileButtons(bool allowed) {
  if (allowed) return;
  SetKeys({u"FileArea"_s}, false);
  SetEntries(kFileEntries, false);
}

void EntryEnabling::SetReportButtons(bool allowed) {
  if (allowed) return;
  SetKeys({u"ReportView"_s}, false);
  SetEntries({u"ReportDesign"_s}, false);
}

void EntryEnabling::SetMoveButtons(bool allowed) {
  if (allowed) return;
  SetKeys({u"MovePrevious"_s, u"MoveNext"_s}, false);
  SetEntries({u"DoRecord"_s}, false);
}

void EntryEnabling::WithoutTarget() {
  if (grants_.hasTarget) return;
  SetKeys({u"DoArchive"_s}, false);
  SetEntries({u"mnuArchive"_s}, false);
}

void EntryEnabling::SetToolbarState(bool browsing, bool autoSave) {
  if (!autoSave) {
    SetKeys(kAddKey, browsing);
    SetEntries(kAddEntry, browsing);
  }
  SetKeys(kFlowKeys + QStringList{u"DelRecord"_s, u"MovePrevious"_s, u"MoveNext"_s, u"FileArea"_s, u"ReportView"_s,
                                  u"CopyAll"_s, u"DoArchive"_s},
          browsing);
  SetEntries({u"DelRecord"_s, u"DoRecord"_s, u"Tools"_s, u"mnuCopyAll"_s, u"File_Or"_s, u"ReportDesign"_s}, browsing);
  SetKeys({u"SaveRecord"_s, u"CancelRecord"_s}, !browsing);
  SetEntries({u"SaveRecord"_s, u"CancelRecord"_s}, !browsing);
  ApplyRights();
}

void EntryEnabling::RefreshRecordView(const EntryPosition& at) {
  SetEntries(kMoveEntries + kFileEntries + kFlowEntries +
                 QStringList{u"DelRecord"_s, u"mnuCopyAll"_s, u"ReportDesign"_s, u"mnuArchive"_s},
             false);
  SetKeys(kFlowKeys + QStringList{u"DoArchive"_s, u"FileArea"_s, u"ReportView"_s, u"MovePrevious"_s, u"MoveNext"_s,
                                  u"DelRecord"_s},
          false);
  if (at.state != RecordState::Browse || at.count == 0) return;
  EnableOnRecord();
  EnableMoves(at);
}

void EntryEnabling::EnableOnRecord() {
  if (grants_.edit) {
    SetKeys(kFlowKeys + QStringList{u"DelRecord"_s}, true);
    SetEntries(kFlowEntries + QStringList{u"DelRecord"_s}, true);
  }
  if (grants_.hasTarget) {
    SetKeys({u"DoArchive"_s}, true);
    SetEntries({u"mnuArchive"_s}, true);
  }
  if (grants_.print) {
    SetKeys({u"ReportView"_s}, true);
    SetEntries({u"ReportDesign"_s}, true);
  }
  if (grants_.lookFile) {
    SetKeys({u"FileArea"_s}, true);
    SetEntries(kFileEntries, true);
  }
  SetKeys({u"CopyAll"_s}, true);
  SetEntries({u"mnuCopyAll"_s}, true);
}

void EntryEnabling::EnableMoves(const EntryPosition& at) {
  if (at.position > 1) {
    SetKeys({u"MovePrevious"_s}, true);
    SetEntries({u"First_R"_s, u"Previous_R"_s}, true);
  }
  if (at.position >= 1 && at.position < at.count) {
    SetKeys({u"MoveNext"_s}, true);
    SetEntries({u"Next_R"_s, u"Last_R"_s}, true);
  }
}

}  // namespace folvane
