#pragma once

#include "Pages.h"

#include <filesystem>
#include <string>
#include <vector>

namespace linealis::bench {

/// The cost of running a program.
struct ProcessCost {
    double processorTime = 0.0;  ///< seconds of all threads, user and system
    double elapsed = 0.0;        ///< seconds
    double peakMemory = 0.0;     ///< bytes
    bool stopped = false;        ///< it exceeded its processor time limit
};

/// Runs a program to its end. Exits this program if that fails.
///
/// The peak memory of a child includes the memory of its parent at the time of the start, so it is meaningful only
/// while the parent is small.
ProcessCost Run(const std::vector<std::string>& words);

/// Returns the linealis-cli command that writes the page.
std::vector<std::string> CommandFor(const Page& page, const std::filesystem::path& output);

/// Returns the path of a program of the build. It may not exist: some programs need optional libraries.
std::filesystem::path Program(const std::string& name);
bool IsBuilt(const std::string& name);

/// Writes the strokes of a content stream to a file for the programs that draw them with other PDF writers. `width`
/// and `height` are in points.
void WriteStrokes(std::string_view stream, double width, double height, const std::filesystem::path& file);

/// Returns the coordinates in a content stream.
std::vector<double> CoordinatesOf(std::string_view stream);

}  // namespace linealis::bench
