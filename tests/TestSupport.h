#pragma once

#include "kinds/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::test {

namespace fs = std::filesystem;

/// An hour east of Greenwich.
inline constexpr LocalTime someTime{2024, 1, 31, 17, 45, 1, 3600};

/// A folder of its own that anybody may write to, removed at the end.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (fs::temp_directory_path() / "linealis-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw fs::filesystem_error("mkdtemp", name, {errno, std::generic_category()});
        }
        path = fs::canonical(name);
        fs::permissions(path, fs::perms::all);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    fs::path operator/(std::string_view name) const { return path / name; }

    /// The names of all that is in it, hidden files too, sorted.
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    fs::path path;
};

using Names = std::vector<std::string>;

inline std::string ReadFile(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteFile(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// The lines of a text in which each line ends in `end`, without it.
inline std::vector<std::string> Lines(std::string_view text, char end = '\r')
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(end), text.size());
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

/// What a zlib stream holds, and how many bytes of the data it takes.
struct Inflated {
    std::string text;
    std::size_t used = 0;
};

inline Inflated Inflate(std::string_view data)
{
    z_stream stream{};
    EXPECT_EQ(inflateInit(&stream), Z_OK);
    std::string input(data);
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    Inflated result;
    std::string piece(65536, '\0');
    int status = Z_OK;
    while (status == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = static_cast<uInt>(piece.size());
        status = inflate(&stream, Z_NO_FLUSH);
        result.text.append(piece, 0, piece.size() - stream.avail_out);
    }
    EXPECT_EQ(status, Z_STREAM_END);
    result.used = stream.total_in;
    inflateEnd(&stream);
    return result;
}

/// The bytes between the lines "stream" and "endstream" of a PDF, with the CR before the latter.
inline std::string_view StreamDataOf(std::string_view pdf)
{
    const std::size_t start = pdf.find("stream\r") + 7;
    const std::size_t end = pdf.rfind("endstream\r");
    EXPECT_TRUE(start < end && end != std::string_view::npos);
    return pdf.substr(start, end - start);
}

/// The page's operators.
inline std::vector<std::string> PageOf(const fs::path& pdf)
{
    return Lines(Inflate(StreamDataOf(ReadFile(pdf))).text);
}

struct Finished {
    int status = -1;  ///< exit status; 128 and more for a signal
    std::string output;
    std::string errors;
};

/// What linealis-cli said besides the warnings of what will disappoint on paper.
inline std::string WithoutWarnings(const std::string& errors)
{
    std::istringstream lines(errors);
    std::string rest;
    for (std::string line; std::getline(lines, line);) {
        rest += line.starts_with("linealis-cli: warning: ") ? "" : line + "\n";
    }
    return rest;
}

/// Fails for each program of scripts/setup that a command names and that is missing, and says which package has it.
inline void ExpectPrograms(const std::vector<std::string>& command)
{
    std::set<std::string> words;
    for (const std::string& part : command) {
        std::istringstream stream(part);
        words.insert(std::istream_iterator<std::string>(stream), {});
    }
    std::ifstream packages(LINEALIS_SETUP_PATH);
    std::string group, package, program;
    for (std::string line; std::getline(packages, line);) {
        if (std::istringstream(line) >> group >> package >> program && group == "default" &&
            words.contains(program) && std::system(("command -v " + program + " > /dev/null").c_str()) != 0) {
            ADD_FAILURE() << program << " is missing; it is in the Debian package " << package;
        }
    }
}

/// Runs a command to its end.
inline Finished Execute(std::vector<std::string> command)
{
    ExpectPrograms(command);
    const TemporaryFolder folder;
    const std::string output = folder / "out", errors = folder / "err";
    std::vector<char*> arguments;
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    const pid_t process = ::fork();
    if (process == 0) {
        constexpr int ownOnly = 0600, notStarted = 127;
        ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT, ownOnly), STDOUT_FILENO);
        ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT, ownOnly), STDERR_FILENO);
        ::execvp(arguments[0], arguments.data());
        ::_exit(notStarted);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadFile(output), ReadFile(errors)};
}

/// Runs a script in bash, where $cli is the program and the working directory the folder.
inline Finished RunInShell(const TemporaryFolder& folder, const std::string& script)
{
    return Execute({"env", "cli=" LINEALIS_CLI_PATH, "bash", "-c",
                    "cd '" + std::string(folder / "") + "'\nset -o pipefail\n" + script});
}

/// What qpdf finds wrong with a PDF, but for the one warning that every page gets, since its lines end in CR.
inline std::string Complaints(const fs::path& pdf)
{
    const Finished check = Execute({"qpdf", "--check", pdf});
    std::string complaints;
    int carriageReturns = 0;
    for (const std::string& line : Lines(check.errors, '\n')) {
        if (line.ends_with("stream keyword followed by carriage return only")) {
            ++carriageReturns;
        } else if (line != "qpdf: operation succeeded with warnings") {
            complaints += line.substr(0, 200) + '\n';
        }
    }
    if (carriageReturns != 1 || check.output.find("PDF Version: 1.4") == std::string::npos) {
        complaints += "status " + std::to_string(check.status) + ": " + check.output;
    }
    return complaints;
}

