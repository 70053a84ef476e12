#include "TestSupport.h"
#include "exchange/PageRaster.h"
#include "exchange/PngPage.h"
#include "exchange/SvgPage.h"
#include "pdf/PageContent.h"
#include "pipeline/form/PaperForm.h"
#include "pipeline/form/SetControl.h"
#include "pipeline/page/PageJob.h"

#include <sys/resource.h>

#include <charconv>
#include <cmath>
#include <numeric>

namespace linealis::test {
namespace {

/// A figure in millimeters of the page, from its upper left corner.
using Figure = std::vector<double>;

/// Figures of a page as its content has them: strokes and fills, with the width of a stroke first.
class Figures final : public PageSink {
public:
    explicit Figures(double thePageHeight) : pageHeight(thePageHeight) {}

    bool Scale(double sx, double sy) override
    {
        scaleX = sx;
        scaleY = sy;
        return true;
    }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        Add(path, pen.width);
        return true;
    }
    bool Fill(PagePath path, const PageColor& /*color*/) override
    {
        Add(path, 0.0);
        return true;
    }
    bool FillAndStroke(PagePath path, const PageColor& /*color*/, const PagePen& pen) override
    {
        Add(path, pen.width);
        return true;
    }
    bool Text(const PageText& /*text*/) override
    {
        ++texts;
        return true;
    }

    void Add(PagePath path, double width)
    {
        for (const PathSegment& segment : path) {
            if (segment.operation == PageOperator::Move) {
                all.push_back({width * mm});
            } else if (segment.operation == PageOperator::Curve) {
                AddPoint(segment.control1.x, segment.control1.y);
                AddPoint(segment.control2.x, segment.control2.y);
            }
            AddPoint(segment.to.x, segment.to.y);
        }
    }
    void AddPoint(double x, double y)
    {
        all.back().push_back(x * scaleX * mm);
        all.back().push_back((pageHeight - y * scaleY) * mm);
    }

    static constexpr double mm = 25.4 / 72.0;
    std::vector<Figure> all;
    std::size_t texts = 0;

private:
    double pageHeight;
    double scaleX = 1.0;
    double scaleY = 1.0;
};

double Attribute(std::string_view element, const std::string& name)
{
    const std::size_t at = element.find(" " + name + "=\"");
    return at == std::string_view::npos ? 0.0 : std::stod(std::string(element.substr(at + name.size() + 3)));
}

/// The figures of an SVG page, read as little as can be: groups with a matrix, paths of M, L and C.
std::vector<Figure> FiguresOfSvg(const std::string& svg)
{
    const double mmPerUnit = Attribute(svg, "width") / std::stod(svg.substr(svg.find("viewBox=\"0 0 ") + 13));
    std::array<double, 6> matrix{};
    std::vector<Figure> figures;
    for (const std::string& line : Lines(svg, '\n')) {
        if (const std::size_t at = line.find("<g transform=\"matrix("); at != std::string::npos) {
            std::istringstream numbers(line.substr(at + 21));
            for (double& number : matrix) {
                numbers >> number;
            }
        } else if (line.starts_with("<path")) {
            const std::size_t begin = line.find(" d=\"") + 4;
            std::string data = line.substr(begin, line.find('"', begin) - begin), spaced;
            for (const char c : data) {
                spaced += std::isalpha(static_cast<unsigned char>(c)) != 0 && c != 'e' ? std::string{' ', c, ' '}
                                                                                       : std::string(1, c);
            }
            std::istringstream words(spaced);
            for (std::string word; words >> word;) {
                if (word == "M") {
                    figures.push_back({Attribute(line, "stroke-width") * mmPerUnit});
                } else if (word != "L" && word != "C") {
                    std::string second;
                    words >> second;
                    const double x = std::stod(word), y = std::stod(second);
                    figures.back().push_back((matrix[0] * x + matrix[2] * y + matrix[4]) * mmPerUnit);
                    figures.back().push_back((matrix[1] * x + matrix[3] * y + matrix[5]) * mmPerUnit);
                }
            }
        }
    }
    return figures;
}

/// A picture in shades of grey, 0 for black.
struct Picture {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint8_t> pixels;

