#include "DesktopTestSupport.h"
#include "desktop/page/LivePage.h"
#include "desktop/window/PaperView.h"

#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QToolButton>

// What the user moves on the page, and the markers that the page shows.

namespace linealis::test {
namespace {

using desktop::LivePage;

class DesktopDrag : public DesktopTest {
protected:
    QWidget& Open(std::string_view kind)
    {
        QWidget& window = OpenPaper(kind);
        page = &Child<LivePage>(window, "LivePage");
        if (!page->isVisible()) {
            Press(window, Qt::Key_F9);
        }
        Settle();
        return window;
    }

    /// Waits until the picture shows what the form holds.
    void Settle() const
    {
        QSignalSpy painted(page, &LivePage::Painted);
        while (painted.wait(300)) {
        }
    }

    /// A place of the page in its window. `x` and `y` are in points from the upper left corner.
    QPoint Place(double x, double y) const
    {
        return (page->Origin() + QPointF(x, y) * page->PixelsPerPoint()).toPoint();
    }

    void Move(QPoint to, Qt::KeyboardModifiers keys, Qt::MouseButtons buttons = Qt::LeftButton) const
    {
        QMouseEvent event(QEvent::MouseMove, to, page->viewport()->mapToGlobal(to), Qt::NoButton, buttons, keys);
        QApplication::sendEvent(page->viewport(), &event);
    }

    void Grab(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) const
    {
        Move(from, {}, Qt::NoButton);
        QTest::mousePress(page->viewport(), Qt::LeftButton, {}, from);
        Move((from + to) / 2, keys);
        Move(to, keys);
    }

    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) const
    {
        Grab(from, to, keys);
        QTest::mouseRelease(page->viewport(), Qt::LeftButton, keys, to);
    }

    LivePage* page = nullptr;
};

TEST_F(DesktopDrag, AMarginIsOneStepAndFollowsThePointer)
{
    QWidget& window = Open("grid");
    const auto cursor = [&](double x, double y) {
        Move(Place(x, y), {}, Qt::NoButton);
        return page->viewport()->cursor().shape();
    };
    EXPECT_EQ(cursor(300.0, 36.0), Qt::SizeVerCursor);
    EXPECT_EQ(cursor(576.0, 400.0), Qt::SizeHorCursor);
    EXPECT_EQ(cursor(300.0, 400.0), Qt::OpenHandCursor);
    EXPECT_EQ(cursor(300.0, 10.0), Qt::OpenHandCursor);

    const QImage before = page->Picture().image;
    Grab(Place(300.0, 36.0), Place(300.0, 144.0));
    EXPECT_EQ(Shown(window, "EditTopMargin"), "2") << "while it is dragged";
    Settle();
    EXPECT_NE(page->Picture().image, before);
    QTest::mouseRelease(page->viewport(), Qt::LeftButton, {}, Place(300.0, 144.0));
    auto& view = static_cast<desktop::PaperView&>(window);
    EXPECT_EQ(view.History().UndoName(), QStringLiteral("Top margin 0.5 → 2"));
    Settle();
    Drag(Place(576.0, 400.0), Place(580.0, 400.0), Qt::ControlModifier);  // too short for a drag
    EXPECT_EQ(Shown(window, "EditRightMargin"), "0.5");
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, "EditTopMargin"), "0.5");
    EXPECT_FALSE(view.History().CanUndo());
}

/// In every kind, at the scale that fits and at one that must be scrolled.
TEST_F(DesktopDrag, EveryMarginOfEveryKindMovesAsFarAsThePointer)
{
    constexpr double start = 36.0, moved = 5.0 / 25.4 * 72.0;  // points
    for (const PaperKind& kind : PaperKinds()) {
        auto& view = static_cast<desktop::PaperView&>(Open(kind.name));
        if (auto& tabs = Child<QTabBar>(view, "FormAndPageTabs"); tabs.isVisible()) {
            tabs.setCurrentIndex(1);
        }
        view.DoAsStep(QStringLiteral("metric"), [](PaperWindow& window) {
            window.form.PopupUnits.SetListIndex(1);
            for (const PrintedField& title : PrintedFields(window.form)) {  // so that none lies over an edge
                window.form.Get<TextField>(title.control).SetText("");
            }
            for (const Side side : {Side::Top, Side::Bottom, Side::Left, Side::Right}) {
                MarginOf(window.form, side).SetText("1.27");
            }
        });
        Settle();
        const auto before = view.Window().form.State();
        for (const bool isLarge : {false, true}) {
            isLarge ? page->ZoomTo(400.0) : Item(view, "ViewFit").trigger();
            for (const Side side : {Side::Top, Side::Bottom, Side::Left, Side::Right}) {
                QCoreApplication::processEvents();
                const bool isUpright = side == Side::Top || side == Side::Bottom;
                const bool isFar = side == Side::Bottom || side == Side::Right;  // from the upper left corner
                for (QScrollBar* const bar : {page->verticalScrollBar(), page->horizontalScrollBar()}) {
                    const bool leadsThere = isUpright == (bar == page->verticalScrollBar());
                    bar->setValue(!leadsThere ? bar->maximum() / 2 : isFar ? bar->maximum() : 0);
                }
                const auto paper =
                    static_cast<double>(isUpright ? page->Frame().paperHeight : page->Frame().paperWidth);
                const QPointF middle =
                    (QPointF(page->viewport()->rect().center()) - page->Origin()) / page->PixelsPerPoint();
                const auto at = [&](double depth) {
                    const double place = isFar ? paper - depth : depth;
                    return isUpright ? Place(middle.x(), place) : Place(place, middle.y());
                };
                Drag(at(start), at(start + moved), Qt::ControlModifier);
                const TextField& field = MarginOf(view.Window().form, side);
                const double pixel = 2.54 / 72.0 / page->PixelsPerPoint() + 0.005;  // and the rounding, in cm
                EXPECT_NEAR(field.Number(), 1.77, pixel) << kind.name << " " << field.Name() << " " << isLarge;
                EXPECT_TRUE(view.History().UndoName().endsWith(ToQt("1.27 → " + field.Text())));
                view.Undo();
                EXPECT_TRUE(view.Window().form.State() == before) << kind.name << " " << field.Name();
            }
        }
        view.close();
        QCoreApplication::processEvents();
    }
}

