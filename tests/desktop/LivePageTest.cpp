#include "desktop/page/LivePage.h"

#include "DesktopTestSupport.h"
#include "desktop/page/PagePainter.h"
#include "desktop/page/PageRuler.h"
#include "kinds/Presets.h"
#include "pipeline/page/PageJob.h"

#include <QSignalSpy>
#include <QToolButton>
#include <QWheelEvent>
#include <set>

namespace linealis::test {
namespace {

using desktop::LivePage;

constexpr int dotsPerInch = 300;

/// Where texts stand, whose fonts differ from reader to reader.
struct TextPlaces : PageSink {
    std::vector<QRectF> places;  ///< points from the upper left corner
    double pageHeight = 0.0;

    bool Scale(double /*sx*/, double /*sy*/) override { return true; }
    bool Stroke(PagePath /*path*/, const PagePen& /*pen*/) override { return true; }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return true; }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        return true;
    }
    bool Text(const PageText& text) override
    {
        const double width = text.size * static_cast<double>(text.bytes.size()) * 0.8;
        const QTransform place(text.matrix[0], text.matrix[1], text.matrix[2], text.matrix[3], text.matrix[4],
                               text.matrix[5]);
        const QRectF box = place.mapRect(QRectF(-2, -text.size / 2, width + 4, 2 * text.size));
        places.emplace_back(box.left(), pageHeight - box.bottom(), box.width(), box.height());
        return true;
    }
};

std::string ContentOfWindow(const PaperWindow& window)
{
    Turns turns([] {});
    return DrawPage(window.ReadPage(), turns).content.Operator_Convert();
}

QImage Painted(const PageFrame& frame, std::string_view content, double scale = dotsPerInch / 72.0,
               desktop::PagePainter::ThinLines thinLines = desktop::PagePainter::ThinLines::AsTheyAre)
{
    const QSizeF paper(static_cast<double>(frame.paperWidth), static_cast<double>(frame.paperHeight));
    QImage image(static_cast<int>(std::lround(paper.width() * scale)),
                 static_cast<int>(std::lround(paper.height() * scale)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    EXPECT_EQ(desktop::PaintPage(painter, paper, content, thinLines).message, "");
    painter.end();
    return image.convertToFormat(QImage::Format_Grayscale8);
}

/// The dark pixels of one picture, outside of texts, that have nothing dark within a pixel of them in the other.
int Strays(const QImage& image, const QImage& other, const std::vector<QRectF>& texts)
{
    const auto isDark = [](const QImage& from, int x, int y, int limit) {
        return from.rect().contains(x, y) && from.constScanLine(y)[x] < limit;
    };
    int strays = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!isDark(image, x, y, 100)) {
                continue;
            }
            bool found = false;
            for (int i = 0; i < 9 && !found; ++i) {
                found = isDark(other, x + i % 3 - 1, y + i / 3 - 1, 235);
            }
            const QPointF point(x * 72.0 / dotsPerInch, y * 72.0 / dotsPerInch);
            const bool inText = !found && std::any_of(texts.begin(), texts.end(),
                                                      [&](const QRectF& text) { return text.contains(point); });
            strays += found || inText ? 0 : 1;
        }
    }
    return strays;
}

struct PaintedKind : testing::TestWithParam<std::string_view> {};

TEST_P(PaintedKind, IsWhatAnotherReaderShows)
{
    const TemporaryFolder folder;
    ScreenlessPlatform platform;
    const auto window = MakeWindow(*FindPaperKind(GetParam()), platform);
    const std::string pdf = (folder / "page.pdf").string(), picture = (folder / "page").string();
    ASSERT_EQ(Execute({LINEALIS_CLI_PATH, "generate", std::string(GetParam()), "-o", pdf}).status, 0);
    const std::string resolution = std::to_string(dotsPerInch);
    ASSERT_EQ(Execute({"pdftoppm", "-gray", "-singlefile", "-r", resolution, pdf, picture}).status, 0);
    const QImage expected = QImage(ToQt(picture + ".pgm")).convertToFormat(QImage::Format_Grayscale8);
    const PageFrame frame = window->ReadPage().frame;
    const std::string content = ContentOfWindow(*window);
    TextPlaces texts;
    texts.pageHeight = static_cast<double>(frame.paperHeight);
    ReadPage(content, texts);
    const QImage painted = Painted(frame, content);
    ASSERT_EQ(painted.size(), expected.size());
    EXPECT_EQ(Strays(painted, expected, texts.places), 0) << "painted and not in the PDF";
    EXPECT_EQ(Strays(expected, painted, texts.places), 0) << "in the PDF and not painted";
}

