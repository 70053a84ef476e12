// Fills in a template of packaging/: each @NAME@ becomes what the program's own tables say.
//
//   linealis_fill_template TEMPLATE OUTPUT

#include "cli/CommandLine.h"
#include "kinds/PaperKinds.h"
#include "platform/Version.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using namespace linealis;

/// The text for each kind, one behind the other.
std::string ForEachKind(const std::function<std::string(const PaperKind& kind)>& text)
{
    std::string all;
    for (const PaperKind& kind : PaperKinds()) {
        all += text(kind);
    }
    return all;
}

std::string WithoutLastLineEnd(std::string text)
{
    if (text.ends_with('\n')) {
        text.pop_back();
    }
    return text;
}

/// "Grid paper": the kind as it stands in a sentence.
std::string PaperName(const PaperKind& kind)
{
    std::string name(kind.galleryTitle);
    if (const std::size_t paper = name.find(" Paper"); paper != std::string::npos) {
        name.erase(paper);
    }
    return name + " paper";
}

/// The address of the vendor's web site: that of the server for the version check, but encrypted.
std::string Site()
{
    return "https" + std::string(makersServer).substr(std::string_view("http").size());
}

std::string MediaType(const PaperKind& kind)
{
    return "application/x-linealis-" + std::string(kind.name);
}

std::string UniformType(const PaperKind& kind)
{
    return std::string(applicationId) + "." + std::string(kind.name);
}

std::string Keywords()
{
    return "graph paper;ruled;notebook;PDF;print;" +
           ForEachKind([](const PaperKind& kind) { return std::string(kind.name) + ";"; });
}

std::string ActionGroups()
{
    return WithoutLastLineEnd(ForEachKind([](const PaperKind& kind) {
        return kind.isCommon ? "\n[Desktop Action " + std::string(kind.name) + "]\nName=" + PaperName(kind) +
                                   "\nExec=linealis --paper " + std::string(kind.name) + "\n"
                             : "";
    }));
}

std::string MimeTypes()
{
    return WithoutLastLineEnd(ForEachKind([](const PaperKind& kind) {
        return "  <mime-type type=\"" + MediaType(kind) + "\">\n    <comment>" + PaperName(kind) +
               " settings</comment>\n    <icon name=\"application-x-linealis\"/>\n"
               "    <generic-icon name=\"x-office-document\"/>\n    <glob pattern=\"*." +
               std::string(kind.settingsType.extension) + "\"/>\n  </mime-type>\n";
    }));
}

std::string DocumentTypes()
{
    return WithoutLastLineEnd(ForEachKind([](const PaperKind& kind) {
        return "        <dict>\n            <key>CFBundleTypeName</key>\n            <string>" + PaperName(kind) +
               " settings</string>\n            <key>CFBundleTypeRole</key>\n            <string>Editor</string>\n"
               "            <key>LSHandlerRank</key>\n            <string>Owner</string>\n"
               "            <key>LSItemContentTypes</key>\n            <array>\n                <string>" +
               UniformType(kind) + "</string>\n            </array>\n        </dict>\n";
    }));
}

std::string ExportedTypes()
{
    return WithoutLastLineEnd(ForEachKind([](const PaperKind& kind) {
        return "        <dict>\n            <key>UTTypeIdentifier</key>\n            <string>" + UniformType(kind) +
               "</string>\n            <key>UTTypeDescription</key>\n            <string>" + PaperName(kind) +
               " settings</string>\n            <key>UTTypeConformsTo</key>\n            <array>\n"
               "                <string>public.data</string>\n            </array>\n"
               "            <key>UTTypeTagSpecification</key>\n            <dict>\n"
               "                <key>public.filename-extension</key>\n                <array>\n"
               "                    <string>" +
               std::string(kind.settingsType.extension) +
               "</string>\n                </array>\n                <key>public.mime-type</key>\n"
               "                <string>" +
               MediaType(kind) + "</string>\n            </dict>\n        </dict>\n";
    }));
}

/// For a manual page: nothing of the text commands the formatter.
std::string Roff(std::string_view text)
{
    std::string escaped = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text) {
        escaped += c == '-' ? "\\-" : c == '\\' ? "\\e" : std::string(1, c);
    }
    return escaped;
}

std::string KindsAsTable()
{
    return WithoutLastLineEnd(ForEachKind([](const PaperKind& kind) {
        return ".TP\n.B " + std::string(kind.name) + "\n" + PaperName(kind) + ", settings files \\fI*." +
               std::string(kind.settingsType.extension) + "\\fR\n";
    }));
}

