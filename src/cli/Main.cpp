#include "cli/Main.h"

#include "cli/CommandLine.h"
#include "cli/Errors.h"
#include "platform/Process.h"

#include <cstdio>
#include <iostream>
#include <new>
#include <string_view>

namespace linealis::cli {

namespace {

constexpr int workFailed = 1;
constexpr int usageWrong = 2;

/// The hidden command with which shells complete a command line: `linealis-cli complete WORD...`. The last word is
/// the one being typed.
constexpr std::string_view completeCommand = "complete";

int Run(int argc, char** argv)
{
    CommandLine line;
    if (argc > 1 && argv[1] == completeCommand) {
        Print(line.Complete({argv + 2, argv + argc}));
        return 0;
    }
    const int status = line.Run(argc, argv);
    // A full disk or a closed pipe may show only now.
    if (!std::cout.flush()) {
        throw WorkError{"standard output could not be written"};
    }
    return status;
}

/// Whether the command compares. Its status 1 means "different", as is usual for comparisons, so a failure must
/// have status 2.
bool IsComparison(int argc, char** argv)
{
    return argc > 1 && argv[1] == std::string_view("diff");
}

}  // namespace

int Main(int argc, char** argv)
{
    PrepareProgram(argc, argv);
    EndCleanlyOnSignals();
    const int failed = IsComparison(argc, argv) ? usageWrong : workFailed;
    try {
        return Run(argc, argv);
    } catch (const WorkError& error) {
        Complain(error.message);
        return failed;
    } catch (const UsageError& error) {
        Complain(error.message);
        return usageWrong;
    } catch (const FailureSaid&) {
        return failed;
    } catch (const std::bad_alloc&) {
        // Not Complain, which allocates memory.
        std::fprintf(stderr, "linealis-cli: %s\n", notEnoughMemory);
        return failed;
    } catch (const std::exception& error) {
        Complain(error.what());
        return failed;
    } catch (...) {
        Complain("the work failed for an unknown reason");
        return failed;
    }
}

}  // namespace linealis::cli
