#include "TestSupport.h"
#include "platform/BinaryStream.h"
#include "platform/Process.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mount.h>
#include <sys/syscall.h>

#include <chrono>
#include <csignal>
#include <map>
#include <thread>

namespace linealis::test {
namespace {

/// In this process and those it starts a call of the system fails where its third argument has one of the bits;
/// with none, wherever it is.
void Refuse(unsigned call, unsigned bits, unsigned error)
{
    sock_filter code[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 4),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, bits, 1, 0),
        BPF_JUMP(BPF_JMP | BPF_JA, bits == 0 ? 0U : 1U, 0, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(code), code};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        ::_exit(99);
    }
}

int StatusOf(pid_t process)
{
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// As on many file systems there are no files without a name.
void RefuseUnnamedFiles()
{
    constexpr unsigned unnamed = 020000000;
    Refuse(SYS_openat, unnamed, EOPNOTSUPP);
}

/// Does the work in a process of its own.
template <typename Work>
pid_t StartProcess(bool unnamedFiles, Work work)
{
    const pid_t process = ::fork();
    if (process == 0) {
        if (!unnamedFiles) {
            RefuseUnnamedFiles();
        }
        work();
        ::_exit(98);
    }
    return process;
}

class CliFiles : public testing::Test {
protected:
    CliFiles() { WriteFile(page, "old"); }

    Finished Shell(const std::string& script) const { return RunInShell(folder, script); }

    void Fails(int status, const std::string& script, const std::string& errors) const
    {
        const Finished call = Shell(script);
        EXPECT_EQ(call.status, status) << script;
        EXPECT_EQ(call.errors, "linealis-cli: " + errors + "\n") << script;
    }

    TemporaryFolder folder;
    fs::path page = folder / "page.pdf";
};

TEST_F(CliFiles, ASignalInTheMidstOfAWriteLeavesTheOldFileAndNothingElse)
{
    for (const bool unnamedFiles : {true, false}) {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGPIPE, SIGKILL}) {
            const pid_t writer = StartProcess(unnamedFiles, [&] {
                EndCleanlyOnSignals();
                BinaryStream stream = BinaryStream::Replacing(page);
                stream.Write(std::string(1'000'000, 'x'));
                ::raise(signal);
            });
            EXPECT_EQ(StatusOf(writer), 128 + signal);
            EXPECT_EQ(ReadFile(page), "old");
            const bool leftover = signal == SIGKILL && !unnamedFiles;
            EXPECT_EQ(folder.Names().size(), leftover ? 2U : 1U) << signal << (unnamedFiles ? "" : ", named");
        }
    }
    const std::string living = ".linealis-" + std::to_string(::getppid()) + "-0";
    Names kept = {living, ".linealis-999999999-0", ".linealis-x", "page.pdf"};
    WriteFile(folder / ".linealis-999999998-0", "");
    if (::chown((folder / ".linealis-999999998-0").c_str(), 1234, 1234) == 0) {  // another user's
        kept.insert(kept.begin() + 1, ".linealis-999999998-0");
    }
    WriteFile(folder / living, "");
    WriteFile(folder / ".linealis-x", "");
    fs::create_symlink("page.pdf", folder / ".linealis-999999999-0");
    EXPECT_EQ(Shell("$cli generate grid -o page.pdf").status, 0);
    EXPECT_EQ(folder.Names(), kept) << "the next write clears what the killed one has left, and nothing else";
}

TEST_F(CliFiles, KilledAtAnyMomentThePageIsTheOldOneOrTheNewOne)
{
    using namespace std::chrono;
    const Names make = {LINEALIS_CLI_PATH, "generate", "dots", "--set", "EditHorzSpacing=.02", "-o", page};
    const auto before = steady_clock::now();
    ASSERT_EQ(Execute(make).status, 0);
    const auto whole = duration_cast<microseconds>(steady_clock::now() - before);
    const auto size = fs::file_size(page);
    constexpr int rounds = 60;
    for (int round = 0; round < rounds; ++round) {
        WriteFile(page, "old");
        const int signal = round % 2 == 0 ? SIGTERM : SIGKILL;
        const pid_t process = StartProcess(round % 4 < 2, [&] {
            ::execl(make[0].c_str(), make[0].c_str(), "generate", "dots", "--set", "EditHorzSpacing=.02", "-o",
                    page.c_str(), nullptr);
        });
        std::this_thread::sleep_for(whole * round / rounds);
        ::kill(process, signal);
        const int status = StatusOf(process);
        EXPECT_TRUE(status == 0 || status == 128 + signal) << status;
        EXPECT_TRUE(fs::file_size(page) == size || ReadFile(page) == "old");
        if (signal == SIGKILL) {
            EXPECT_EQ(Execute({make[0], "generate", "grid", "-o", page}).status, 0) << "and clears";
        }
        EXPECT_EQ(folder.Names(), Names{"page.pdf"}) << round;
    }
}

