#pragma once

#include "cli/Actions.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <map>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// Adds the options that are actions to a command and collects what the user gave for them. The parser groups
/// values by option; this class restores the order of the command line, which matters for actions.
class ActionOptions {
public:
    /// Adds the action options whose name `isWanted` accepts. Call once, before parsing.
    void AddTo(CLI::App& theCommand, const std::function<bool(std::string_view names)>& isWanted);
    /// Returns the given actions in the order of the command line. Call after parsing.
    std::vector<Action> InOrder() const;

private:
    void Add(const char* name, const char* argument, const char* help, Action::Kind kind);

    CLI::App* command = nullptr;
    std::map<const CLI::Option*, Action::Kind> kinds;
};

}  // namespace linealis::cli
