#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <memory>

#include <folvane/Export.h>
#include <folvane/RegistryStore.h>

class QWidget;

namespace folvane {

class Connection;
struct OriginalsRequest;
struct ReportRequest;

/// A message box that a window wants shown. Flags are the sum of the buttons (0 OK, 1 OK/Cancel, 3 Yes/No/Cancel,
/// 4 Yes/No) and the icon (16 critical, 32 question, 48 warning, 64 information); odd given sums are kept as they are.
struct MessageRequest {
  QString text;
  int flags = 0;
  QString title;
  QString note{};     ///< what the user should know beside the text: a count, a warning; "" for nothing
  QString details{};  ///< of an error: the statement and the database's own code, shown when asked for
};

/// A file dialog that a window wants shown. The filter has the form "text|pattern|text|pattern".
struct FileRequest {
  bool save = false;
  QString title, directory, filter;
};

/// What the library takes from its surroundings. Each member has a working default; a host or a test replaces what it
/// wants before it opens a window. An empty messageBox, fileDialog or beep stands for the library's own.
struct HostServices {
  std::function<int(const MessageRequest&)> messageBox;   ///< answers 1 OK, 2 Cancel, 6 Yes, 7 No
  std::function<QString(const FileRequest&)> fileDialog;  ///< answers the path, "" when cancelled
  std::function<void()> beep;                             ///< sounds when a field refuses a key
  std::function<QDateTime()> now;                         ///< the clock
  std::function<double()> random;                         ///< in [0, 1), for the last six digits of keys
  QString programDirectory;                               ///< INI files, Data folder, help; without trailing separator
  std::shared_ptr<RegistryStore> registry;                ///< default: a file of the user's
  bool ftpMustBeEncrypted = false;  ///< originals: no FTP server without encryption and a certificate that is trusted
  QString ftpAuthorities;     ///< a PEM file of those whose certificates are trusted then; "" for the system's own
  bool sortByPinyin = false;  ///< a list sorted by a column shows Chinese by pinyin where the database can

  // Outside components.

  /// Shows a topic such as "文件登记.htm" of a help file beside the window that asks for it. The default is the
  /// library's own viewer.
  std::function<void(QWidget* owner, const QString& file, const QString& topic)> showHelp;

  /// Lays a report out, to be looked at and printed, and returns when that is over. The default is the library's own
  /// component; an empty function is a component that is not installed. May throw; the caller tells the user.
  std::function<void(const ReportRequest&)> runReport;
  /// Opens the design of a report, with what the request covers as its sample.
  std::function<void(const ReportRequest&)> designReport;

  /// Adds, shows, scans or manages the originals of a record, and returns when that is over. Answers for "AddState"
  /// whether something was added. The default is the library's own component; an empty function is a component that is
  /// not installed. May throw; the caller tells the user.
  std::function<bool(const OriginalsRequest&)> handleOriginals;

  /// Edits which tables go into the archive, with which fields and numbers, and returns when that is over. what is
  /// "TransSet". The default is the library's own component; an empty function is a component that is not installed.
  /// May throw; the caller tells the user.
  std::function<void(const std::shared_ptr<Connection>&, const QString& what)> editTransferSettings;
};

/// The one instance of the process.
FOLVANE_EXPORT HostServices& Services();

}  // namespace folvane