    /// The sum of all that is darker than paper.
    double Ink() const
    {
        return std::accumulate(pixels.begin(), pixels.end(), 0.0,
                               [](double sum, std::uint8_t shade) { return sum + (255 - shade); });
    }

    /// Whether there is something darker than paper within a pixel of the place.
    bool HasInkNear(std::size_t x, std::size_t y, std::uint8_t lightest) const
    {
        for (std::size_t row = y - std::min<std::size_t>(y, 1); row <= std::min(y + 1, height - 1); ++row) {
            for (std::size_t column = x - std::min<std::size_t>(x, 1); column <= std::min(x + 1, width - 1);
                 ++column) {
                if (pixels[row * width + column] <= lightest) {
                    return true;
                }
            }
        }
        return false;
    }
};

std::size_t NumberOfFourBytes(std::string_view bytes)
{
    std::size_t number = 0;
    for (const char byte : bytes.substr(0, 4)) {
        number = number * 256 + static_cast<unsigned char>(byte);
    }
    return number;
}

/// Reads a PNG file of three or four bytes a pixel, whose rows are all written as differences to the row above.
Picture ReadPng(const std::string& png, std::size_t bytesPerPixel)
{
    Picture picture{NumberOfFourBytes(png.substr(16)), NumberOfFourBytes(png.substr(20)), {}};
    std::string compressed;
    for (std::size_t at = 8; at < png.size(); at += NumberOfFourBytes(png.substr(at)) + 12) {
        compressed += png.substr(at + 4, 4) == "IDAT" ? png.substr(at + 8, NumberOfFourBytes(png.substr(at))) : "";
    }
    const std::string rows = Inflate(compressed).text;
    const std::size_t length = picture.width * bytesPerPixel;
    std::vector<std::uint8_t> row(length);
    for (std::size_t y = 0; y < picture.height; ++y) {
        EXPECT_EQ(rows.at(y * (length + 1)), 2);
        for (std::size_t i = 0; i < length; ++i) {
            row[i] =
                static_cast<std::uint8_t>(row[i] + static_cast<std::uint8_t>(rows.at(y * (length + 1) + 1 + i)));
        }
        for (std::size_t x = 0; x < picture.width; ++x) {
            const std::size_t alpha = bytesPerPixel == 4 ? row[x * 4 + 3] : 255;
            const std::uint8_t* const color = &row[x * bytesPerPixel];
            const auto shade = static_cast<std::size_t>((color[0] + color[1] + color[2]) / 3);
            picture.pixels.push_back(static_cast<std::uint8_t>((shade * alpha + 255 * (255 - alpha)) / 255));
        }
    }
    return picture;
}

Picture ReadPgm(const std::string& pgm)
{
    std::istringstream head(pgm);
    std::string magic;
    std::size_t highest = 0;
    Picture picture;
    head >> magic >> picture.width >> picture.height >> highest;
    const std::string_view pixels = std::string_view(pgm).substr(pgm.size() - picture.width * picture.height);
    picture.pixels.assign(pixels.begin(), pixels.end());
    return picture;
}

/// The page as WritePng paints it.
Picture PaintedPicture(const DrawnPage& page, const PngOptions& options)
{
    std::string png;
    BinaryStream stream = BinaryStream::IntoMemory(png);
    WritePng({page.frame.paperWidth, page.frame.paperHeight}, page.content, options, stream);
    return ReadPng(png, options.isTransparent ? 4 : 3);
}

/// How many dark places of one picture have nothing near them in the other.
std::size_t InkMissing(const Picture& in, const Picture& of)
{
    constexpr std::uint8_t dark = 160, lightest = 250;
    std::size_t missing = 0;
    for (std::size_t y = 0; y < of.height; ++y) {
        for (std::size_t x = 0; x < of.width; ++x) {
            missing += of.pixels[y * of.width + x] < dark && !in.HasInkNear(x, y, lightest) ? 1U : 0U;
        }
    }
    return missing;
}

class Exchange : public testing::Test {
protected:
    void Run(const std::string& script, const std::string& error = "") const
    {
        const Finished call = RunInShell(folder, script);
        EXPECT_EQ(call.status == 0, error.empty()) << script;
        EXPECT_EQ(WithoutWarnings(call.errors), error.empty() ? "" : "linealis-cli: " + error + "\n") << script;
    }

