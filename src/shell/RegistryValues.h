#pragma once

#include <QString>

namespace folvane {

inline const QString kLocalMachine = QStringLiteral("HKEY_LOCAL_MACHINE");
inline const QString kCurrentUser = QStringLiteral("HKEY_CURRENT_USER");

inline const QString kMainFlags = QStringLiteral("Software\\Norvex\\MainFlags");
inline const QString kFondsSet = QStringLiteral("Software\\Norvex\\FondsSet");

/// The text of a registry value up to its first NUL; "" when the key or the value is missing.
QString QueryValue(const QString& root, const QString& path, const QString& name);

/// Stores a text in a registry value, making the key. The text is kept in the national code page.
void SaveValue(const QString& root, const QString& path, const QString& name, const QString& text);

}  // namespace folvane
