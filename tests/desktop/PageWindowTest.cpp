#include "DesktopTestSupport.h"
#include "desktop/page/LivePage.h"
#include "desktop/system/WindowPlace.h"
#include "desktop/window/PaperView.h"

#include <QScreen>
#include <QSignalSpy>
#include <QTabBar>

// Where the page of a form is, and where windows open.

namespace linealis::test {
namespace {

using desktop::LivePage;

class PageWindowTest : public DesktopTest {
protected:
    /// Waits for the picture after a change.
    static QImage Picture(LivePage& page)
    {
        QSignalSpy painted(&page, &LivePage::Painted);
        while (painted.wait(300)) {
        }
        return page.Picture().image;
    }

    static QRect Place(const QWidget& window) { return {window.pos(), window.size() + desktop::windowDecorations}; }
};

TEST_F(PageWindowTest, ThePageMovesIntoItsOwnWindowAndBack)
{
    for (const std::string_view kind : {"grid", "graph"}) {
        QWidget& window = OpenPaper(kind);
        const int formAlone = window.width();
        auto& page = Child<LivePage>(window, "LivePage");
        Press(window, Qt::Key_F9);
        const QSize withPage = window.size();
        for (const bool byEscape : {true, false}) {
            Item(window, "ViewOwnWindow").trigger();
            QWidget& own = Window("PageWindow");
            EXPECT_EQ(page.window(), &own);
            EXPECT_EQ(window.width(), formAlone) << kind;
            const QImage before = Picture(page);
            Enter(window, {"EditTopMargin=2"});
            EXPECT_NE(Picture(page), before) << "it follows the form";
            own.resize(700, 640);
            EXPECT_EQ(own.size(), QSize(700, 640)) << "it is free where the form is not";

            Window("PageWindow");
            Press(own, Qt::Key_Z, Qt::ControlModifier);  // the shortcuts of the form work here
            EXPECT_NE(Shown(window, "EditTopMargin"), "2");
            byEscape ? Press(own, Qt::Key_Escape) : Press(own, Qt::Key_W, Qt::ControlModifier);
            EXPECT_EQ(FindWindow("PageWindow"), nullptr);
            EXPECT_EQ(page.window(), &window);
            EXPECT_TRUE(page.isVisible());
            EXPECT_EQ(window.size(), withPage) << kind;
            EXPECT_FALSE(Item(window, "ViewOwnWindow").isChecked());
        }
        Item(window, "ViewOwnWindow").trigger();
        window.close();
        EXPECT_EQ(FindWindow("PageWindow"), nullptr) << "it ends with its form";
        QCoreApplication::processEvents();
        QWidget& again = OpenPaper(kind);
        EXPECT_EQ(Window("PageWindow").size(), QSize(700, 640)) << "as it was left";
        Press(Window(kind), Qt::Key_F9);
        EXPECT_EQ(FindWindow("PageWindow"), nullptr);
        EXPECT_FALSE(Child(again, "LivePage").isVisible());
    }
}

TEST_F(PageWindowTest, InANarrowWindowThePageIsUnderATab)
{
    QWidget& window = OpenPaper("grid");
    auto& page = Child<LivePage>(window, "LivePage");
    auto& tabs = Child<QTabBar>(window, "FormAndPageTabs");
    const auto& field = Child<QLineEdit>(window, "EditTopMargin");
    EXPECT_FALSE(tabs.isVisible()) << "there is no page";
    Press(window, Qt::Key_F9);
    EXPECT_FALSE(tabs.isVisible());
    EXPECT_GE(window.width(), 900);
    const QImage before = Picture(page);
    window.resize(899, window.height());
    EXPECT_TRUE(tabs.isVisible() && field.isVisible() && !page.isVisible());
    Enter(window, {"EditTopMargin=2"});
    tabs.setCurrentIndex(1);
    EXPECT_TRUE(page.isVisible() && !field.isVisible());
    EXPECT_NE(Picture(page), before) << "it has followed the form";
    QTest::mouseClick(page.viewport(), Qt::LeftButton, {},
                      (page.Origin() + QPointF(300.0, 144.5) * page.PixelsPerPoint()).toPoint());
    EXPECT_TRUE(field.isVisible() && !page.isVisible()) << "a line leads to its field";
    EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("EditVertSpacing"));
    window.resize(1000, window.height());
    EXPECT_TRUE(!tabs.isVisible() && field.isVisible() && page.isVisible());
    window.resize(700, window.height());
    Press(window, Qt::Key_F9);
    EXPECT_FALSE(tabs.isVisible());
    EXPECT_EQ(window.width(), 700) << "the page took no room";
}

TEST_F(PageWindowTest, WindowsOpenOverTheGalleryAndOnTheScreen)
{
    QWidget& gallery = Window("gallery");
    const QRect screen = gallery.screen()->availableGeometry();
    gallery.move(screen.right() - 300, screen.bottom() - 200);
    for (const std::string_view kind : {"lined", "graph"}) {
        EXPECT_TRUE(screen.contains(Place(OpenPaper(kind)))) << kind;
    }
    gallery.move(0, 0);
    QWidget& over = OpenPaper("grid");
    EXPECT_LE((Place(over).center() - gallery.frameGeometry().center()).manhattanLength(), 60);

    over.move(-5000, 9000);  // on a screen that goes away
    over.close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(screen.contains(Place(OpenPaper("grid"))));

    const QRect area(1280, 0, 800, 600);
    EXPECT_EQ(desktop::MovedInto({1300, 10, 100, 100}, area), QRect(1300, 10, 100, 100));
    EXPECT_EQ(desktop::MovedInto({0, 550, 100, 100}, area), QRect(1280, 500, 100, 100));
    EXPECT_EQ(desktop::MovedInto({1900, -5, 900, 700}, area), QRect(1280, 0, 900, 700));
}

TEST_F(PageWindowTest, OneClickGivesTodayTheCenterAndTheNextNumber)
{
    QWidget& notes = OpenPaper("cornell");
    const std::string today = Shown(notes, "EditDate");
    Enter(notes, {"EditDate=long ago"});
    Click(Child(notes, "TodayEditDate"));
    EXPECT_EQ(Shown(notes, "EditDate"), today);
    EXPECT_EQ(static_cast<desktop::PaperView&>(notes).History().UndoName(), QStringLiteral("Today's date"));
    ClickBox(Child<QAbstractButton>(notes, "CheckBoxTopicArea"));
    EXPECT_FALSE(Child(notes, "TodayEditDate").isEnabled()) << "there is no date";

    QWidget& graph = OpenPaper("graph");
    Click(Child(graph, "CenterEditTitleX"));
    EXPECT_EQ(Shown(graph, "EditTitleX"), "");
    ChooseItem(graph, "EditUndo");
    EXPECT_EQ(Shown(graph, "EditTitleX"), "2.6");

    QWidget& grid = OpenPaper("grid");
    auto& field = Child<QLineEdit>(grid, "EditVertSpacing");
    const QPoint up(field.width() - 5, field.height() / 4), down(field.width() - 5, field.height() * 3 / 4);
    Click(field, {}, up);
    Click(field, {}, up);
    EXPECT_EQ(Shown(grid, "EditVertSpacing"), "0.35");
    Click(field, {}, down);
    EXPECT_EQ(Shown(grid, "EditVertSpacing"), "0.3");
    QTest::mousePress(&field, Qt::LeftButton, {}, up);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Val(Shown(grid, "EditVertSpacing")) > 0.45; })) << "held down";
    QTest::mouseRelease(&field, Qt::LeftButton, {}, up);
    const std::string reached = Shown(grid, "EditVertSpacing");
    QTest::qWait(200);
    EXPECT_EQ(Shown(grid, "EditVertSpacing"), reached);
}

}  // namespace
}  // namespace linealis::test