    /// The page as a picture, which must be what mutool shows of its file.
    Picture ComparedWithReader(const DrawnPage& page, int dotsPerInch, double inkTolerance) const
    {
        Turns turns([] {});
        WriteFile(folder / "a.pdf", FileBytesOf(page, {}, turns));
        const std::string resolution = std::to_string(dotsPerInch);
        RunInShell(folder, "mutool draw -q -r " + resolution + " -c gray -o b.pgm a.pdf 2> /dev/null");
        Picture made = PaintedPicture(page, {static_cast<double>(dotsPerInch)});
        const Picture shown = ReadPgm(ReadFile(folder / "b.pgm"));
        EXPECT_EQ(made.width, shown.width);
        EXPECT_EQ(made.height, shown.height);
        if (made.pixels.size() == shown.pixels.size()) {
            EXPECT_EQ(InkMissing(made, shown), 0U);
            EXPECT_EQ(InkMissing(shown, made), 0U);
            EXPECT_NEAR(made.Ink() / shown.Ink(), 1.0, inkTolerance);
        }
        return made;
    }

    TemporaryFolder folder;
};

/// A content without its texts, whose shapes depend on the fonts that are installed.
std::string WithoutTexts(std::string content)
{
    for (std::size_t begin = content.find("BT\r"); begin != std::string::npos; begin = content.find("BT\r")) {
        content.erase(begin, content.find("ET\r", begin) + 3 - begin);
    }
    return content;
}

TEST_F(Exchange, SvgHasTheStrokesOfThePdf)
{
    for (const PaperKind& kind : PaperKinds()) {
        Run("$cli generate " + std::string(kind.name) +
            " --set paper-size=A5 --set x-scale=93.5 --set y-scale=81 -o a.pdf && $cli generate " +
            std::string(kind.name) + " --set paper-size=A5 --set x-scale=93.5 --set y-scale=81 -o a.svg");
        Figures expected(595.0);
        const std::string content = Inflate(StreamDataOf(ReadFile(folder / "a.pdf"))).text;
        EXPECT_EQ(ReadPage(content, expected).message, "");
        const std::string svg = ReadFile(folder / "a.svg");
        const std::vector<Figure> figures = FiguresOfSvg(svg);
        ASSERT_EQ(figures.size(), expected.all.size()) << kind.name;
        for (std::size_t i = 0; i < figures.size(); ++i) {
            ASSERT_EQ(figures[i].size(), expected.all[i].size());
            for (std::size_t j = 0; j < figures[i].size(); ++j) {
                ASSERT_NEAR(figures[i][j], expected.all[i][j], 0.001) << kind.name << " figure " << i;
            }
        }
        std::size_t texts = 0;
        for (std::size_t at = svg.find("<text"); at != std::string::npos; at = svg.find("<text", at + 1)) {
            ++texts;
        }
        EXPECT_EQ(texts, expected.texts) << kind.name;
        EXPECT_EQ(RunInShell(folder, "xmllint --noout a.svg").status, 0);
    }
}

TEST_F(Exchange, SvgHasTheFaceOfEveryFont)
{
    for (const std::string_view name : FontNames()) {
        const std::string font(name);
        Run("$cli generate graph --set show-axes=off --set page-title=T --set 'PopupFont1=" + font + "' -o a.svg");
        const std::string svg = ReadFile(folder / "a.svg");
        const std::string text = svg.substr(svg.find("<text"));
        const auto has = [](const std::string& in, const char* part) { return in.find(part) != std::string::npos; };
        EXPECT_TRUE(has(text, ("font-family=\"'" + font.substr(0, font.find(' ')) + "'").c_str())) << font;
        EXPECT_EQ(has(text, "bold"), has(font, "Bold")) << font;
        EXPECT_EQ(has(text, "italic"), has(font, "Oblique") || has(font, "Italic")) << font;
    }
}

TEST_F(Exchange, PngIsWhatAReaderShows)
{
    constexpr int dotsPerInch = 200;
    for (const PaperKind& kind : PaperKinds()) {
        SCOPED_TRACE(kind.name);
        ScreenlessPlatform platform;
        const std::unique_ptr<PaperWindow> window = MakeWindow(kind, platform);
        SetControl(kind.name, window->form, {"paper-size", "A6"});
        DrawnPage page = window->DrawPage();
        page.content.SetString(WithoutTexts(std::string(page.content.View())));
        const Picture made = ComparedWithReader(page, dotsPerInch, 0.25),
                      clear = PaintedPicture(page, {dotsPerInch, true});
        EXPECT_EQ(InkMissing(clear, made) + InkMissing(made, clear), 0U);
    }
    Run("$cli generate grid --set paper-size=A6 --dpi 200 --transparent -o a.png");
    EXPECT_EQ(ReadPng(ReadFile(folder / "a.png"), 4).width, 825U);
}

/// All that a content may hold, also what no kind draws.
TEST_F(Exchange, PngOfAnyContentIsWhatAReaderShows)
{
    const std::string ends = "20 20 m\r60 40 l\rS\r20 60 m\r20 90 l\rS\r", dot = "90 30 m\r90 30 l\rS\r";
    const std::string joins = "20 120 m\r40 150 l\r60 120 l\rS\r", circle = "70 90 m\r70 130 120 130 120 90 c\r";
    for (const std::string& content :
         {"10 w\r" + ends + dot, "10 w\r1 J\r" + ends + dot + joins + circle + "S\r", "10 w\r2 J\r" + ends + joins,
          "8 w\r" + joins + circle + "S\r", "0.70000 0 0 1.30000  0 0 cm\r9 w\r" + ends + joins,
          ".7 w\r" + circle + "S\r", "6 w\r1.00 0.00 0.00 rg\r" + circle + " B\r", circle + " f\r"}) {
        SCOPED_TRACE(content);
        DrawnPage page;
        page.frame.paperWidth = 150;
        page.frame.paperHeight = 200;
        page.content.SetString(content);
        for (const int dotsPerInch : {72, 200}) {
            ComparedWithReader(page, dotsPerInch, 0.05);
        }
    }
}

/// The strokes of a content, each painted alone.
struct StrokePainter final : PageSink {
    double pageHeight;
    double dotsPerInch;
    std::vector<double> inks;  ///< pixels
    bool isMirrored = false;   ///< about the middle of a paper of A6
    int step = 1;              ///< paints only the first of so many
    int number = 0;

