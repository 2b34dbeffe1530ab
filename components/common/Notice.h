#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace folvane::notices {

inline const QString kNoticeTitle = QStringLiteral("系统提示");

inline constexpr int kQuestionIcon = 32, kWarningIcon = 48, kInformationIcon = 64;

/// Tells the user something, in the host's message box where it has one.
void Tell(const QString& text, int flags, const QString& details = {});
void TellError(const std::exception& error);
/// Asks Yes or No.
bool Ask(const QString& question, const QString& title = kNoticeTitle, int icon = kQuestionIcon);

enum class Choice { Yes, No, Cancel };
/// Asks Yes, No or Cancel; Escape is Cancel.
Choice AskThreeWays(const QString& question, const QString& title = kNoticeTitle);

/// Asks where to save a file; "" when cancelled. @param filter "text|pattern"
QString AskForPath(const QString& title, const QString& proposal, const QString& filter);

/// Runs an event handler: no exception crosses the event loop, the user is told of it.
template <typename Work>
void Guarded(Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const std::exception& error) {
    TellError(error);
  }
}

}  // namespace folvane::notices