double MeanGray(const QImage& image, const QRect& block)
{
    double sum = 0.0;
    for (int y = block.top(); y <= block.bottom(); ++y) {
        for (int x = block.left(); x <= block.right(); ++x) {
            sum += image.constScanLine(y)[x];
        }
    }
    return sum / (block.width() * block.height());
}

/// The largest difference of mean gray between the page as the window shows it and as mupdf does, over blocks of 16
/// by 16 pixels that hold no text.
double LargestDifference(const PaperWindow& window, double scale, const TemporaryFolder& folder)
{
    constexpr int side = 16;
    // mupdf paints no line thinner than a quarter of a pixel, so its picture is made finer and scaled down.
    const int fine = std::max(1, static_cast<int>(std::lround(4.0 / scale)));
    Turns turns([] {});
    const DrawnPage page = DrawPage(window.ReadPage(), turns);
    WriteFile(folder / "page.pdf", FileBytesOf(page, {}, turns));
    const std::string picture = (folder / "page.pgm").string();
    EXPECT_EQ(Execute({"mutool", "draw", "-q", "-c", "gray", "-r", std::to_string(scale * 72.0 * fine), "-o",
                       picture, (folder / "page.pdf").string()})
                  .status,
              0)
        << "mutool is in the package mupdf-tools";
    const QImage finer(ToQt(picture));
    const QImage printed = finer.scaled(finer.size() / fine, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                               .convertToFormat(QImage::Format_Grayscale8);
    const QImage shown = Painted(page.frame, page.content, scale, desktop::PagePainter::ThinLines::Faded);
    TextPlaces texts;
    texts.pageHeight = static_cast<double>(page.frame.paperHeight);
    ReadPage(page.content, texts);
    double largest = 0.0;
    for (int y = 0; y + side <= std::min(shown.height(), printed.height()); y += side) {
        for (int x = 0; x + side <= std::min(shown.width(), printed.width()); x += side) {
            const QRectF onPage(x / scale, y / scale, side / scale, side / scale);
            if (std::none_of(texts.places.begin(), texts.places.end(),
                             [&](const QRectF& text) { return text.intersects(onPage); })) {
                const QRect block(x, y, side, side);
                largest = std::max(largest, std::abs(MeanGray(shown, block) - MeanGray(printed, block)));
            }
        }
    }
    return largest;
}

TEST(DesktopWeights, MakeAPageAsDarkAsItPrints)
{
    constexpr double tolerance = 16.0, actualSize = 96.0 / 72.0;
    const TemporaryFolder folder;
    ScreenlessPlatform platform;
    for (const PaperKind& kind : PaperKinds()) {
        const auto window = MakeWindow(kind, platform);
        for (const double scale : {0.44 * actualSize, 0.88 * actualSize, actualSize, 2.0 * actualSize}) {
            EXPECT_LE(LargestDifference(*window, scale, folder), tolerance) << kind.name << " at " << scale;
        }
        window->form.PopupPaperSize.SetListIndex(9);  // A6, so that the picture is not too large
        for (const double scale : {4.0 * actualSize, 8.0 * actualSize}) {
            EXPECT_LE(LargestDifference(*window, scale, folder), tolerance) << kind.name << " at " << scale;
        }
    }
    for (const Preset& preset : Presets()) {
        EXPECT_LE(LargestDifference(*MakeWindow(preset, platform), 0.44 * actualSize, folder), tolerance)
            << preset.id;
    }
}

/// Along a line of default graph paper in a small window.
TEST(ThinFrame, IsOnePixelWide)
{
    PageFrame frame;
    frame.paperWidth = frame.paperHeight = 100;
    const QImage painted = Painted(frame, ".5 w\r10.2 10 m\r90.7 10 l\r90.7 80.4 l\r10.2 80.4 l\r10.2 10 l\rS\r",
                                   1.0, desktop::PagePainter::ThinLines::Faded);
    int columns = 0, rows = 0;
    for (int i = 0; i < 100; ++i) {
        columns += painted.pixelColor(i, 50).value() < 255 ? 1 : 0;
        rows += painted.pixelColor(50, i).value() < 255 ? 1 : 0;
    }
    EXPECT_EQ(columns, 2);
    EXPECT_EQ(rows, 2);
}

TEST(DesktopWeights, TellMajorLinesFromMinorOnes)
{
    ScreenlessPlatform platform;
    const auto window = MakeWindow(*FindPaperKind("graph"), platform);
    Turns turns([] {});
    const DrawnPage page = DrawPage(window->ReadPage(), turns);
    const double scale = 0.44 * 96.0 / 72.0;
    const QImage shown = Painted(page.frame, page.content, scale, desktop::PagePainter::ThinLines::Faded);
    const auto darkness = [&](int line) {
        const int x = static_cast<int>(std::floor((54.0 + 7.2 * line) * scale));
        return 255.0 - MeanGray(shown, QRect(x, shown.height() / 4, 1, shown.height() / 2));
    };
    EXPECT_GT(darkness(5) - darkness(6), 60.0);
    EXPECT_GT(darkness(6), 10.0);
    int last = 0, least = 100, most = 0;
    for (int line = 0; line <= 70; ++line) {
        const int x = static_cast<int>(std::floor((54.0 + 7.2 * line) * scale));
        EXPECT_GT(darkness(line), 10.0) << "each line is on one column of pixels";
        if (line > 0) {
            least = std::min(least, x - last);
            most = std::max(most, x - last);
        }
        last = x;
    }
    EXPECT_LE(most - least, 1);
}

std::vector<std::string_view> KindNames()
{
    std::vector<std::string_view> names;
    for (const PaperKind& kind : PaperKinds()) {
        names.push_back(kind.name);
    }
    return names;
}

INSTANTIATE_TEST_SUITE_P(Desktop, PaintedKind, testing::ValuesIn(KindNames()),
                         [](const auto& test) { return std::string(test.param); });

class DesktopLivePage : public DesktopTest {
protected:
    LivePage& Show(QWidget& window)
    {
        auto& page = Child<LivePage>(window, "LivePage");
        QSignalSpy painted(&page, &LivePage::Painted);
        Press(window, Qt::Key_F9);
        EXPECT_TRUE(page.isVisible());
        EXPECT_TRUE(painted.count() > 0 || painted.wait());
        return page;
    }

    /// Waits until the picture shows what the form holds.
    static QImage Picture(LivePage& page)
    {
        QSignalSpy painted(&page, &LivePage::Painted);
        while (painted.wait(300)) {
        }
        return page.Picture().image;
    }
};

TEST_F(DesktopLivePage, FollowsTheForm)
{
    QWidget& window = OpenPaper("grid");
    LivePage& page = Show(window);
    const QImage before = Picture(page);
    Enter(window, {"EditVertSpacing=2"});
    const QImage spaced = Picture(page);
    EXPECT_NE(spaced, before);
    Fill(static_cast<QLineEdit&>(Child(window, "EditHorzWeight")), "3");
    const QImage lit = Picture(page);  // the field has the focus, so what it governs is lit up
    Child(window, "PopupUnits").setFocus();
    const QImage plain = Picture(page);
    EXPECT_NE(lit, plain);
    int litRows = 0;
    const int halfALine = static_cast<int>(page.PaperInPixels().width() / 2);
    for (int y = 0; y < lit.height(); ++y) {
        int changed = 0;
        for (int x = 0; x < lit.width(); ++x) {
            changed += lit.pixel(x, y) != plain.pixel(x, y) ? 1 : 0;
        }
        litRows += changed > halfALine ? 1 : 0;
        EXPECT_TRUE(changed == 0 || changed > halfALine) << "only the horizontal lines are lit up: row " << y;
    }
    EXPECT_GT(litRows, 4);
    Child(window, "EditHorzWeight").setFocus();
    EXPECT_EQ(Picture(page), lit) << "by the focus alone";

    page.ViewActions().at(1)->trigger();
    const double actual = page.PixelsPerPoint();
    EXPECT_NEAR(actual, page.screen()->physicalDotsPerInch() / 72.0, 1e-9);
    for (int i = 0; i < 40; ++i) {
        page.ViewActions().at(2)->trigger();
    }
    EXPECT_NEAR(page.PixelsPerPoint(), 16 * actual, 1e-9);
    Picture(page);
    EXPECT_LE(page.Picture().image.width(), page.width()) << "only what is looked at is painted";
}

TEST_F(DesktopLivePage, LightsUpAnAxisOverALineLikeIt)
{
    QWidget& window = OpenPaper("graph");
    LivePage& page = Show(window);
    Enter(window, {"EditXAxisWeight=.1", "EditYAxisWeight=.1", "EditXMajorWeight=.1", "EditYMajorWeight=.1"});
    Child(window, "PopupUnits").setFocus();
    const QImage plain = Picture(page);
    Child(window, "CheckBoxShowAxes").setFocus();
    EXPECT_NE(Picture(page), plain);
}

TEST_F(DesktopLivePage, ShadesTheMarginsAlone)
{
    QWidget& window = OpenPaper("graph");
    LivePage& page = Show(window);
    Enter(window, {"EditLeftMargin=3"});
    Picture(page);
    const auto shot = [&] { return page.viewport()->grab().toImage(); };
    const QImage plain = shot();
    Item(window, "ViewMargins").trigger();
    const QImage shaded = shot();
    const double scale = page.PixelsPerPoint() * page.devicePixelRatioF();
    const QRectF sheet(page.Origin() * page.devicePixelRatioF(), page.PaperInPixels() * page.devicePixelRatioF());
    const QRectF inside = sheet.adjusted(216 * scale, 108 * scale, -54 * scale, -36 * scale);
    int wrong = 0;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            const QRectF around(x - 1, y - 1, 3, 3);  // no pixel of an edge
            const bool changed = plain.pixel(x, y) != shaded.pixel(x, y);
            wrong += changed && (inside.contains(around) || !sheet.intersects(around)) ? 1 : 0;
            wrong += !changed && sheet.contains(around) && !inside.intersects(around) ? 1 : 0;
        }
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(DesktopLivePage, IsMeasuredAndTold)
{
    QWidget& window = OpenPaper("lined");
    LivePage& page = Show(window);
    Enter(window, {"PopupUnits=cm", "PopupPaperSize=A4"});
    Picture(page);
    EXPECT_EQ(page.accessibleName(), QStringLiteral("Lined Paper, A4 portrait, 133 lines, 2 mm apart"));
    EXPECT_EQ(Shown(window, "PageSummary"), page.accessibleName().toStdString());

    auto& zoom = Child<QComboBox>(window, "Zoom");
    for (const char* const entered : {"150%", "0", "-20 %", "much"}) {  // what is none is passed over
        zoom.setFocus();
        zoom.lineEdit()->setText(QString::fromUtf8(entered));
        Press(*zoom.lineEdit(), Qt::Key_Return);
        EXPECT_NEAR(page.ZoomPercent(), 150.0, 1e-9) << entered;
        EXPECT_EQ(zoom.currentText(), QStringLiteral("150 %"));
    }

    for (int i = 0; i < zoom.count(); ++i) {
        emit zoom.textActivated(zoom.itemText(i));
        EXPECT_NEAR(page.ZoomPercent(), zoom.itemText(i).split(' ').first().toDouble(), 1e-9);
        EXPECT_EQ(std::lround(page.ZoomPercent()) % 25, 0) << "round numbers are offered";
    }
    page.ZoomTo(150.0);

    // A mark of the ruler stands where the page has its centimeter.
    auto& ruler = Child(window, "RulerAcross");
    const QImage shown = ruler.grab().toImage();
    const int edge = shown.height() - 1;
    const double centimeter = 72.0 / 2.54 * page.PixelsPerPoint();
    int found = 0;
    for (int i = 0; i <= 21; ++i) {
        const auto x = static_cast<int>(std::floor(page.Origin().x() + i * centimeter));
        if (x >= 1 && x < shown.width() - 1) {
            ++found;
            const auto dark = [&](int at) { return qGray(shown.pixel(at, edge - 9)) < 128; };
            EXPECT_TRUE(dark(x - 1) || dark(x) || dark(x + 1)) << i;
        }
    }
    EXPECT_GT(found, 3);
    for (const bool inInches : {true, false}) {
        for (double scale = 0.05; scale < 20.0; scale *= 1.25) {
            const desktop::RulerSteps steps = desktop::StepsOf({0.0, 595.0, scale, inInches});
            EXPECT_GE(steps.mark * scale, 4.0) << scale;
            EXPECT_GE(steps.mark * steps.marksPerNumber * scale, 38.0) << scale;
            const std::set<double> inches = {0.25, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0};
            const std::set<double> centimeters = {0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0};
            EXPECT_TRUE((inInches ? inches : centimeters).contains(steps.number)) << steps.number;
        }
    }
    EXPECT_EQ(desktop::StepsOf({0.0, 595.0, 4.0 / 4.5, true}).mark, 4.5) << "sixteenths, four pixels apart";
    Child<QAction>(window, "ViewRulers").trigger();
    EXPECT_FALSE(ruler.isVisible());
}

TEST_F(DesktopLivePage, WhatToCheckStaysUntilTheFormChanges)
{
    QWidget& window = OpenPaper("graph");
    auto& button = Child<QToolButton>(window, "CheckButton");
    const auto shown = [&] {
        QTest::qWait(50);
        return button.isVisible() ? button.text().toStdString() : "";
    };
    EXPECT_EQ(shown(), "") << "nothing has been drawn";
    Enter(window, {"EditXAxisTitleX=3"});
    GenerateAs(window, folder / "page.pdf");
    EXPECT_EQ(shown(), "1 thing to check");
    EXPECT_TRUE(button.toolTip().contains(QStringLiteral("overlaps grid lines")));
    Enter(window, {"EditXScale=90"});
    EXPECT_EQ(shown(), "1 thing to check") << "the page is no longer that of the form";
    LivePage& page = Show(window);
    Picture(page);
    EXPECT_EQ(shown(), "2 things to check");
    button.menu()->actions().at(0)->trigger();
    EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("EditXScale")) << "a warning leads to its field";
}