    StrokePainter(double theHeight, double theResolution) : pageHeight(theHeight), dotsPerInch(theResolution) {}

    bool Scale(double, double) override { return true; }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        if (number++ % step != 0) {
            return true;
        }
        constexpr double a6Width = 297.0;
        constexpr int pixels = 700;
        std::vector<PathSegment> placed(path.begin(), path.end());
        for (PathSegment& segment : placed) {
            for (Point* const point : {&segment.to, &segment.control1, &segment.control2}) {
                point->x = isMirrored ? a6Width - point->x : point->x;
            }
        }
        FontFaces faces;
        PageRaster raster(faces, {pageHeight, dotsPerInch / 72.0, pixels, 0, pixels * 3 / 2}, true);
        raster.Stroke(placed, pen);
        double ink = 0.0;
        for (int row = 0; row < pixels * 3 / 2; ++row) {
            const std::span<const std::uint8_t> bytes = raster.Row(row);
            for (std::size_t alpha = 3; alpha < bytes.size(); alpha += 4) {
                ink += bytes[alpha] / 255.0;
            }
        }
        inks.push_back(ink);
        return true;
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath, const PageColor&, const PagePen&) override { return true; }
    bool Text(const PageText&) override { return true; }
};

TEST_F(Exchange, OverlapsInAStrokeAddNoInk)
{
    const std::string triangle = "10 10 m\r90 60 l\r90 10 l\r10 10 l\r", side = "10 10 m\r90 60 l\r";
    const std::string arc = "20 20 m\r20 50 50 50 50 20 c\r", corner = "10 10 m\r50 10 l\r50 40 l\r";
    for (const auto& [overlapping, plain] : std::vector<std::pair<std::string, std::string>>{
             {triangle + "90 60 l\r", triangle},
             {side + "10 10 l\r", side},
             {side + "50 35 l\r", side},
             {side + side, side},
             {arc + arc, arc},
             {arc + "50 50 20 50 20 20 c\r", arc},
             {corner + "50 10 l\r10 10 l\r", corner},
             {"10 40 m\r90 40 l\r40 40 m\r40 10 l\r", "10 40 m\r90 40 l\r40 39.9 m\r40 10 l\r"},
             // Painted in two pieces, and with no gap between them.
             {"10 10 m\r42.3 10 l\r42.3 10 m\r90 10 l\r", "10 10 m\r90 10 l\r"}}) {
        for (const double width : {0.2, 1.0}) {
            StrokePainter strokes(200.0, 200.0);
            ReadPage(std::to_string(width) + " w\r" + overlapping + "S\r" + plain + "S\r", strokes);
            EXPECT_NEAR(strokes.inks.at(0) / strokes.inks.at(1), 1.0, 0.01) << overlapping << width;
        }
    }
}

