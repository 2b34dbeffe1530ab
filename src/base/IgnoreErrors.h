#pragma once

#include <exception>
#include <utility>

namespace folvane {

/// Runs a step whose failure the routine around it passes over. Answers whether the step went through.
template <typename Step>
bool IgnoreErrors(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace folvane
