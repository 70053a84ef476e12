// Fuzzes files that the program reads: marker files, preferences, lists of recent files and printers, and the check
// whether a PDF was made by this program.

#include "Fuzz.h"
#include "app/Preferences.h"
#include "desktop/system/PrinterFactors.h"
#include "desktop/system/RecentFiles.h"
#include "pdf/OwnPdf.h"
#include "pipeline/document/MarkerFile.h"

#include <unistd.h>

#include <fstream>

using namespace linealis;
using namespace linealis::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string folder = "/tmp/linealis-fuzz-" + std::to_string(::getpid());
    static const std::string path = folder + "/LinealisRecentFiles";
    std::filesystem::create_directory(folder);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    const FolderItem file{std::filesystem::path(path)};
    const auto next = MarkerFile(file).Lines();
    std::size_t taken = 0;
    for (std::string line; next(line);) {
        taken += line.size();
    }
    Require(taken <= size);
    ReadPrefs(file);
    IsOwnPdf(file);
    Require(RecentFiles(FolderItem(folder)).List().size() <= RecentFiles::most);
    const PrinterFactors factors = ReadPrinterFactors(file, "printer");
    Require(factors.x >= smallestFactor && factors.y <= largestFactor);
    file.Delete();
    return 0;
}
