#pragma once
// brenvale webconnector: the Web Connector bridge from the command line — the service, the .QWC
// file, the users file, and a Web Connector of our own that relays to the company engine.
#include <CLI/CLI.hpp>

#include "Commands.hpp"

namespace brenvale::tool {

void AddWebConnectorCommand(CLI::App& app, const GlobalOptions& options, Runner& run);

}  // namespace brenvale::tool
