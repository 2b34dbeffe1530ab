#pragma once

#include <QAbstractItemView>
#include <QString>
#include <utility>

#include "host/tour/Tour.h"

/// What is seen on the tour, mostly in the record browser.
namespace folvane::host {

inline const QString kLogOn = QStringLiteral("LogOnDialog"), kStart = QStringLiteral("StartWindow"),
                     kBrowser = QStringLiteral("FrmMain"), kEntry = QStringLiteral("FrmInput");
inline constexpr int kPage = 30;

/// That the window is shown and takes input.
Tour::Condition Shown(const QString& window);
/// That no other window lies over it. Without a window system the window under one that has been closed is not always
/// made active again.
Tour::Condition OnTop(const QString& window);

QAbstractItemView& Tree();
QAbstractItemView& List();
int Rows();
/// A column's text in the current row of the list.
QString Cell(const QString& field);
QString Position();
/// Number and count of "当前记录：第3条/共120条".
std::pair<int, int> PositionAndCount();

/// The key that gives an answer of the message box that stands, nullptr when there is none.
QWidget* AnswerKey(int answer);

void Refresh();
/// Chooses an entry of the browser's menus.
void ChooseEntry(const QString& window, const QString& entry);

}  // namespace folvane::host