TEST_F(DesktopLivePage, AClickLeadsToTheField)
{
    QWidget& window = OpenPaper("graph");
    LivePage& page = Show(window);
    const auto clicked = [&](double x, double y) {
        const QPointF place = page.Origin() + QPointF(x, y) * page.PixelsPerPoint();
        QTest::mouseClick(page.viewport(), Qt::LeftButton, {}, place.toPoint());
        return window.focusWidget()->objectName().toStdString();
    };
    EXPECT_EQ(clicked(290.0, 66.0), "EditTitle");
    EXPECT_EQ(clicked(306.0, 20.0), "LivePage") << "where nothing is";
    EXPECT_EQ(clicked(306.0, 300.0), "EditXAxisWeight") << "the upright axis, which hides a grid line";
    Enter(window, {"CheckBoxShowAxes=off"});
    EXPECT_EQ(clicked(306.0 + 36.0, 303.0), "EditXMajor") << "a major line, between minor ones";
}

TEST_F(DesktopLivePage, WindowGrowsAndShrinksByIt)
{
    QWidget& window = OpenPaper("lined");
    Show(window);
    const int with = window.width();
    Press(window, Qt::Key_F9);
    const int without = window.width();
    EXPECT_LT(without, with - 100);
    Press(window, Qt::Key_F9);
    EXPECT_EQ(window.width(), with);
}

