#include "Processes.h"

#include "others/Strokes.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace linealis::bench {

namespace fs = std::filesystem;

namespace {

double Seconds(const timeval& time)
{
    constexpr double microsecond = 1e-6;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * microsecond;
}

/// A line of the content stream: numbers followed by an operator.
struct Line {
    std::vector<double> numbers;
    std::string_view word;
};

Line ReadLine(std::string_view text)
{
    Line line;
    while (!text.empty()) {
        double number = 0.0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc()) {
            break;
        }
        line.numbers.push_back(number);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
    line.word = text;
    return line;
}

template <typename Function>
void ForEachLine(std::string_view stream, Function function)
{
    while (!stream.empty()) {
        const std::size_t end = std::min(stream.find('\r'), stream.size() - 1);
        function(ReadLine(stream.substr(0, end)));
        stream.remove_prefix(end + 1);
    }
}

}  // namespace

ProcessCost Run(const std::vector<std::string>& words)
{
    std::vector<std::string> copies = words;
    std::vector<char*> arguments;
    for (std::string& word : copies) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t process = 0;
    int status = 0;
    struct rusage usage {};
    const auto start = std::chrono::steady_clock::now();
    const bool ran = ::posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0 &&
                     ::wait4(process, &status, 0, &usage) == process;
    const bool stopped = ran && WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
    if (!ran || (status != 0 && !stopped)) {
        std::fprintf(stderr, "%s failed\n", words.front().c_str());
        std::exit(1);
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    constexpr double kibibyte = 1024.0;
    return {Seconds(usage.ru_utime) + Seconds(usage.ru_stime), elapsed.count(),
            static_cast<double>(usage.ru_maxrss) * kibibyte, stopped};
}

std::vector<std::string> CommandFor(const Page& page, const fs::path& output)
{
    std::vector<std::string> words = {Program("linealis-cli").string(), "generate", page.kind, "-o",
                                      output.string()};
    for (const Setting& setting : page.settings) {
        words.insert(words.end(), {"--set", setting.control + "=" + setting.value});
    }
    return words;
}

fs::path Program(const std::string& name)
{
    return fs::path(LINEALIS_PROGRAMS_PATH) / name;
}

bool IsBuilt(const std::string& name)
{
    return fs::exists(Program(name));
}

void WriteStrokes(std::string_view stream, double width, double height, const fs::path& file)
{
    std::ofstream out(file, std::ios::binary);
    const auto write = [&out](const auto& item) {
        out.write(reinterpret_cast<const char*>(&item), static_cast<std::streamsize>(sizeof item));
    };
    const bool roundCaps = stream.find("\r1 J\r") != std::string_view::npos;
    write(others::PageHead{width, height, roundCaps ? 1.0 : 0.0});
    others::Stroke stroke{};
    ForEachLine(stream, [&](const Line& line) {
        if (line.word == "w") {
            stroke.width = line.numbers.at(0);
        } else if (line.word == "m") {
            stroke.x1 = line.numbers.at(0);
            stroke.y1 = line.numbers.at(1);
        } else if (line.word == "l") {
            stroke.x2 = line.numbers.at(0);
            stroke.y2 = line.numbers.at(1);
        } else if (line.word == "S") {
            write(stroke);
        }
    });
}

std::vector<double> CoordinatesOf(std::string_view stream)
{
    std::vector<double> coordinates;
    ForEachLine(stream, [&](const Line& line) {
        if (line.word == "m" || line.word == "l") {
            coordinates.insert(coordinates.end(), line.numbers.begin(), line.numbers.end());
        }
    });
    return coordinates;
}

}  // namespace linealis::bench
