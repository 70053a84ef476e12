#include "TestSupport.h"

#include <nlohmann/json.hpp>

#include <csignal>

namespace linealis::test {
namespace {

using OrderedJson = nlohmann::ordered_json;

/// What makes linealis-cli a tool of the shell.
std::string Repeated(std::string_view text, int times)
{
    std::string repeated;
    while (times-- > 0) {
        repeated += text;
    }
    return repeated;
}

class CliShell : public testing::Test {
protected:
    /// What the script prints; it must succeed and complain of nothing.
    std::string Prints(const std::string& script) const
    {
        const Finished call = RunInShell(folder, script);
        EXPECT_EQ(call.status, 0) << script << "\n" << call.errors;
        EXPECT_EQ(WithoutWarnings(call.errors), "") << script;
        return call.output;
    }

    void Fails(int status, const std::string& script, const std::string& error) const
    {
        const Finished call = RunInShell(folder, script);
        EXPECT_EQ(call.status, status) << script;
        EXPECT_EQ(call.errors, "linealis-cli: " + error + "\n") << script;
    }

    std::vector<std::string> Page(std::string_view name) const { return PageOf(folder / name); }

    TemporaryFolder folder;
};

TEST_F(CliShell, AFormThatWasPrintedGivesTheSamePage)
{
    const std::string set = " --set units=cm --set PopupPaperSize=A5 --set EditTopMargin=.7 --set view-graph=off ";
    for (const PaperKind& kind : PaperKinds()) {
        const std::string name(kind.name);
        Prints("$cli generate " + name + set + "-o a.pdf && $cli form " + name + set +
               "| tee f.json | $cli generate --form - -o b.pdf");
        EXPECT_EQ(Page("a.pdf"), Page("b.pdf")) << name;
        Prints("$cli save " + name + set + "-o a; $cli save --form f.json -o b; cmp a b");
    }
}

TEST_F(CliShell, EveryCommandTakesEverySource)
{
    Prints("set -e; export SOURCE_DATE_EPOCH=1; preset=squares-5mm; $cli generate $preset -o p.pdf; "
           "$cli form $preset > p.json; for f in p.svg p.PNG; do $cli generate $preset -o $f; done; "
           "$cli save $preset -o p.setx; $cli show $preset > shown\n"
           "for s in p.setx p.json p.svg p.PNG; do $cli generate $s -o q.pdf; cmp q.pdf p.pdf; "
           "$cli save $s -o q.setx; cmp q.setx p.setx; $cli form $s > q.json; $cli diff q.json $preset; "
           "$cli show $s | cmp - shown; $cli thumbnail $s q.png; "
           "$cli generate $s --output-dir a/b --format svg; cmp a/b/p.svg p.svg; "
           "echo '{\"controls\": {\"top-margin\": 1}}' | $cli generate $s --form - -o q.pdf; "
           "$cli generate $s --set top-margin=1 -o r.pdf; cmp q.pdf r.pdf; "
           "$cli complete generate -o x.setg $s --set top-ma | grep -q 'Top margin'; done");
    Fails(1, "echo '<svg/>' > no.svg; $cli generate no.svg p.svg --output-dir new",
          "no.svg: is a picture that carries no form");
    EXPECT_EQ(Prints("ls new"), "p.pdf\n");
    Fails(2, "echo '{\"controls\": {}}' > no.json; $cli form no.json",
          "source is required: the form in no.json has no \"kind\"");
}

TEST_F(CliShell, APartOfAFormWillDo)
{
    WriteFile(folder / "f.json", R"({"controls": {"top-margin": 1.5, "EditTitle": {"value": "T"}, "units": "cm",
        "CheckBoxShowAxes": false, "EditXScale": null}})");
    Prints("$cli generate graph --form f.json --set EditXScale=90 -o a.pdf && $cli generate graph --set units=cm "
           "--set "
           "EditTopMargin=1.5 --set EditTitle=T --set show-axes=off --set x-scale=90 -o b.pdf");
    EXPECT_EQ(Page("a.pdf"), Page("b.pdf"));
    Fails(2, "$cli generate --form f.json -o a.pdf", "source is required: the form in f.json has no \"kind\"");
    Fails(2, "$cli form grid | $cli form lined --form -", "the form in standard input is of grid, not of lined");
    Fails(1, "echo '{\"controls\": 1}' | $cli form grid --form -",
          "standard input: is not a form: it has no object \"controls\"");
    Fails(1, "echo '{\"controls\": }' | $cli form grid --form -", "standard input: is not valid JSON: byte 14");
    Fails(2, "echo '{\"controls\": {\"units\": [1]}}' | $cli form grid --form -",
          "standard input: units is a text, a number, true or false, not a list");
    Fails(1, "echo '{\"controls\": {\"EditXScale\": 1e999}}' | $cli form grid --form -",
          "standard input: is not a form: it has a number beyond 1.8e308; write it as a text");
    Fails(1,
          "(printf '{\"controls\":{\"EditXScale\":'; yes '{\"value\":' | head -n 1000) | $cli form grid --form -",
          "standard input: is not a form: it has lists or objects more than 8 deep");
    Fails(2, "echo '{\"controls\": {\"units\": \"m\"}}' | $cli form grid --form -",
          "unknown item of PopupUnits 'm'; possible: cm, inches, #0 to #1");
    const std::string keys = "seq -f '\"k%g\":1,' 80000; printf '\"z\":1}";
    Fails(1, "(printf '{\"controls\":{'; " + keys + "}') | $cli form grid --form -",
          "standard input: is not a form: it has more than 256 controls");
    Prints("(printf '{\"others\":{'; " + keys + ", \"controls\": {}}') | timeout 3 $cli form grid --form -");
    Fails(1, "(printf '{\"controls\":{}}'; yes '' | head -c 1048576) | $cli form grid --form -",
          "standard input: is too large for a form");
    Fails(2,
          "(printf '{\"controls\":{\"units\":\"'; yes é | head -n 99999 | tr -d '\\n'; printf '\"}}') | $cli form "
          "grid --form -",
          "unknown item of PopupUnits '" + Repeated("é", 60) + "...'; possible: inches, cm, #0 to #1");
    Fails(1, "$cli form grid --form .", ".: Is a directory");
    Fails(1, "yes | $cli form grid --form -", "standard input: has more than 67108864 bytes");
}