TEST_F(DesktopLivePage, ShowsWhatThereIsOfAPageGivenUp)
{
    desktop::PageRenderer renderer;
    desktop::PagePicture picture;  // comes from another thread, in turn with this one
    QObject::connect(&renderer, &desktop::PageRenderer::Rendered, &renderer,
                     [&picture](const desktop::PagePicture& rendered) { picture = rendered; });
    PaperPage page{PageFrame{PageSetup{.paperWidth = 100, .paperHeight = 100}},
                   [](MyPDFGenerator& pdf, Turns&, const PageQuestions&) {
                       pdf.SetLineWidth(20.0);
                       pdf.StrokeLine(0.0, 50.0, 100.0, 50.0);
                       throw PageGivenUp{"it is too large"};
                   }};
    renderer.SetPage(page);
    renderer.SetExcerpt({1.0, {}, {100, 100}, 1.0});
    ASSERT_TRUE(QTest::qWaitFor([&picture] { return !picture.image.isNull(); }));
    EXPECT_EQ(picture.problem, QStringLiteral("it is too large"));
    EXPECT_EQ(qGray(picture.image.pixel(50, 50)), 0);
    EXPECT_EQ(qGray(picture.image.pixel(50, 90)), 255);
}

TEST_F(DesktopLivePage, HeavyPageStepsAside)
{
    QWidget& window = OpenPaper("dots");
    LivePage& page = Show(window);
    Enter(window, {"PopupPaperSize=A0", "EditVertSpacing=.01", "EditHorzSpacing=.01"});
    QTest::qWait(300);
    EXPECT_NE(page.Picture().excerpt.size, QSize());
    QSignalSpy painted(&page, &LivePage::Painted);
    Enter(window, {"EditVertSpacing=5", "EditHorzSpacing=5"});
    EXPECT_TRUE(painted.count() > 0 || painted.wait(2000)) << "the heavy page goes on";
    Enter(window, {"EditVertSpacing=.01", "EditHorzSpacing=.01"});
    QTest::qWait(100);
    window.close();  // ends the thread in the midst of the page
}

