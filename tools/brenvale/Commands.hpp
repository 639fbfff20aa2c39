#pragma once
// The subcommands of the brenvale tool. Each registers itself on the application; when it is the
// one chosen, parsing leaves its body in `run`.
#include <CLI/CLI.hpp>
#include <functional>

#include "Tool.hpp"

namespace brenvale::tool {

using Runner = std::function<int()>;

void AddCommands(CLI::App& app, const GlobalOptions& options, Runner& run);

// The guided tour of a host's session (Demo.cpp).
int RunDemo(const GlobalOptions& options);

}  // namespace brenvale::tool