TEST_F(Exchange, EqualStrokesHaveEqualInk)
{
    for (const PaperKind& kind : PaperKinds()) {
        ScreenlessPlatform platform;
        const std::unique_ptr<PaperWindow> window = MakeWindow(kind, platform);
        SetControl(kind.name, window->form, {"paper-size", "A6"});
        const DrawnPage page = window->DrawPage();
        StrokePainter strokes(421.0, 150.0), mirrored(421.0, 150.0);
        mirrored.isMirrored = true;
        strokes.step = mirrored.step = 17;
        ReadPage(page.content, strokes);
        ReadPage(page.content, mirrored);
        for (std::size_t i = 0; i < strokes.inks.size(); ++i) {
            EXPECT_NEAR(strokes.inks[i] / mirrored.inks.at(i), 1.0, 0.01) << kind.name << " stroke " << i;
        }
    }
    // Far from the page's corner, too.
    const std::string near = "20 20 m\r20 50 50 50 50 20 c\rS\r", far = "20 2020 m\r20 2050 50 2050 50 2020 c\rS\r";
    StrokePainter low(100.0, 300.0), high(2100.0, 300.0);
    ReadPage(near, low);
    ReadPage(far, high);
    EXPECT_NEAR(low.inks.at(0) / high.inks.at(0), 1.0, 0.01);
}

TEST_F(Exchange, PngRoundsToTheNearest)
{
    const auto box = [](const std::string& left, const std::string& right) {
        return left + " 10 m\r" + right + " 10 l\r" + right + " 20 l\r" + left + " 20 l\rf\r";
    };
    std::string png;
    BinaryStream stream = BinaryStream::IntoMemory(png);
    WritePng({100, 30}, "0.50 0.40 0.50 rg\r" + box("10", "20.125") + "0 0 0 rg\r" + box("30", "40.0088"), {72.0},
             stream);
    const Picture picture = ReadPng(png, 3);
    const auto shade = [&](std::size_t x) { return static_cast<int>(picture.pixels.at(15 * picture.width + x)); };
    EXPECT_EQ(shade(15), (128 + 102 + 128) / 3);
    EXPECT_EQ(shade(20), (239 + 236 + 239) / 3) << "an eighth of it";
    EXPECT_EQ(shade(35), 0);
    EXPECT_LT(shade(40), 255) << "0.56 of the smallest step";
}

TEST_F(Exchange, CanBeStoppedAtAnyMoment)
{
    std::string lines;
    for (int i = 0; i < 1000; ++i) {
        lines += std::to_string(i) + " 0 m\r" + std::to_string(i) + " 500 l\rS\r";
    }
    int left = 0;
    Turns turns([&left] {
        if (--left == 0) {
            throw PageStopped{};
        }
    });
    std::string bytes;
    BinaryStream stream = BinaryStream::IntoMemory(bytes);
    DrawnPage drawn;
    drawn.content.SetString(lines);
    for (const int moment : {1, 10, 25}) {
        left = moment;
        EXPECT_THROW(WriteSvg({1000, 1000}, lines, {}, "", stream, &turns), PageStopped);
        left = moment;
        EXPECT_THROW(WritePng({1000, 1000}, lines, {}, stream, &turns), PageStopped);
        left = 1;
        EXPECT_THROW(FileBytesOf(drawn, {}, turns), PageStopped);
    }
}

