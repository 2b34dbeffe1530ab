#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTimer>
#include <gmock/gmock.h>

#include <folvane/DataError.h>
#include <folvane/OriginalFiles.h>
#include <folvane/OriginalsRequest.h>

#include "components/originals/RecordOriginals.h"
#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// A store whose owner interferes: a hook that throws is a store that fails at that step.
class WatchedStore : public OriginalFiles {
 public:
  explicit WatchedStore(std::unique_ptr<OriginalFiles> store) : store_(std::move(store)) {}

  std::function<void()> beforePut, afterPut, beforeRemove;
  std::vector<StoredFile> listed;  ///< besides what the store holds
  int questions = 0;               ///< how often a file was asked for

  QString PathOfToday() const override { return store_->PathOfToday(); }
  void Put(const OriginalPlace& place, QIODevice& content, const TransferProgress& progress) override {
    if (beforePut) beforePut();
    store_->Put(place, content, progress);
    if (afterPut) afterPut();
  }
  void Get(const OriginalPlace& place, QIODevice& target, const TransferProgress& progress) override {
    store_->Get(place, target, progress);
  }
  void Remove(const OriginalPlace& place) override {
    if (beforeRemove) beforeRemove();
    store_->Remove(place);
  }
  bool Has(const OriginalPlace& place) override {
    ++questions;
    return store_->Has(place);
  }
  std::vector<StoredFile> List(const TransferProgress& progress) override {
    std::vector<StoredFile> all = store_->List(progress);
    all.insert(all.end(), listed.begin(), listed.end());
    return all;
  }

 private:
  std::unique_ptr<OriginalFiles> store_;
};

/// Drops data onto a view, as the window system does it. @return what the view has done with it
inline Qt::DropAction DropOnto(QAbstractItemView& view, const QMimeData& data, const QPoint& at,
                               Qt::DropActions offered) {
  QDragEnterEvent enter(at, offered, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(view.viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(at, offered, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(view.viewport(), &drop);
  return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

/// Runs steps once a control of an open window is enabled. The steps of WithWindow may run inside the window's work,
/// which lets events through, and could not wait for its end.
class OnceEnabled {
 public:
  OnceEnabled(const QString& name, const QString& control, const WindowSteps& steps) {
    QObject::connect(&look_, &QTimer::timeout, [=, this] {
      QWidget* window = QApplication::activeModalWidget();
      if (!window || window->objectName() != name || !Find(*window, control).isEnabled()) return;
      look_.stop();
      steps(*window);
    });
    look_.start(10);
  }
  ~OnceEnabled() { EXPECT_FALSE(look_.isActive()) << "the window never came so far"; }

 private:
  QTimer look_;
};

/// The originals of record 1, in a directory store; the clock stands in 2002.
class WorkTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    QDir().mkpath(StoreRoot());
    Shared().OriginalRoot = StoreRoot();
  }

  QString StoreRoot() const { return program_.Path(u"Data"_s); }
  OriginalsRequest Request(const QString& action = {}, const QString& fileId = {}) {
    OriginalsRequest request;
    request.connection = Connected();
    request.recordId = kRecord;
    request.databaseKind = u"OTHER"_s;
    request.storeRoot = StoreRoot();
    request.action = action;
    request.fileId = fileId;
    return request;
  }
  originals::RecordOriginals Originals(const QString& recordId = kRecord) {
    OriginalsRequest request = Request();
    request.recordId = recordId;
    return originals::RecordOriginals(request);
  }
  /// The same over a store that a test interferes with.
  originals::RecordOriginals Watched(const std::function<void(WatchedStore&)>& prepare) {
    return {Connected(), kRecord, [this, prepare] {
              auto store = std::make_unique<WatchedStore>(OpenOriginalFiles(Request()));
              prepare(*store);
              return store;
            }};
  }

  /// A file outside of the store.
  QString Source(const QString& name, const QByteArray& content) {
    program_.Write(u"in/"_s + name, content);
    return program_.Path(u"in/"_s + name);
  }
  originals::Original Added(const QString& name, const QByteArray& content = "content") {
    return Originals().Add(originals::FileToAdd::At(Source(name, content)));
  }
  QByteArray Content(const originals::Original& original) {
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    Originals().Fetch(original, content);
    return content.data();
  }
  /// Names and endings, in order.
  QStringList Names() {
    QStringList names;
    for (const originals::Original& original : Originals().Read()) names << original.name + original.type;
    return names;
  }
  int FileCount() { return int(OpenOriginalFiles(Request())->List().size()); }
  int RowCount() { return Database().Value(u"select count(*) from Original_Text"_s).toInt(); }
  /// The message of the error that the work ends with, "" for none.
  static QString ErrorOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const DataError& error) {
      return error.Message();
    }
    return {};
  }

  static inline const QString kRecord = DesignedDatabase::Key(1), kOther = DesignedDatabase::Key(2);
};

}  // namespace folvane::test
