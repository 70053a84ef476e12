#pragma once

#include "cli/Actions.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <map>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// The options that are actions, and what they were given, in the order of the command line.
class ActionOptions {
public:
    /// Only those of which `isWanted` is true.
    void AddTo(CLI::App& theCommand, const std::function<bool(std::string_view names)>& isWanted);
    std::vector<Action> InOrder() const;

private:
    void Add(const char* name, const char* argument, const char* help, Action::Kind kind);

    CLI::App* command = nullptr;
    std::map<const CLI::Option*, Action::Kind> kinds;
};

}  // namespace linealis::cli