TEST_F(CliShell, ATableMakesAPageForEachRow)
{
    const std::string generate =
        "mkdir -p out && rm -f out/* && $cli generate grid --table t.csv --output-dir out ";
    WriteFile(folder / "t.csv", "\xEF\xBB\xBF"
                                "file,top-margin,PopupUnits,EditVertSpacing\r\n"
                                "\"a \"\"b\"\"\",0.7,cm,\r\n\r\nc.pdf,,,.4\r\n");
    Prints(generate);
    Prints("$cli generate grid --set top-margin=0.7 --set PopupUnits=cm -o one.pdf; "
           "$cli generate grid --set EditVertSpacing=.4 -o two.pdf");
    EXPECT_EQ(Prints("ls out"), "a \"b\".pdf\nc.pdf\n");
    EXPECT_EQ(Page("out/a \"b\".pdf"), Page("one.pdf"));
    EXPECT_EQ(Page("out/c.pdf"), Page("two.pdf"));

    WriteFile(folder / "t.csv", " FILE\tTop-Margin\t\teditcrosswidth\n\"x\r\ny\"\t0.7\t\t1\n");
    Prints("$cli generate crosses --table t.csv --output-dir out; "
           "$cli generate crosses --set top-margin=0.7 --set EditCrossWidth=1 -o one.pdf");
    EXPECT_EQ(Page("out/x y.pdf"), Page("one.pdf"));

    std::string rows = "top-margin;bottom-margin\n";
    for (int i = 0; i < 12; ++i) {
        rows += "0,5;" + std::to_string(i) + "\n";
    }
    WriteFile(folder / "t.csv", rows);
    Prints("export SOURCE_DATE_EPOCH=1700000000; " + generate + "-j 5 && cat out/*.pdf > five; " + generate +
           "&& cat out/*.pdf | cmp - five");
    EXPECT_EQ(Prints("ls out | head -2"), "grid-01.pdf\ngrid-02.pdf\n");

    Fails(2, "printf 'file,units\\nx,cm\\n../y,cm\\n' > t.csv; " + generate,
          "t.csv, row 2: '../y' is not a plain file name");
    Fails(1, "printf 'units\\ncm\\n' | iconv -t UTF-16 > t.csv; " + generate,
          "t.csv: is UTF-16; save the table as UTF-8");
    Fails(1, "printf 'units\\ncm\\n\"cm\\n' > t.csv; " + generate,
          "t.csv, line 3: the quotation mark is not closed");
    Fails(2, "printf 'file\\nt.pdf\\n' > out/t.pdf; $cli generate grid --table out/t.pdf --output-dir out",
          "refusing to overwrite the input out/t.pdf");
    Fails(2, "printf 'units\\nkm\\n' > t.csv; " + generate,
          "t.csv, row 1: unknown item of PopupUnits 'km'; possible: cm, inches, #0 to #1");
    Fails(2, "printf 'units\\ncm\\nkm\\n' > t.csv; " + generate,
          "t.csv, row 2: unknown item of PopupUnits 'km'; possible: cm, inches, #0 to #1");
    Fails(1, "printf 'units,x-scale\\ncm\\n' > t.csv; " + generate,
          "t.csv, row 1 has 1 cells, but the header has 2");
    Fails(1, "printf 'units\\n\\n' > t.csv; " + generate, "t.csv: has no rows below its header");
    Fails(2, "printf 'file\\nx\\nx\\n' > t.csv; " + generate, "two pages would be written to out/x.pdf");
    Fails(2, "$cli generate grid --table t.csv -o x.pdf",
          "--table makes a page for each row; use --output-dir DIR instead of -o");
}