/// A path of many strokes is cut, since readers take long over one of thousands of lines.
TEST_F(Exchange, SvgCutsLongPaths)
{
    const std::string stroke = "0 0 m\r10 10 l\rS\r";  // ten characters of a path
    std::string content;
    for (int i = 0; i <= 6000; ++i) {
        content += stroke;
    }
    const auto paths = [](const std::string& strokes) {
        std::string svg;
        BinaryStream stream = BinaryStream::IntoMemory(svg);
        WriteSvg({100, 100}, strokes, {}, "", stream);
        const Names lines = Lines(svg, '\n');
        return std::count_if(lines.begin(), lines.end(),
                             [](const std::string& line) { return line.starts_with("<path"); });
    };
    EXPECT_EQ(paths(content), 1);
    EXPECT_EQ(paths(content + stroke), 2);
}

TEST_F(Exchange, SvgHasSizesAsOneWritesThem)
{
    std::string svg;
    BinaryStream stream = BinaryStream::IntoMemory(svg);
    WriteSvg({612, 595}, "", {}, "", stream);
    EXPECT_NE(svg.find(" width=\"215.9mm\" height=\"209.9028mm\" "), std::string::npos) << svg;
}

TEST_F(Exchange, SvgGroupsByRole)
{
    std::string svg;
    BinaryStream stream = BinaryStream::IntoMemory(svg);
    const std::string line = "1 1 m\r9 9 l\rS\r";
    const std::size_t one = line.size();
    const PageRoles roles = {{one, "grid.x.major"}, {2 * one, "frame"}, {2 * one, "dot"}, {3 * one, "dot"}};
    WriteSvg({9, 9}, line + line + line + line, roles, "", stream);
    Names seen;
    for (const std::string& element : Lines(svg.substr(svg.find("<g")), '\n')) {
        seen.push_back(
            element.substr(0, element.starts_with("<g c") ? element.find('>') : element.find_first_of(" =>", 3)));
    }
    EXPECT_EQ(seen, (Names{"<g transform", "<path", "<g class=\"grid grid-x grid-x-major\"", "<path", "</g",
                           "<g class=\"dot\"", "<path", "<path", "</g", "</g", "</svg"}));
}

/// What no kind of paper draws.
TEST_F(Exchange, SvgHasTheDashesOfTheContent)
{
    std::string svg;
    BinaryStream stream = BinaryStream::IntoMemory(svg);
    WriteSvg({100, 100}, "[3 2] 1 d\r1 1 m\r9 9 l\rS\r[] 0 d\r1 1 m\r9 9 l\rS\r", {}, "", stream);
    const std::size_t dashes = svg.find(" stroke-dasharray=\"3 2\" stroke-dashoffset=\"1\"");
    EXPECT_NE(dashes, std::string::npos) << svg;
    EXPECT_EQ(svg.find("stroke-dash", dashes + 40), std::string::npos) << svg;
}

