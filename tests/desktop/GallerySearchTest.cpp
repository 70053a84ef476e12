#include "DesktopTestSupport.h"
#include "app/OwnPresets.h"

#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>

namespace linealis::test {
namespace {

class GallerySearchTest : public DesktopTest {
protected:
    FolderItem Save(std::string_view kind, const std::string& scale, const std::string& name) const
    {
        const auto window = MakeWindow(*FindPaperKind(kind), elsewhere);
        window->form.EditXScale.SetText(scale);
        FolderItem file(folder / name);
        EXPECT_FALSE(window->SaveSettings(file));
        return file;
    }

    static void Search(std::string_view words)
    {
        QWidget& gallery = Window("gallery");
        Fill(Child<QLineEdit>(gallery, "GallerySearchField"), words);
        Press(gallery, Qt::Key_Return);
    }

    static Names Results()
    {
        const auto& list = Child<QListWidget>(Window("gallery"), "GalleryResults");
        QTest::qWait(50);  // until it has been painted
        Names lines;
        for (int i = 0; i < list.count(); ++i) {
            lines.push_back(list.item(i)->text().toStdString());
        }
        return lines;
    }

    mutable ScreenlessPlatform elsewhere;
};

TEST_F(GallerySearchTest, PresetsAreLaidOverTheirWindowAsOneStep)
{
    QWidget& graph = OpenPaper("graph");
    Enter(graph, {"EditXScale=77", "PopupXAxisType=Trigonometric"});
    Search("semi-log 3");
    EXPECT_EQ(Shown(graph, {"EditXScale", "PopupYAxis"}), "100 Log 3 Decades");
    Click(Child(graph, "ToolUndo"));
    EXPECT_EQ(Shown(graph, {"EditXScale", "PopupXAxisType"}), "77 Trigonometric");
    const auto own = MakeWindow(*FindPaperKind("grid"), elsewhere);
    own->form.EditXScale.SetText("66");
    const OwnPresets presets(PreferencesFile(""));
    EXPECT_FALSE(presets.Save("Mine & yours", *FindPaperKind("grid"), *own));
    Search("yours");
    EXPECT_EQ(Shown(Window("grid"), "EditXScale"), "66");
    EXPECT_EQ(Window("grid").windowTitle(), QStringLiteral("Grid Graph Paper")) << "it is no document";
    EXPECT_FALSE(OwnPresets::Delete(presets.List(*FindPaperKind("grid"))[0]));
    Press(Window("gallery"), Qt::Key_Return);
    EXPECT_EQ(Results(), Names{"Nothing found"}) << "it is gone since";
    Press(Window("gallery"), Qt::Key_Escape);
    EXPECT_EQ(Results().at(0), "Squares 5 mm - Grid");
}

TEST_F(GallerySearchTest, EveryResultGetsItsPicture)
{
    const auto& list = Child<QListWidget>(Window("gallery"), "GalleryResults");
    EXPECT_GT(Results().size(), 4U);
    const auto isPicture = [&](int row) {
        const QImage image = list.item(row)->icon().pixmap(list.iconSize()).toImage();
        const QRgb corner = image.pixel(image.width() / 2, image.height() / 2);
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (qAlpha(image.pixel(x, y)) > 0 && image.pixel(x, y) != corner) {
                    return true;
                }
            }
        }
        return false;
    };
    for (int row = 0; row < list.count(); ++row) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return isPicture(row); })) << list.item(row)->text().toStdString();
    }
}

TEST_F(GallerySearchTest, DroppedFilesOpenAndAreOfferedAgain)
{
    const FolderItem polar = Save("polar", "55", "p.setp"), grid = Save("grid", "66", "g & h.setx");
    QMimeData dragged;
    dragged.setText(QStringLiteral("p"));
    QList<QUrl> urls;
    for (const FolderItem& file : {polar, grid, FolderItem(folder / "page.txt")}) {
        urls << QUrl::fromLocalFile(ToQt(file.Path().string()));
    }
    dragged.setUrls(urls);
    QWidget& gallery = Window("gallery");
    QWidget& field = Child(gallery, "GallerySearchField");
    EXPECT_FALSE(field.acceptDrops()) << "it would take the files for text";
    QDragEnterEvent enter({}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&gallery, &enter);
    QDropEvent drop(QPointF(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&gallery, &drop);
    EXPECT_EQ(Shown(Window("polar"), "EditXScale") + Shown(Window("grid"), "EditXScale"), "5566");
    const Names lines = Results();
    ASSERT_GT(lines.size(), 2U) << "and presets below";
    EXPECT_EQ(lines[0].substr(0, 10), "g & h.setx");
    Enter(Window("polar"), {"EditXScale=1"});
    EXPECT_TRUE(CanChoose(Window("grid"), "FileOpen"));  // the menu is filled when it is seen
    EXPECT_EQ(Item(Window("grid"), "Recent1").text(), QStringLiteral("&1 g && h.setx"));
    Item(Window("grid"), "Recent2").trigger();
    EXPECT_EQ(Shown(Window("polar"), "EditXScale"), "55");
    Item(Window("grid"), "RecentClear").trigger();
    EXPECT_NE(Results(), lines);
    EXPECT_TRUE(CanChoose(Window("polar"), "FileOpen"));
    EXPECT_FALSE(Child<QMenu>(Window("polar"), "RecentMenu").isEnabled());
}

}  // namespace
}  // namespace linealis::test