TEST_F(CliFiles, APageTakesItsPlaceOnceItIsOnTheDisk)
{
    const pid_t writer = StartProcess(true, [&] {
        Refuse(SYS_fsync, 0, EIO);
        BinaryStream stream = BinaryStream::Replacing(page);
        stream.Write("new");
        ::_exit(stream.Close() == std::errc::io_error ? 0 : 1);
    });
    EXPECT_EQ(StatusOf(writer), 0);
    EXPECT_EQ(ReadFile(page), "old");
    EXPECT_EQ(folder.Names(), Names{"page.pdf"});
}

TEST_F(CliFiles, LimitsOfTheSystemAreMessages)
{
    const Finished limited = Shell("(ulimit -f 0; exec $cli generate grid -o page.pdf 2>&1) | cat");
    EXPECT_EQ(limited.status, 1);
    EXPECT_EQ(limited.output, "linealis-cli: page.pdf: File too large\n");
#ifndef __SANITIZE_ADDRESS__
    const Finished cramped =
        Shell("A=$(head -c 100000 /dev/zero | tr '\\0' 7); least=2000\n"
              "until prlimit --as=${least}000 $cli --version > /dev/null 2>&1; do ((least += 500)); done\n"
              "for ((v = least; v < least + 3000; v += 100)); do\n"
              "prlimit --as=${v}000 $cli form grid --set EditXScale=$A --set EditYScale=$A > /dev/null\n"
              "[ $? != 134 ] || echo aborted; done");
    EXPECT_EQ(cramped.output, "");
    EXPECT_NE(cramped.errors.find("linealis-cli: there is not enough memory\n"), std::string::npos);
#endif
    EXPECT_EQ(ReadFile(page), "old");
    EXPECT_EQ(folder.Names(), Names{"page.pdf"});
}

TEST_F(CliFiles, AFullDiskLeavesTheOldPage)
{
    fs::create_directory(folder / "disk");
    if (::mount("none", (folder / "disk").c_str(), "tmpfs", 0, "size=64k,mode=0777") != 0) {
        GTEST_SKIP() << "only the superuser makes a small disk";
    }
    WriteFile(folder / "disk/page.pdf", "old");
    fs::permissions(folder / "disk/page.pdf", fs::perms(0666));
    const std::string make = "cli generate dots --set EditHorzSpacing=.002 --set EditDotWeight=.1 -o disk/page.pdf";
    Fails(1, "$" + make, "disk/page.pdf: No space left on device");
    fs::permissions(folder / "disk", fs::perms(0555));
    Fails(1, "setpriv --reuid=65534 $" + make, "disk/page.pdf: No space left on device");
    EXPECT_TRUE(ReadFile(folder / "disk/page.pdf") == "old") << "also where it would be written over";
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "disk"), {}), 1);
    EXPECT_EQ(::umount((folder / "disk").c_str()), 0);
}

TEST_F(CliFiles, WhatTheProcessHasOpenIsWrittenThere)
{
    const std::string pdf = Shell("$cli save grid -o -").output;
    ASSERT_FALSE(pdf.empty());
    for (const char* const script :
         {"$cli save grid -o /dev/stdout >> page.pdf", "$cli save grid -o /dev/fd/5 5>> page.pdf",
          "ln -s /proc/self/fd/1 link; $cli save grid -o link >> page.pdf",
          "mkfifo p; cat p >> page.pdf & $cli save grid -o >(cat > p); wait"}) {
        WriteFile(page, "old");
        EXPECT_EQ(Shell(script).errors, "");
        EXPECT_TRUE(ReadFile(page) == "old" + pdf) << script;
    }
}