TEST_F(CliShell, ATableTakesNoMoreRoomThanARow)
{
#ifndef __SANITIZE_ADDRESS__
    const std::string limited = "ulimit -v 100000; $cli generate grid --output-dir out --table t.csv";
    WriteFile(folder / "t.csv", std::string(500000, 'x') + "\n" + std::string(1000, '1') + "\n");
    Fails(2, "yes 1 | head -2000 >> t.csv; " + limited,
          "t.csv, row 1: unknown control of grid '" + std::string(60, 'x') +
              "...'; possible: x-scale, paper-size, custom-width, custom-height, orientation and 15 more");
    Fails(1, "(echo units; yes cm | head -2000000; echo cm,) > t.csv; " + limited,
          "t.csv, row 2000001 has 2 cells, but the header has 1");
#endif
}

TEST_F(CliShell, WithoutThreadsPagesAreMadeAllTheSame)
{
    const std::string asNobody = ::geteuid() == 0 ? "setpriv --reuid=65534 --clear-groups " : "";
    // The leak detector of a sanitized build needs a thread of its own.
    Prints(asNobody +
           "bash -c 'ulimit -u 1; ASAN_OPTIONS=detect_leaks=0 exec $cli generate grid dots -j 2 --output-dir out'");
    EXPECT_EQ(Prints("ls out"), "dots.pdf\ngrid.pdf\n");
}

TEST_F(CliShell, ManyPagesEndInOrder)
{
    WriteFile(folder / "t.csv", "x-scale,EditVertSpacing,EditHorzSpacing\n90,.01,.01\n90,,\n90,,\n90,,\n");
    EXPECT_EQ(Prints("mkdir -p out/dots-3.pdf; $cli generate dots --table t.csv --output-dir out -j 3 2>&1 | "
                     "sed -E 's/.*row ([0-9]):.*/\\1/; s/.*(dots-[0-9]).*/\\1/' | uniq | tr '\\n' ' '; rm -r out"),
              "1 2 3 dots-3 4 ");
    std::string rows = "EditVertSpacing,EditHorzSpacing,PopupPaperSize\n";
    for (int i = 0; i < 8; ++i) {
        rows += ".01,.01,A0\n";
    }
    WriteFile(folder / "t.csv", rows);
    const Finished ended = RunInShell(folder, "mkdir out; $cli generate dots --table t.csv --output-dir out -j 2 & "
                                              "sleep 0.3; kill -TERM $!; wait $!");
    EXPECT_EQ(ended.status, 128 + SIGTERM);
    EXPECT_EQ(Prints("ls -A out | grep -vc 'dots-[1-8].pdf' || true"), "0\n") << "nothing half written";
    EXPECT_EQ(
        Prints("for page in out/*.pdf; do [ -e $page ] || continue; tail -c 6 $page; echo; done | sort -u | wc -l"),
        Prints("[ -n \"$(ls out)\" ] && echo 2 || echo 0"))
        << "what is there is whole";
    Fails(1,
          "rm -r out; mkdir -p out; cd out; mkdir grid-2.pdf; cd ..; "
          "printf 'units\\ncm\\ncm\\ncm\\n' > t.csv; $cli generate grid --table t.csv --output-dir out",
          "out/grid-2.pdf: Is a directory");
    EXPECT_EQ(Prints("ls out"), "grid-1.pdf\ngrid-2.pdf\ngrid-3.pdf\n");
}

