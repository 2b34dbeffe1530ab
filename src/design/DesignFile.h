#pragma once

// The file of a design: YAML, its first key the version, its last line the end of the document.
namespace folvane::design {

inline constexpr char kFileKey[] = "folvane-design";
inline constexpr int kFileVersion = 1;
inline constexpr char kFileEnd[] = "...";  ///< shows that nothing was cut off

}  // namespace folvane::design