TEST_F(CliFiles, NothingIsReplacedThatWasNotNamed)
{
    WriteFile(folder / "victim.pdf", "precious");
    fs::create_directory(folder / "out");
    ASSERT_EQ(Shell("$cli save grid -o a.setx; $cli save graph -o m.setg; mkfifo pipe.setx").errors, "");
    const std::string settings = ReadFile(folder / "a.setx");
    for (const char* const planted :
         {"ln -s ../victim.pdf", "ln -s /dev/stdout", "ln -s /proc/self/fd/1", "mkfifo"}) {
        const bool isPipe = planted[0] == 'm';
        Fails(1,
              std::string("rm -f out/a.pdf; ") + planted +
                  " out/a.pdf; $cli generate a.setx --output-dir out > log",
              isPipe ? "out/a.pdf: Is not a regular file" : "out/a.pdf: Is a link");
        EXPECT_EQ(ReadFile(folder / "log"), "") << planted;
    }
    Fails(2, "$cli generate a.setx -o ./a.setx", "refusing to overwrite the input a.setx");
    Fails(2, "ln a.setx b.setx; $cli generate grid --load a.setx -o b.setx",
          "refusing to overwrite the input a.setx");
    Fails(2, "$cli save grid -o ''", "-o takes a file name, not an empty text");
    Fails(1, "$cli form pipe.setx", "pipe.setx: Is not a regular file");
    Fails(1, "$cli form $'\\e[2J\\n\\xC2\\x9B\\xFFé~.setx'",
          "\\x1B[2J\\x0A\\xC2\\x9B\\xFFé~.setx: No such file or directory");
    ASSERT_EQ(Shell("$cli form grid > f.setx").errors, "");
    Fails(2, "$cli save --form f.setx -o f.setx", "refusing to overwrite the input f.setx");
    Fails(2, "$cli thumbnail a.setx a.setx", "refusing to overwrite the input a.setx");
    EXPECT_EQ(Shell("$cli save a.setx -o a.setx").errors, "");
    EXPECT_EQ(ReadFile(folder / "victim.pdf") + ReadFile(folder / "a.setx"), "precious" + settings);
}

TEST_F(CliFiles, SettingsOfAnotherKindOrDamagedAreSaid)
{
    ASSERT_EQ(Shell("$cli save grid -o a.setx; head -c -1 a.setx > short.setx; (cat a.setx; echo) > long.setx; "
                    "printf hello > five.setx; cp a.setx length.setx; "
                    "printf '\\xFF' | dd of=length.setx bs=1 seek=55 conv=notrunc status=none; "
                    "cp a.setx grid.setl")
                  .errors,
              "");
    const std::map<std::string, std::string> problems = {
        {"short.setx", "ends at field 23 of 23; the remaining fields are empty"},
        {"five.setx", "ends at field 1 of 23; the remaining fields are empty"},
        {"grid.setl", "has an invalid length in field 21 of 23; the fields after it are unreliable"},
        {"long.setx", "has extra data after the last of its 23 fields"},
        {"length.setx", "has an invalid length in field 17 of 23; the fields after it are unreliable"}};
    for (const auto& [file, problem] : problems) {
        for (const std::string command : {"generate -o p.pdf", "generate -o p.svg", "generate --check", "show",
                                          "form", "save -o p", "pad -o q.pdf"}) {
            const Finished done = Shell("$cli " + command + " " + file);
            EXPECT_EQ(done.status, 0);
            EXPECT_EQ(WithoutWarnings(done.errors), "linealis-cli: " + file + " " + problem + "\n") << command;
        }
    }
}

TEST_F(CliFiles, ATerminalIsNotCommanded)
{
    const Finished checked =
        Shell("$cli save graph --set EditTitleX=9 --set $'EditTitle=\\e[2J\\xC2\\x9B' -o $'\\e.setg'; "
              "$cli generate --check $'\\e.setg'");
    EXPECT_NE(checked.output.find("\\x1B.setg: "), std::string::npos);
    EXPECT_NE(checked.output.find("\\x1B[2J"), std::string::npos) << checked.output;
    EXPECT_EQ((checked.output + checked.errors).find_first_of("\x1B\x9B"), std::string::npos);
}

TEST_F(CliFiles, WhatTheDiskFailsToGiveIsSaid)
{
    const std::string noMarkers = "$cli generate graph --set CheckBoxMarkers=on --markers /proc/self/mem -o a.pdf";
    EXPECT_TRUE(Shell(noMarkers).errors.starts_with(
        "linealis-cli: /proc/self/mem: Input/output error, so no markers are drawn\n"));
    ASSERT_EQ(Shell("ln -s /proc/self/mem bad.setx").errors, "");
    for (const char* const command :
         {"generate bad.setx -o b.pdf", "generate grid --load bad.setx -o b.pdf", "form grid --form bad.setx",
          "generate grid --table bad.setx --output-dir .", "show bad.setx"}) {
        Fails(1, std::string("$cli ") + command, "bad.setx: Input/output error");
    }
    Fails(1, "$cli form grid --form - < .", "standard input: Is a directory");
    EXPECT_FALSE(fs::exists(folder / "b.pdf"));
}

}  // namespace
}  // namespace linealis::test