TEST_F(Exchange, PicturesGiveTheirFormBack)
{
    const std::string set = "--set units=cm --set top-margin=1.7 --set 'EditTitle=<A & \"B\"> äöü' ";
    for (const char* const ending : {"svg", "png"}) {
        const std::string file = std::string("page.") + ending;
        Run("$cli generate graph " + set + "-o a.pdf; $cli generate graph " + set + "--dpi 20 -o " + file +
            "; $cli generate --form " + file + " -o b.pdf");
        EXPECT_EQ(PageOf(folder / "a.pdf"), PageOf(folder / "b.pdf")) << ending;
    }
    // Also when an XML tool has saved it again.
    for (const char* const again :
         {"xmllint --encode ASCII page.svg", "xmllint --encode UTF-16 page.svg",
          "sed 's/linealis:/l:/g; s/xmlns:linealis/xmlns:l/' page.svg",
          "sed 's/<linealis:form xmlns:linealis/<form xmlns/; s/linealis:form/form/' page.svg"}) {
        Run(std::string(again) + " > x.svg; $cli generate --form x.svg -o b.pdf");
        EXPECT_EQ(PageOf(folder / "a.pdf"), PageOf(folder / "b.pdf")) << again;
    }
    Run("$cli generate --form page.svg --output-dir . --format svg --set page-title=x && cp graph.svg page.svg; "
        "$cli generate --form graph.svg --output-dir . --format svg",
        "refusing to overwrite the input graph.svg");
    for (const char* const text : {"<svg></svg>", "", "{", "<svg><form>{}</form></svg>",
                                   "<f:form xmlns:f=\"https://linealis.invalid/form\">{</f:form>"}) {
        WriteFile(folder / "x.svg", text);
        Run("$cli form --form x.svg", "x.svg: is a picture that carries no form");
    }
    // A picture that is cut gives it back if all of it is there.
    const std::string png = ReadFile(folder / "page.png");
    const std::size_t chunk = png.find("iTXt") - 4, end = chunk + NumberOfFourBytes(png.substr(chunk)) + 12;
    WriteFile(folder / "x.png", png.substr(0, end));
    Run("$cli form --form x.png");
    WriteFile(folder / "x.png", png.substr(0, end - 1));
    Run("$cli form --form x.png", "x.png: is a picture that carries no form");
}

/// What is darker than paper in one row near the middle of a picture: the places from the left, and the shades
/// there. The row is the lightest, which crosses lines between others, or the darkest, which is one of dots.
std::vector<std::pair<std::size_t, std::string>> MarksAcross(const Picture& picture, bool inTheLightest)
{
    std::string row;
    double best = 0.0;
    for (std::size_t y = picture.height / 2; y < picture.height / 2 + 100; ++y) {
        const auto begin = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y * picture.width);
        const Picture one{picture.width, 1, {begin, begin + static_cast<std::ptrdiff_t>(picture.width)}};
        const double ink = one.Ink();
        if (row.empty() || (inTheLightest ? ink < best : ink > best)) {
            best = ink;
            row.assign(one.pixels.begin(), one.pixels.end());
        }
    }
    std::vector<std::pair<std::size_t, std::string>> marks;
    for (std::size_t x = 0; x < row.size(); ++x) {
        if (row[x] != '\xFF') {
            if (marks.empty() || marks.back().first + marks.back().second.size() != x) {
                marks.push_back({x, ""});
            }
            marks.back().second += row[x];
        }
    }
    return marks;
}

TEST_F(Exchange, PicturesForADeviceFillItWithEqualMarks)
{
    std::vector<std::pair<std::string, Screen>> screens = {{"1000x700@131", {1000, 700, 131.0, 16}}};
    for (const Device& device : Devices()) {
        screens.emplace_back(device.name, device.screen);
    }
    const std::vector<std::string> papers = {"grid --set EditVertWeight=.3", "grid --set EditVertWeight=.8",
                                             "grid --set EditVertWeight=2.1", "dots --set EditDotWeight=1.6"};
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const auto& [name, screen] = screens[i];
        const std::string& paper = papers[i % papers.size()];
        SCOPED_TRACE(name + " " + paper);
        Run("$cli generate " + paper + " --device " + name +
            " --set PopupUnits=cm --set EditHorzSpacing=.5 --set EditVertSpacing=.5 -o x.png");
        const Picture picture = ReadPng(ReadFile(folder / "x.png"), 3);
        EXPECT_EQ(picture.width, static_cast<std::size_t>(screen.width));
        EXPECT_EQ(picture.height, static_cast<std::size_t>(screen.height));
        const auto marks = MarksAcross(picture, paper.starts_with("grid"));
        std::set<std::size_t> gaps;
        std::set<std::string> shades;
        ASSERT_GT(marks.size(), 10U);
        for (std::size_t mark = 1; mark < marks.size(); ++mark) {
            gaps.insert(marks[mark].first - marks[mark - 1].first);
            shades.insert(marks[mark].second);
        }
        EXPECT_EQ(shades.size(), 1U);
        EXPECT_LE(*gaps.rbegin() - *gaps.begin(), 1U);
        for (const std::uint8_t shade : picture.pixels) {
            ASSERT_TRUE(screen.grays == 0 || shade % 17 == 0) << int{shade};
        }
    }
}

