#pragma once

#include <QObject>
#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

namespace folvane {

/// The error's text in words for the user.
QString ErrorText(const std::exception& error);

/// What stands behind an error for whoever looks into it: the statement and the database's own code; "" for neither.
QString ErrorDetails(const std::exception& error);

/// Shows an error that no routine has trapped.
/// @param note what the user should know beside it
void ShowError(const std::exception& error, const QString& note = {});

/// Runs a part of an event handler. No exception crosses the event loop: an error is shown in a message box, and the
/// window stays with what was typed.
template <typename Work>
void RunGuarded(Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const std::exception& error) {
    ShowError(error);
  }
}

/// An event handler as one that may be connected to a signal. It takes as many of the signal's arguments as the handler
/// does.
template <typename Handler>
auto Guarded(Handler handler) {
  return [handler = std::move(handler)](
             auto&&... arguments) mutable -> void requires std::is_invocable_v<Handler&, decltype(arguments)...> {
    RunGuarded([&] { std::invoke(handler, std::forward<decltype(arguments)>(arguments)...); });
  };
}

/// Connects a signal to a handler, a function object or a member of the context's class, under the guard.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection ConnectGuarded(const Sender* sender, Signal signal, Context* context, Handler handler) {
  if constexpr (std::is_member_function_pointer_v<Handler>) {
    const auto call = [ context, handler ](
        auto&&... arguments) -> void requires std::is_invocable_v<Handler, Context*, decltype(arguments)...> {
      std::invoke(handler, context, std::forward<decltype(arguments)>(arguments)...);
    };
    return QObject::connect(sender, signal, context, Guarded(call));
  } else {
    return QObject::connect(sender, signal, context, Guarded(std::move(handler)));
  }
}

}  // namespace folvane
