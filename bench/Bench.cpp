// Measures the cost of a page as ratios within one run: absolute times depend on the load of the machine, ratios
// hardly do.
//
//   linealis_bench [--table=FILE] [options of Google Benchmark]

#include "Measures.h"
#include "Table.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

int main(int argc, char** argv)
{
    using namespace linealis::bench;

    constexpr std::string_view tableOption = "--table=";
    std::string tableFile;
    // Interleave the repetitions of all measurements at random, so that a slow phase of the machine affects all of
    // them alike.
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments = {argv[0], interleaving.data()};
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]).starts_with(tableOption)) {
            tableFile = argv[i] + tableOption.size();
        } else {
            arguments.push_back(argv[i]);
        }
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    // The windows need no screen and must not touch the files of the user.
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_LOGGING_RULES", "*=false", 1);
    for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
        ::setenv(folder, ScratchFolder().c_str(), 1);
    }

    Results results;
    MeasureMemory(results);  // while this process is still small
    RegisterMeasures();
    benchmark::RunSpecifiedBenchmarks(&results);
    const std::string table = MakeTable(results);
    std::cout << table << std::flush;
    if (!tableFile.empty()) {
        std::ofstream file(tableFile);
        file << table;
        if (!file.flush()) {
            std::perror(tableFile.c_str());
            return 1;
        }
    }
    return 0;
}