TEST_F(CliShell, ShowsAndComparesSettingsFiles)
{
    Prints("$cli save grid -o a.setx; $cli save grid --set top-margin=2 --set CheckVertLines=off -o b.setx");
    const std::string shown = Prints("$cli show b.setx");
    for (const char* const line : {"kind\tgrid\n", "summary\tGrid, Letter portrait, 30 by 34 cells of 0.25 in\n",
                                   "EditTopMargin\t2\tTop margin\n", "CheckVertLines\toff\tVertical Lines\n"}) {
        EXPECT_NE(shown.find(line), std::string::npos) << line << shown;
    }
    EXPECT_EQ(OrderedJson::parse(Prints("$cli show --json b.setx"))["controls"]["EditTopMargin"]["value"], "2");
    EXPECT_EQ(Prints("$cli diff a.setx grid"), "");
    const Finished differ = RunInShell(folder, "$cli diff a.setx b.setx");
    EXPECT_EQ(differ.status, 1);
    EXPECT_EQ(differ.output, "CheckVertLines\ton\toff\tVertical Lines\nEditTopMargin\t0.5\t2\tTop margin\n");
    EXPECT_EQ(OrderedJson::parse(RunInShell(folder, "$cli diff --json a.setx b.setx").output)[1]["other"], "2");
    const std::string commands =
        Prints("$cli save graph --set $'EditTitle=\\e[31m\\x7f' -o c.setg; $cli show c.setg; "
               "$cli form c.setg; $cli form graph --set $'EditTitle=\\xc2\\x80\\xc2\\x9f'");
    EXPECT_EQ(commands.find_first_of("\x1B\x7F"), std::string::npos) << "nothing commands the terminal";
    EXPECT_NE(commands.find("EditTitle\t\\x1B[31m\\x7F"), std::string::npos);
    EXPECT_NE(commands.find("\\u0080\\u009F"), std::string::npos);
    Fails(2, "$cli diff a.setx lined",
          "a.setx is of grid, and lined of lined; only forms of one kind can be compared");
    Fails(2, "$cli diff a.setx none.setx", "none.setx: No such file or directory");
    const Finished ended = RunInShell(folder, "head -c 40 a.setx > short.setx; $cli show short.setx");
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.errors.find("short.setx ends at field "), std::string::npos) << ended.errors;
}

TEST_F(CliShell, TellsShellsWhatCanFollow)
{
    EXPECT_EQ(Prints("$cli complete ge"), "generate\tMake a page, or many\n");
    EXPECT_EQ(Prints("$cli complete generate gri"), "grid\tGrid Graph Paper\n:files\n");
    EXPECT_EQ(Prints("$cli complete generate --ta | cut -f1"), "--table\n");
    EXPECT_EQ(Prints("$cli complete generate --preset log-log-5"), "log-log-5\tLog-log, 5 by 5 decades\n");
    EXPECT_EQ(Prints("$cli complete form grid --set top"), "top-margin=\tTop margin\n");
    EXPECT_EQ(Prints("$cli complete form a.setx --set EditTop"), "EditTopMargin=\tTop margin\n");
    EXPECT_EQ(Prints("$cli complete form --preset ruled-college --set orientation=L"), "orientation=Landscape\t\n");
    EXPECT_EQ(Prints("$cli complete save grid --set view-graph=o | cut -f1"), "view-graph=on\nview-graph=off\n");
    EXPECT_EQ(Prints("$cli complete generate graph --wizard max-x"), "max-x=\tMax X\n");
    EXPECT_EQ(Prints("$cli complete generate grid --output-dir ''"), ":folders\n");
    EXPECT_EQ(Prints("$cli complete generate grid -o ''"), ":files\n");
    EXPECT_EQ(Prints("$cli complete generate --set x; $cli complete nothing ''; $cli complete generate -j ''"), "");
}

TEST_F(CliShell, ATimeThatIsToldGivesTheSameFile)
{
    Prints("export TZ=Asia/Tokyo SOURCE_DATE_EPOCH=1700000000; $cli generate cornell -o a.pdf; sleep 1; "
           "$cli generate cornell -o b.pdf; cmp a.pdf b.pdf");
    EXPECT_NE(ReadFile(folder / "a.pdf").find("20231114221320"), std::string::npos);
}

}  // namespace
}  // namespace linealis::test