TEST_F(Exchange, ADeviceTakesPicturesAlone)
{
    Run("$cli generate hexagon --device 600x400@100 --fit --output-dir . && mv hexagon.png a.png &&"
        " $cli generate hexagon --device 600x400@100 --set PopupOrientation=Landscape -o b.png");
    const Picture fitted = ReadPng(ReadFile(folder / "a.png"), 3), turned = ReadPng(ReadFile(folder / "b.png"), 3);
    EXPECT_EQ(fitted.width, 400U) << "as the page is held";
    EXPECT_EQ(fitted.height, 600U);
    EXPECT_GT(fitted.Ink(), 0.0);
    EXPECT_EQ(turned.width * turned.height, 240000U);
    EXPECT_EQ(
        RunInShell(folder, "$cli generate grid --set EditVertWeight=.05 --device 600x400@100 -o a.png").errors, "")
        << "warnings about printing";
    Run("$cli generate grid --device 600x400@100 -o a.pdf", "--device makes a PNG file, not a PDF file");
    Run("$cli generate grid --device 600x400@100 --dpi 90 -o a.png", "use either --device or --dpi, not both");
    Run("$cli generate grid --fit -o a.png", "--fit scales the page to a screen; add --device DEVICE");
    for (const std::string wrong :
         {"remarkable", "600x400", "0x400@100", "600x400@9", "99999x1@100", "600x400@100x", "x@"}) {
        const Finished call = RunInShell(folder, "$cli generate grid --device " + wrong + " -o a.png");
        EXPECT_EQ(call.status, 2) << wrong;
        EXPECT_NE(call.errors.find("unknown device '" + wrong + "'; possible: "), std::string::npos) << call.errors;
    }
}

TEST_F(Exchange, AThumbnailOfAnyPageTakesLittle)
{
    Run("$cli save dots --set paper-size=A0 --set vertical-spacing=.01 --set horizontal-spacing=.01 -o a.setd");
    const std::string settings = folder / "a.setd", picture = folder / "a.png";
    const pid_t process = ::fork();
    if (process == 0) {
        ::execl(LINEALIS_CLI_PATH, LINEALIS_CLI_PATH, "thumbnail", "--size", "256", settings.c_str(),
                picture.c_str(), nullptr);
        ::_exit(127);
    }
    int status = -1;
    rusage used{};
    ::wait4(process, &status, 0, &used);
    EXPECT_EQ(status, 0);
    EXPECT_GT(ReadPng(ReadFile(picture), 3).Ink(), 10000.0) << "what there was time for";
#ifndef __SANITIZE_ADDRESS__
    const auto milliseconds = [](const timeval& time) { return time.tv_sec * 1000 + time.tv_usec / 1000; };
    EXPECT_LT(milliseconds(used.ru_utime) + milliseconds(used.ru_stime), 1000);
    EXPECT_LT(used.ru_maxrss, 64 * 1024);
#endif
}

TEST_F(Exchange, BadInputIsNamed)
{
    Run("$cli generate grid -o page.jpeg",
        "unknown ending of -o '.jpeg'; possible: .png, .pdf, .svg, .dxf, none, which is a PDF file");
    Run("$cli generate grid --format gif -o -", "unknown format 'gif'; possible: pdf, dxf, svg, png");
    Run("$cli generate grid --set paper-size=A0 --dpi 2400 -o x.png",
        "grid: a picture of 79334 by 112267 pixels is too large; --dpi 568 would fit");
    Run("$cli generate grid --set paper-size=A0 --dpi 568 -o - --format png | head -c 8 > /dev/null; true");
    Run("echo old > x.png; ulimit -f 1; $cli generate graph -o x.png", "x.png: File too large");
    EXPECT_EQ(ReadFile(folder / "x.png"), "old\n");
    Run("$cli save grid -o a.setx; $cli thumbnail --size 64 a.setx t.png");
    EXPECT_EQ(ReadPng(ReadFile(folder / "t.png"), 3).height, 64U);
    Run("$cli thumbnail none.setx t.png", "none.setx: No such file or directory");
}

}  // namespace
}  // namespace linealis::test