std::string OptionInRoff(const CLI::Option& option)
{
    std::string names;
    for (const std::string& name : option.get_snames()) {
        names += (names.empty() ? "\\-" : ", \\-") + Roff(name);
    }
    for (const std::string& name : option.get_lnames()) {
        names += (names.empty() ? "\\-\\-" : ", \\-\\-") + Roff(name);
    }
    const bool takesArgument = option.get_expected_max() > 0;
    return ".TP\n\\fB" + names + "\\fR" + (takesArgument ? " \\fI" + Roff(option.get_type_name()) + "\\fR" : "") +
           "\n" + Roff(option.get_description()) + ".\n";
}

std::string CommandsInRoff()
{
    std::string text = ".SH COMMANDS";
    cli::CommandLine line;
    for (const CLI::App* const command : line.Described().get_subcommands(nullptr)) {
        text += "\n.SS " + Roff(command->get_name()) + "\n" + Roff(command->get_description()) + ".\n";
        for (const CLI::Option* const option : command->get_options()) {
            text += option->get_positional() || option->check_lname("help") ? "" : OptionInRoff(*option);
        }
        text = WithoutLastLineEnd(text);
    }
    return text;
}

std::string SettingsTables()
{
    const ScreenlessPlatform platform;
    return WithoutLastLineEnd(ForEachKind([&](const PaperKind& kind) {
        std::string text = ".SH " + PaperName(kind) + ", ." + std::string(kind.settingsType.extension) +
                           "\n.TS\nr l l.\nNo.\tWhat it holds\tHow it is stored\n_\n";
        const SettingsTable table = kind.makePaper(platform).settings;
        for (std::size_t i = 0; i < table.size(); ++i) {
            text += std::to_string(i + 1) + "\t" + Roff(table[i].control) + "\t" + Roff(table[i].encoding) + "\n";
        }
        return text + ".TE\n";
    }));
}

std::map<std::string, std::string, std::less<>> Values()
{
    const auto list = [](const std::string& before, const std::string& behind, auto text) {
        return WithoutLastLineEnd(ForEachKind([&](const PaperKind& kind) { return before + text(kind) + behind; }));
    };
    return {
        {"APPLICATION_ID", applicationId},
        {"VERSION", versionText},
        {"DATE", releaseDate},
        {"SITE", Site()},
        {"KEYWORDS", Keywords()},
        {"MEDIA_TYPES", list("", ";", MediaType)},
        {"PROVIDED_MEDIA_TYPES", list("    <mediatype>", "</mediatype>\n", MediaType)},
        {"KINDS_AS_ITEMS", list("      <li>", "</li>\n", PaperName)},
        {"KINDS_AS_TABLE", KindsAsTable()},
        {"ACTIONS",
         ForEachKind([](const PaperKind& kind) { return kind.isCommon ? std::string(kind.name) + ";" : ""; })},
        {"ACTION_GROUPS", ActionGroups()},
        {"MIME_TYPES", MimeTypes()},
        {"DOCUMENT_TYPES", DocumentTypes()},
        {"EXPORTED_TYPES", ExportedTypes()},
        {"COMMANDS", CommandsInRoff()},
        {"SETTINGS_TABLES", SettingsTables()},
    };
}

std::string Filled(std::string_view text)
{
    const auto values = Values();
    std::string filled;
    for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@')) {
        const std::size_t end = text.find('@', at + 1);
        const auto value =
            end == std::string_view::npos ? values.end() : values.find(text.substr(at + 1, end - at - 1));
        if (value == values.end()) {
            throw std::runtime_error("nothing stands for " + std::string(text.substr(at, end - at + 1)));
        }
        filled.append(text.substr(0, at)).append(value->second);
        text.remove_prefix(end + 1);
    }
    return filled.append(text);
}

std::string Read(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("it cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: linealis_fill_template TEMPLATE OUTPUT\n";
        return 2;
    }
    try {
        const std::string filled = Filled(Read(argv[1]));
        std::ofstream output(argv[2], std::ios::binary);
        if (!(output << filled).flush()) {
            throw std::runtime_error(std::string(argv[2]) + " cannot be written");
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "linealis_fill_template: " << argv[1] << ": " << error.what() << "\n";
        return 1;
    }
}
