#include "brenvale/qbxml/detail/TextFile.hpp"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace brenvale::detail {
namespace {

std::string SystemText(int error, const std::string& path) {
  return std::error_code(error, std::generic_category()).message() + ": " + path;
}

}  // namespace

std::string WriteFileBytes(const std::string& path, std::string_view bytes, bool append) {
  errno = 0;
  std::FILE* file = std::fopen(path.c_str(), append ? "ab" : "wb");
  if (!file) return SystemText(errno ? errno : EIO, path);
  const std::size_t written = bytes.empty() ? 0 : std::fwrite(bytes.data(), 1, bytes.size(), file);
  int error = written == bytes.size() ? 0 : (errno ? errno : EIO);
  if (std::fclose(file) != 0 && error == 0) error = errno ? errno : EIO;
  return error == 0 ? std::string() : SystemText(error, path);
}

std::optional<std::string> ReadFileBytes(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return std::nullopt;
  std::string content;
  char chunk[1 << 16];
  std::size_t n = 0;
  while ((n = std::fread(chunk, 1, sizeof chunk, file)) > 0) content.append(chunk, n);
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) return std::nullopt;
  return content;
}

}  // namespace brenvale::detail
