#pragma once

#include "Pages.h"

#include <filesystem>
#include <string>
#include <vector>

namespace linealis::bench {

/// What a program took from its start to its end.
struct ProcessCost {
    double processorTime = 0.0;  ///< seconds, of all its threads, user and system
    double elapsed = 0.0;        ///< seconds
    double peakMemory = 0.0;     ///< bytes
    bool stopped = false;        ///< for it took more processor time than it was allowed
};

/// Runs a program to its end. Ends this one if that fails.
///
/// A child's peak memory counts from what its parent held when it started it, so it means something only as long
/// as the parent is small.
ProcessCost Run(const std::vector<std::string>& words);

/// The words that make linealis-cli write the page.
std::vector<std::string> CommandFor(const Page& page, const std::filesystem::path& output);

/// A program of the build; whether it was built depends on the libraries that are there.
std::filesystem::path Program(const std::string& name);
bool IsBuilt(const std::string& name);

/// Writes the strokes of a content stream, of a page so large in points, into a file for the programs that draw
/// them through other writers.
void WriteStrokes(std::string_view stream, double width, double height, const std::filesystem::path& file);

/// The coordinates of a content stream.
std::vector<double> CoordinatesOf(std::string_view stream);

}  // namespace linealis::bench
