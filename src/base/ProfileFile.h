#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// A private profile (INI file): sections "[name]" with lines "key=value". Sections and keys are found without regard
/// to case, the first of a name counts, and nothing is kept in memory between two calls.
///
/// Reading passes over blanks around keys and values, over one pair of matching quotes around a value, and over lines
/// that begin with ";". Writing changes the one line it is about; comments, blank lines, order and the spelling of the
/// section and the key stay as they are. Lines end with CR LF.
class ProfileFile {
 public:
  enum class Encoding { CodePage, Utf8 };

  /// The file is found whatever the case of its name; it need not exist.
  explicit ProfileFile(const QString& path, Encoding encoding = Encoding::CodePage);

  bool Exists() const;

  /// Makes the file of these lines, replacing what was there. @throws FileError
  void Create(const QStringList& lines) const;

  /// The value of a key, or the fallback when the file, the section or the key is missing. A value takes at most
  /// bufferSize - 1 bytes of the code page and is cut before the first character that does not fit; 0 for no limit.
  /// @throws FileError
  QString Read(const QString& section, const QString& key, const QString& fallback, int bufferSize = 0) const;

  /// Sets the value of a key; makes the key, the section and the file when they are missing. A line break in the value
  /// becomes a blank, so that a value cannot make a line of its own. @throws FileError
  void Write(const QString& section, const QString& key, const QString& value) const;

 private:
  QString path_;
  Encoding encoding_;
};

/// A profile beside the program that says one thing about each table, "0" where nothing is said: a section of lines
/// "table=value" under lines of explanation. A person may edit it.
struct TableProfile {
  QString path;
  QString section;
  QStringList heading;  ///< the lines above the section of a file that is made anew
  int bufferSize = 0;   ///< bytes of the code page that a value may take, and one more

  /// What the file says about a table. A missing file is made and a missing table is added, each with "0"; a directory
  /// that nobody may write to costs the line in the file, nothing else. @throws FileError when it cannot be read
  QString Read(const QString& table) const;
};

}  // namespace folvane
