#pragma once
// Web addresses as the Web Connector takes them: http or https, a host, a port, a path.
#include <optional>
#include <string>
#include <string_view>

namespace brenvale::webconnector::detail {

struct Url {
  std::string scheme;  // "http" or "https", lower case
  std::string host;    // without the brackets of an IPv6 address
  int port = 0;        // the explicit port, or the scheme's own
  std::string path;    // "/" at least; query and fragment included
  // "scheme://host:port" as an HTTP client takes it.
  std::string Origin() const;
};

// Reads an http or https address; nullopt for anything else.
std::optional<Url> ParseUrl(std::string_view text);

bool IsIpAddress(std::string_view host);
// localhost, 127.0.0.0/8 or ::1.
bool IsLoopback(std::string_view host);

// "ADDRESS:PORT" or "[IPv6]:PORT"; nullopt when it is not of that form or the port is not 0-65535.
std::optional<std::pair<std::string, int>> ParseListen(std::string_view text);

}  // namespace brenvale::webconnector::detail