TEST_F(DesktopDrag, LinkedMarginsFollow)
{
    QWidget& window = Open("grid");
    Child<QAbstractButton>(window, "LinkMargins").setChecked(true);
    Grab(Place(36.0, 400.0), Place(500.0, 400.0));
    QTest::mouseRelease(page->viewport(), Qt::LeftButton, {}, Place(500.0, 400.0));
    EXPECT_NEAR(Val(Shown(window, "EditLeftMargin")), 500.0 / 72.0, 0.1);
    for (const char* const margin : {"EditTopMargin", "EditBottomMargin", "EditRightMargin"}) {
        EXPECT_EQ(Shown(window, margin), Shown(window, "EditLeftMargin"));
    }
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, {"EditTopMargin", "EditLeftMargin"}), "0.5 0.5");
}

TEST_F(DesktopDrag, EscapeBringsBackWhatWasThere)
{
    QWidget& window = Open("grid");
    Enter(window, {"EditLeftMargin=1"});
    Settle();
    Grab(Place(72.0, 400.0), Place(200.0, 400.0));
    EXPECT_NE(Shown(window, "EditLeftMargin"), "1");
    Press(window, Qt::Key_Escape);
    EXPECT_EQ(Shown(window, "EditLeftMargin"), "1");
    Move(Place(300.0, 400.0), {});
    QTest::mouseRelease(page->viewport(), Qt::LeftButton, {}, Place(300.0, 400.0));
    EXPECT_EQ(Shown(window, "EditLeftMargin"), "1") << "the rest of the movement does nothing";
    EXPECT_EQ(static_cast<desktop::PaperView&>(window).History().UndoName(), QStringLiteral("Left margin 0.5 → 1"));
}

TEST_F(DesktopDrag, ATitleGetsItsFieldsAndAClickStillLeadsToIt)
{
    QWidget& window = Open("graph");
    Drag(Place(290.0, 66.0), Place(290.0 + 72.0, 66.0 + 36.0));
    const double pixel = 1.0 / page->PixelsPerPoint() / 72.0 + 1.0 / 16.0;  // and the rounding
    EXPECT_NEAR(Val(Shown(window, "EditTitleX")), 3.6, pixel);
    EXPECT_NEAR(Val(Shown(window, "EditTitleY")), 1.5, pixel);
    auto& view = static_cast<desktop::PaperView&>(window);
    EXPECT_EQ(view.History().UndoName(), QStringLiteral("Page title moved"));
    Child<QAbstractButton>(window, "ToolUndo").click();
    EXPECT_EQ(Shown(window, {"EditTitleX", "EditTitleY"}), "2.6 1");
    Settle();
    QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, Place(290.0, 66.0));
    EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("EditTitle"));
    QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, Place(300.0, 108.0));
    EXPECT_NE(window.focusWidget()->objectName(), QStringLiteral("EditTopMargin"))
        << "the line there is of the grid";
}

TEST_F(DesktopDrag, MarkersAreShownAndFollowed)
{
    QWidget& window = Open("graph");
    const QImage plain = page->Picture().image;
    const fs::path file = folder / "points.txt";
    WriteFile(file, "0 20 here\n");
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(ToQt(file.string()))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    Settle();
    const QImage marked = page->Picture().image;
    EXPECT_NE(marked, plain);
    EXPECT_TRUE(Child<QCheckBox>(window, "CheckBoxMarkers").isChecked());
    EXPECT_EQ(Shown(window, "ChooseMarkers"), "points.txt, 1 line");

    // Replaced as editors do it, with a fault.
    WriteFile(folder / "new", "0 -20 here\nthere\n");
    fs::rename(folder / "new", file);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(window, "ChooseMarkers") == "points.txt, 2 lines"; }));
    Settle();
    EXPECT_NE(page->Picture().image, marked);
    const auto& checks = Child<QToolButton>(window, "CheckButton");
    EXPECT_TRUE(checks.isVisible());
    EXPECT_TRUE(checks.toolTip().contains(QStringLiteral("line 2: “there” is not a number")))
        << checks.toolTip().toStdString();

    GenerateAs(window, folder / "page.pdf");  // the file is not asked for
    const std::string text = Inflate(StreamDataOf(ReadFile(folder / "page.pdf"))).text;
    EXPECT_NE(text.find("(here)"), std::string::npos);
    fs::remove(file);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(window, "ChooseMarkers") == "points.txt, not usable"; }));
    Child<QAbstractButton>(window, "ClearMarkers").click();
    EXPECT_EQ(Shown(window, "ChooseMarkers"), "Choose File...");
    person.CancelsFile();
    Press(window, Qt::Key_Return);
}

}  // namespace
}  // namespace linealis::test