/// Takes the rights of the superuser away for a while, for whom every file is writable.
class Unprivileged {
public:
    Unprivileged() : wasRoot(::geteuid() == 0)
    {
        constexpr uid_t nobody = 65534;
        worked = !wasRoot || ::setresuid(nobody, nobody, 0) == 0;
    }
    ~Unprivileged()
    {
        if (wasRoot && worked && (::setresuid(0, 0, 0) != 0 || ::prctl(PR_SET_DUMPABLE, 1) != 0)) {
            std::abort();
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

    bool Worked() const { return worked; }

private:
    bool wasRoot;
    bool worked;
};

/// What a control holds.
struct ControlState {
    std::string_view name;
    ControlKind kind;
    std::string caption;
    std::string text;
    int listIndex = 0;
    int items = 0;
    bool value = false;
    Color color{};
    bool enabled = false;
};

/// A form by the names of its controls, for tests that go over many of them. An unknown name throws.
class NamedForm {
public:
    explicit NamedForm(Form& theForm) : form(theForm) {}

    ControlState operator[](std::string_view name) const { return StateOf(Find(name)); }
    std::vector<ControlState> Controls() const
    {
        std::vector<ControlState> states;
        for (Control* const control : form.Controls()) {
            states.push_back(StateOf(*control));
        }
        return states;
    }
    std::string Text(std::string_view name) const { return form.Get<TextField>(name).Text(); }
    double Number(std::string_view name) const { return form.Get<TextField>(name).Number(); }
    std::string Remark(std::string_view name) const { return form.Get<TextField>(name).Remark().English(); }
    int ListIndex(std::string_view name) const { return ChoiceNamed(name).ListIndex(); }
    std::string Selected(std::string_view name) const { return std::string(ChoiceNamed(name).Selected()); }
    bool Value(std::string_view name) const { return form.Get<CheckBox>(name).Value(); }
    Color ColorOf(std::string_view name) const { return form.Get<Swatch>(name).Shown(); }
    void SetText(std::string_view name, std::string text) const
    {
        form.Get<TextField>(name).SetText(std::move(text));
    }
    void Type(std::string_view name, std::string text) const { form.Get<TextField>(name).Type(std::move(text)); }
    void SetListIndex(std::string_view name, std::int64_t index) const { ChoiceNamed(name).SetListIndex(index); }
    void SetValue(std::string_view name, bool value) const { form.Get<CheckBox>(name).SetValue(value); }
    void Click(std::string_view name, bool value) const { form.Get<CheckBox>(name).Click(value); }
    void SetColor(std::string_view name, Color color) const { form.Get<Swatch>(name).SetColor(color); }

private:
    struct Reader {
        ControlState& state;
        void operator()(const TextField& field) const { state.text = field.Text(); }
        void operator()(const Choice& choice) const
        {
            state.listIndex = choice.ListIndex();
            state.items = static_cast<int>(choice.Items().size());
        }
        void operator()(const CheckBox& box) const { state.value = box.Value(); }
        void operator()(const Swatch& swatch) const { state.color = swatch.Shown(); }
        void operator()(const Label& /*label*/) const {}
    };

    static ControlState StateOf(Control& control)
    {
        ControlState state{.name = control.Name(),
                           .kind = control.Kind(),
                           .caption = control.Caption(),
                           .text = {},
                           .enabled = control.IsEnabled()};
        Visit(control, Reader{state});
        return state;
    }
    Control& Find(std::string_view name) const
    {
        Control* const control = form.Find(name);
        return control != nullptr ? *control : throw std::out_of_range(std::string(name));
    }
    Choice& ChoiceNamed(std::string_view name) const
    {
        auto* const popup = form.Find<Popup>(name);
        return popup != nullptr ? static_cast<Choice&>(*popup) : form.Get<RadioGroup>(name);
    }

    Form& form;
};

/// An open grid window whose save dialog answers with page.pdf.
class GridTest : public testing::Test {
protected:
    GridTest() { platform.clock = someTime; }

    std::unique_ptr<PaperWindow> Open() { return MakeWindow(*FindPaperKind("grid"), platform); }

    /// Generates, and returns the operators of the page.
    std::vector<std::string> Generate()
    {
        window->PushButtonGenerate_Action();
        return PageOf(page.Path());
    }

    TemporaryFolder folder;
    FolderItem page{folder / "page.pdf"};
    ScreenlessPlatform platform;
    std::unique_ptr<PaperWindow> window = Open();
    NamedForm form{window->form};

    void SetUp() override { platform.saveAnswer = page; }
};

}  // namespace linealis::test
