#pragma once

#include <QWidget>
#include <functional>

#include "host/Entries.h"
#include "host/Session.h"

namespace folvane::host {

/// The six entries of the library, for one user at work in one database; for the administrator the designer too.
class StartWindow : public QWidget {
  Q_OBJECT

 public:
  /// Opens an entry and returns when its window is closed; throws what the library throws.
  using OpenEntry = std::function<void(const Entry&)>;

  StartWindow(const Session& session, OpenEntry open, QWidget* parent = nullptr);

 Q_SIGNALS:
  /// The window was closed, to log on anew or for good.
  void Finished(bool logOnAgain);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* Head(const Session& session);
  QLayout* Cards();
  QLayout* Foot();
  void Open(const QString& title, const std::function<void()>& open);
  void ShowAbout();
  void SetPassword();
  void CopyDatabase();

  const Session& session_;
  OpenEntry open_;
  bool logOnAgain_ = false;
};

}  // namespace folvane::host
