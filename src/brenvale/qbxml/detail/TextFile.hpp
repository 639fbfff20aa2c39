#pragma once
// Whole-file reads and writes of raw bytes for the request builder (saved documents, traces).
#include <optional>
#include <string>
#include <string_view>

namespace brenvale::detail {

// Writes `bytes` to `path`, replacing the file (or appending to it). Returns the empty string on
// success, otherwise the system's text for the failure followed by the path.
std::string WriteFileBytes(const std::string& path, std::string_view bytes, bool append);

// The whole content of `path`; nothing when it cannot be opened or read.
std::optional<std::string> ReadFileBytes(const std::string& path);

}  // namespace brenvale::detail
