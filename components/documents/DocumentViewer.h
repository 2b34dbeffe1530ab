#pragma once

#include <QString>
#include <functional>
#include <vector>

class QIODevice;
class QWidget;

namespace folvane::documents {

/// A document that can be looked at.
struct Document {
  QString name;  ///< as the user knows it, without the type
  QString type;  ///< the ending of a file, such as ".pdf"
  /// Writes the whole file to the device, and throws when that fails. It is called from a thread of the viewer's own,
  /// never two at a time, again only after it has failed; it has returned before ShowDocuments does. Writing fails as
  /// soon as the user has gone on to another document or closed the window, which `goesOn` answers also where nothing
  /// comes that could be written; it should throw then as well.
  std::function<void(QIODevice& target, const std::function<bool()>& goesOn)> fetch;
};

/// Shows documents in a window, one at a time, and returns when the window is closed.
/// @param title beside the document's name in the window's title
/// @param first the index of the document that is shown first, brought into the range of the documents
void ShowDocuments(QWidget* parent, const QString& title, const std::vector<Document>& documents, int first);

}  // namespace folvane::documents