TEST_F(DesktopLivePage, FormIsUndoneAsAWhole)
{
    QWidget& window = OpenPaper("grid");
    Enter(window, {"EditVertSpacing=.5", "EditXScale=80", "PopupUnits=cm"});
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "EditXScale", "EditTopMargin"}), "1.27 80 1.27");
    Child(window, "CheckVertLines").setFocus();
    ChooseItem(window, "EditUndo");
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "PopupUnits", "EditTopMargin"}), ".5 inches 0.5");
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "EditXScale"}), ".5 100");
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, "EditVertSpacing"), "0.25");
    EXPECT_FALSE(CanChoose(window, "EditUndo"));
    for (int i = 0; i < 3; ++i) {
        ChooseItem(window, "EditRedo");
    }
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "EditXScale", "PopupUnits"}), "1.27 80 cm");
    EXPECT_FALSE(CanChoose(window, "EditRedo"));
    Child(window, "EditXScale").setFocus();  // a field whose text has nothing to undo
    Press(Child(window, "EditXScale"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown(window, "PopupUnits"), "inches");
    Press(Child(window, "EditXScale"), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Shown(window, "PopupUnits"), "cm");
    QMenu& presets = PullDown(window, Item(window, "PresetSave"));  // which fills it
    Click(presets, {}, presets.actionGeometry(&Item(window, "Preset.squares-4mm")).center());
    EXPECT_EQ(Shown(window, "EditVertSpacing"), "0.4");
    EXPECT_NE(Shown(window, "StatusLine").find("The form is now Squares 4 mm"), std::string::npos);
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, "EditVertSpacing"), "1.27");
    Child<QAbstractButton>(window, "ToolReset").click();
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "PopupUnits"}), "0.25 inches");
    Child<QAbstractButton>(window, "ToolUndo").click();

    const fs::path file = folder / "notes.setx";
    person.NamesFile(file, "setx", "Untitled");
    ChooseItem(window, "FileSaveAs");
    EXPECT_EQ(window.windowTitle(), QStringLiteral("notes.setx[*] - Grid Graph Paper"));
    fs::resize_file(file, 30);
    Enter(window, {"EditXScale=70"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isWindowModified(); }));
    person.NamesFile(file, "setx", "");
    ChooseItem(window, "FileOpen");
    EXPECT_NE(Shown(window, "StatusLine").find("notes.setx ends at field "), std::string::npos);
    EXPECT_EQ(Shown(window, "EditVertSpacing"), "");
    emit Child<QLabel>(window, "StatusLine").linkActivated(QStringLiteral("undo"));
    EXPECT_EQ(Shown(window, {"EditVertSpacing", "EditXScale"}), "1.27 70");

    const int width = window.minimumSizeHint().width();
    GenerateAs(window, folder / (std::string(200, 'w') + ".pdf"));
    EXPECT_EQ(window.minimumSizeHint().width(), width) << "a long name does not widen the window";
    QComboBox& popup = Child<QComboBox>(window, "PopupPaperSize");
    Child(window, "EditXScale").setFocus();
    const QPointF middle = popup.rect().center();
    QWheelEvent wheel(middle, popup.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&popup, &wheel);
    EXPECT_EQ(popup.currentText(), QStringLiteral("Letter")) << "the wheel scrolls the form";

    person.NamesPage(folder / "page.pdf");
    Press(window, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_NE(Shown(window, "StatusLine").find("Wrote page.pdf"), std::string::npos);
    ChooseItem(window, "EditUndo");  // the page stays where it is made
    Press(window, Qt::Key_Return);
    EXPECT_EQ(Shown(window, "StaticFileName"), "page.pdf");
}

}  // namespace
}  // namespace linealis::test
