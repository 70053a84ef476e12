#include "pdf/PageContent.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace linealis::test {
namespace {

/// Writes down what it is handed, and wants so many things at most.
class Notes : public PageSink {
public:
    explicit Notes(int howMany) : left(howMany) {}

    std::ostringstream notes;

    bool Scale(double sx, double sy) override
    {
        notes << "scale " << sx << ' ' << sy << '\n';
        return true;
    }
    bool Stroke(PagePath path, const PagePen& pen) override { return Add("stroke", path, pen, {}); }
    bool Fill(PagePath path, const PageColor& color) override { return Add("fill", path, {}, color); }
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override
    {
        return Add("both", path, pen, color);
    }
    bool Text(const PageText& text) override
    {
        notes << text.utf8 << '/' << text.bytes.size() << " F" << text.font << ' ' << text.size << " at "
              << text.matrix[4] << ',' << text.matrix[5] << ' ' << text.color.blue << '\n';
        return --left > 0;
    }

private:
    bool Add(const char* what, PagePath path, const PagePen& pen, const PageColor& color)
    {
        notes << what;
        for (const PathSegment& segment : path) {
            notes << ' ' << segment.to.x << ',' << segment.to.y;
        }
        notes << " w " << pen.width << ' ' << pen.color.red << " cap " << pen.cap << " dash " << pen.dashOn << ' '
              << pen.dashOff << ' ' << pen.dashPhase << " fill " << color.green << '\n';
        return --left > 0;
    }

    int left;
};

/// What the content shows; then, if it is damaged, the line and why.
std::string Read(std::string_view content, int howMany = 99)
{
    Notes notes(howMany);
    const PageDamage damage = ReadPage(content, notes);
    const std::string shown = notes.notes.str();
    return damage.message.empty() ? shown : shown + std::to_string(damage.line) + ": " + damage.message;
}

std::string Shown(std::string_view text)
{
    const std::string shown = Read("BT\r(" + std::string(text) + ") Tj\rET\r");
    return shown.substr(0, shown.find('/'));
}

TEST(PageContent, HandsOnThingsWithWhatTheyAreMadeWith)
{
    EXPECT_EQ(
        Read("0.50000 0 0 2.00000  0 0 cm\r1.00 0.50 0.25 RG\r0.00 0.75 1.00 rg\r.5 w\r1 J\r[3 2] 1 d\r"
             "1 2 m\r3 4 l\r5 6 7 8 9 10 c\r B\r[ ] 0 d\r-0.1 123456.8 m\r1 1 l\rS\r0 0 m\r f\r"),
        "scale 0.5 2\nboth 1,2 3,4 9,10 w 0.5 1 cap 1 dash 3 2 1 fill 0.75\n"
        "stroke -0.1,123457 1,1 w 0.5 1 cap 1 dash 0 0 0 fill 0\nfill 0,0 w 1 0 cap 0 dash 0 0 0 fill 0.75\n");
    EXPECT_EQ(
        Read("BT\r/F5 12 Tf\r-00000.00000000 00001.00000000 -00001.00000000 -00000.00000000 65 14 Tm\r3 4 Td\r"
             "(caf\x8E \xC9\xB0) Tj\rET\rBT\r7 8 Td\r(b) Tj\rET\r"),
        "café …\xEF\xBF\xBD/7 F5 12 at 61,17 0\nb/1 F5 12 at 7,8 0\n");
    EXPECT_EQ(Read("0 0 m\r1 1 l\rS\r0 0 m\r1 1 l\rS\r?", 1).substr(0, 10), "stroke 0,0") << "stopped, not damaged";
}

TEST(PageContent, TextsAreReadAsPdfReadsThem)
{
    EXPECT_EQ(Shown("a(b(c)) d"), "a(b(c)) d");
    EXPECT_EQ(Shown("\\(\\)\\\\\\n\\101\\60x\\q"), "()\\\nA0xq");
    EXPECT_EQ(Shown("one\r\ntwo\\\rthree"), "one\ntwothree");
    EXPECT_EQ(Shown("\\60\\60"), "00") << "a code may be short, also at the end";
    EXPECT_EQ(Shown("a)b"), "") << "what is closed too early shows nothing, and the page goes on";
    EXPECT_EQ(Read("0 w\rBT\r(a(b) Tj\rET\r1 1 m\rS\r"), "3: the text is not closed");
}

TEST(PageContent, NumbersAreTheNearestDoubles)
{
    for (const char* const text : {"0.1", "00001.00000000", "-00000.05260726", "612.3457", "123456789012345678",
                                   "0.1234567890123456789", ".5", "5.", "0.000000000001", "9007199254740993.5"}) {
        const std::string content = text + std::string(" w\r");
        PageReader reader(content);
        ASSERT_TRUE(reader.Next()) << text;
        EXPECT_EQ(reader.Operands()[0], std::strtod(text, nullptr)) << text;
        EXPECT_EQ(std::string(reader.Source()) + '\r', content);
    }
}

TEST(PageContent, DamageEndsItWithTheLine)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"1 2 m\r1 x l\r", "2: unexpected text after the operator"},
        {"1 2 l\r", "1: the operator is not allowed here"},
        {"1 w\r\r1 2 3 m\r", "3: the operator has the wrong operands"},
        {"S\r", "1: the operator is not allowed here"},
        {"/F15 1 Tf\r", "1: the font does not exist"},
        {"[1 2 3] 0 d\r", "1: the dash pattern is malformed"},
        {"1 2 3 4 5 6 7 c\r", "1: too many operands"},
        {"1 2\r", "1: the operator is missing"},
        {"--1 w\r", "1: the number is malformed"},
        {"1e5 w\r", "1: unexpected text after the operator"},
        {"BT\rBT\r", "2: the operator is not allowed here"},
        {"1 0 1 1 0 0 cm\r", "1: the operator is not allowed here"},
        {"Do\r", "1: the operator is unknown"},
        {"(a) w\r", "1: the operator has the wrong operands"}};
    for (const auto& [content, damage] : cases) {
        EXPECT_EQ(Read(content), damage);
    }
    const std::string whole =
        "[1 2] 0 d\rBT\r/F14 2 Tf\r1 0 0 1 2 3 Tm\r(a\\101(b)) Tj\rET\r1 2 m\r1 2 3 4 5 6 c\r B\r";
    for (std::size_t place = 0; place < whole.size(); ++place) {  // cut and changed anywhere, it ends
        Read(whole.substr(0, place));
        for (const char byte : {'\0', '\r', '(', ')', '[', '/', '-', '\\', 'Z', '\xFF'}) {
            std::string changed = whole;
            changed[place] = byte;
            Read(changed);
        }
    }
}

}  // namespace
}  // namespace linealis::test
